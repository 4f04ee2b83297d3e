#include "run/run_and_wait.h"

#include <QProcess>

#include "platform/host_files.h"
#include "run/command_line.h"
#include "run/console_capture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool RunAndWait(const QString& commandLine, const std::function<void()>& pump, QString& message) {
  ChildCommand command = ParseCommandLine(commandLine, ConsoleCapture::DefaultConsoleProgram());
  for (QString& argument : command.arguments) {
    if (HostFiles::HasDrive(argument)) argument = HostFiles::ToHost(argument);
  }
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(command.program, command.arguments);
  if (!process.waitForStarted(-1)) {
    message =
        u"This program could not determine whether the process started.\n"
        u"Please watch the program and check it completes."_s;
    return false;
  }
  while (!process.waitForFinished(100) && process.state() != QProcess::NotRunning) pump();
  return true;
}

}  // namespace torvane
