#include "run/tool_check.h"

#include <QProcess>

#include "run/console_capture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QStringList MissingTools(const QStringList& programs) {
  if (programs.isEmpty()) return {};
  QProcess console;
  console.setStandardInputFile(QProcess::nullDevice());
  console.start(ConsoleCapture::DefaultConsoleProgram(), QStringList{u"--missing-tools"_s} + programs);
  constexpr int kPatienceMs = 30'000;
  if (!console.waitForFinished(kPatienceMs) || console.exitStatus() != QProcess::NormalExit || console.exitCode() > 1) {
    return {u"The console %1 does not answer: %2"_s.arg(console.program(), console.errorString())};
  }
  return QString::fromUtf8(console.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

}  // namespace torvane
