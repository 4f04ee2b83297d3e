#include "shell/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFileInfo>

#include "platform/host_files.h"
#include "shell/builtin_commands.h"
#include "shell/shell.h"
#include "shell/tool_program.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

const auto kHelp =
    uR"(torvane-cmd runs Windows batch files as Torvane makes them, with the tools of this machine.

  torvane-cmd                     read commands from the input, with a prompt
  torvane-cmd /k FILE.bat [ARG]   run a batch, print a prompt, then read commands
  torvane-cmd /c FILE.bat [ARG]   run a batch and end
  torvane-cmd /c COMMAND [ARG]    run one command and end
  torvane-cmd --missing-tools PROGRAM...
                                  tell which programs of a batch cannot be run here; the exit code is 1 then

Example: torvane-cmd /c author.bat

Batches name files as C:\films\a.mpg. Drive Z is the root of the file system; drive X is the folder
that the environment variable TORVANE_DRIVE_X names. dvdauthor, spumux, mplex, mpeg2enc, png2yuv,
jpeg2yuv and mkisofs are taken from this machine, wherever the batch looks for them; insnav, sup2png and
requant are part of this program, and requant uses ffmpeg.

A line that begins with *ERROR tells what failed. The exit code is that of the last command; with /k it
is 0, or 120 when there was such a line.

TORVANE_TOOL_PATIENCE gives the minutes after which a tool that does nothing is ended; 0, or none
given, is never.
)"_s;

/// The words of a command line as one text. A file of this machine may be named as here.
QString CommandLine(QStringList words) {
  // One word with blanks is a whole command, unless a file is named so.
  if (words.size() == 1 && words.first().contains(u' ') && !QFileInfo(words.first()).isFile()) return words.first();
  if (words.first().contains(u'/') && QFileInfo(words.first()).isFile())
    words.first() = HostFiles::FromUser(words.first());
  for (QString& word : words) {
    if (word.contains(u' ') && !word.contains(u'"')) word = u'"' + word + u'"';
  }
  return words.join(u' ');
}

/// A closed standard stream would hand its number to the next file that is opened.
void OpenStandardStreams() {
  for (int handle = 0; handle < 3; ++handle) {
    if (fcntl(handle, F_GETFD) < 0) [[maybe_unused]]
      const int opened = open("/dev/null", O_RDWR);
  }
}

}  // namespace

int RunConsole(const QStringList& arguments) {
  OpenStandardStreams();
  if (arguments.contains(u"--help"_s) && arguments.size() == 1) {
    WriteAll(1, kHelp.toUtf8());
    return 0;
  }
  if (arguments.value(0) == u"--missing-tools") {
    const QStringList missing = MissingPrograms(arguments.mid(1));
    for (const QString& reason : missing) WriteAll(1, reason.toUtf8() + '\n');
    return missing.isEmpty() ? 0 : 1;
  }
  WatchForStopSignals();
  bool isNumber = true;
  const QString given = qEnvironmentVariable("TORVANE_TOOL_PATIENCE");
  const double patience = given.isEmpty() ? 0 : given.toDouble(&isNumber);
  if (!isNumber || !(patience >= 0)) {
    WriteAll(2, u"torvane-cmd: TORVANE_TOOL_PATIENCE is no number of minutes\n"_s.toUtf8());
    return 2;
  }
  // Tools print on either stream; whoever runs this console reads one text.
  Shell shell({0, 1, 1}, patience);
  const QString option = arguments.value(0).toLower();
  const bool keep = option == u"/k" || option == u"-k";
  const bool close = option == u"/c" || option == u"-c";
  if (!arguments.isEmpty() && ((!keep && !close) || (close && arguments.size() < 2))) {
    WriteAll(2, u"torvane-cmd: unknown usage; see torvane-cmd --help\n"_s.toUtf8());
    return 2;
  }
  if (arguments.size() > 1) shell.RunLine(CommandLine(arguments.mid(1)));
  if (!close && !shell.IsExiting()) {
    if (arguments.size() > 1) PrintText(1, u"\n"_s);
    shell.PrintPrompt();
    shell.RunInteractively();
  }
  if (StopSignal()) return 128 + StopSignal();
  if (!keep) return shell.ErrorLevel();
  return shell.HasComplained() ? kComplained : 0;
}

}  // namespace torvane
