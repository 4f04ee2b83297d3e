#include "run/command_line.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

ChildCommand ParseCommandLine(const QString& commandLine, const QString& consoleProgram) {
  static const QRegularExpression shell(
      uR"(^\s*cmd(?:\.exe)?(?:\s+(/[kc])\s+(.*))?\s*$)"_s,
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpressionMatch match = shell.match(commandLine);
  if (match.hasMatch()) {
    QStringList arguments;
    if (match.hasCaptured(1)) arguments << match.captured(1) << match.captured(2);
    return {consoleProgram, arguments, {}};
  }
  QStringList words = QProcess::splitCommand(commandLine);
  const QString program = words.isEmpty() ? QString() : words.takeFirst();
  const bool isPath = program.contains(u'\\') || program.contains(u'/') || HostFiles::HasDrive(program);
  const QString found = isPath ? HostFiles::ToHost(program) : QStandardPaths::findExecutable(program);
  return {found.isEmpty() ? program : found, words, {}};
}

}  // namespace torvane
