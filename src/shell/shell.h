#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "shell/batch_script.h"
#include "shell/batch_variables.h"
#include "shell/command_parser.h"
#include "shell/process_chain.h"
#include "shell/redirected_streams.h"
#include "shell/tool_command.h"

namespace torvane {

/// Runs the batch language as generated batches use it: commands of the language itself here, outside programs through
/// MakeToolCommand. Texts go to the file descriptors given, in UTF-8 with CR LF; what a program prints goes there
/// unchanged. A line that begins with "*ERROR" tells a failure that cmd.exe would not have told: a program that is
/// missing or ended with a status other than 0 or by a signal, a batch or label that is not there, a line that cannot
/// be read.
///
/// As with cmd.exe a failed command does not stop its batch. The file behind the ">" of a failed program is removed, so
/// that no half of a film passes for the whole.
class Shell {
 public:
  explicit Shell(const Streams& streams);

  /// Runs one line as if typed at the prompt.
  void RunLine(const QString& line);

  /// Prints the prompt: the current directory as DOS path and ">".
  void PrintPrompt();

  /// Reads lines from the input until its end or EXIT and runs them, with a prompt behind each.
  void RunInteractively();

  /// True after EXIT, when a signal asks to stop, or when nobody reads the console's pipe any more.
  bool IsExiting() const;

  /// ERRORLEVEL: 0, or the status of what failed last; 9009 for a program that is missing.
  int ErrorLevel() const { return errorLevel_; }

 private:
  /// A batch that runs, or a CALL of one of its labels.
  struct Frame {
    const BatchScript* script;
    QStringList arguments;  // %0 first, quotes kept
    qsizetype next = 0;     // index of the line that comes next
    bool ended = false;
  };

  void RunFrame(Frame frame);
  void RunExpanded(const QString& line);
  void RunParsed(const ParsedLine& parsed);
  void RunConditional(const QString& text);
  void RunCommand(const CommandText& command);
  bool RunControl(const QString& name, const QString& rest);
  bool RunInShell(const QString& text);
  void RunPrograms(const QList<CommandText>& commands);
  Result<ToolCommand> MakeStage(const QString& commandText, const RedirectedStreams& opened, PrivateFolder& folder);
  void Goto(const QString& rest);
  void Call(const QString& rest);
  void Exit(const QString& rest);
  void Echo(const QString& rest);
  void StartBatch(const QString& path, const QStringList& arguments);
  void Report(const QString& text);
  RunKind KindOfRun() const;

  Streams streams_;
  int console_;  // where failures are told, whatever is redirected
  BatchVariables variables_;
  std::vector<Frame*> frames_;
  int errorLevel_ = 0;
  bool echo_ = true;
  bool exiting_ = false;
  int jumps_ = 0;         // counts GOTO and the like: what stands behind one in its line is not run
  int conditionals_ = 0;  // IFs within IFs
};

}  // namespace torvane
