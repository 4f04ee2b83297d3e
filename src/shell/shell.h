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
/// missing, was ended by a signal or for doing nothing, ended with a status other than 0 or did not leave what it shall
/// make; a batch or label that is not there, a line that cannot be read. A status that the batch asks about is its own
/// affair: where the next command is an IF that names ERRORLEVEL, or stands behind "||".
///
/// As with cmd.exe a failed command does not stop its batch. What a failed program was to write is removed, so that no
/// half of a film, and no film of an earlier run, passes for the whole.
class Shell {
 public:
  /// `patience` is how many minutes the programs of a command may do nothing; 0 is for ever.
  explicit Shell(const Streams& streams, double patience = 0);

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

  /// True when there was a line that begins with "*ERROR".
  bool HasComplained() const { return complained_; }

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
  bool AsksForStatus() const;
  void Report(const QString& text);
  RunKind KindOfRun() const;

  Streams streams_;
  int console_;  // where failures are told, whatever is redirected
  double patience_;
  BatchVariables variables_;
  std::vector<Frame*> frames_;
  int errorLevel_ = 0;
  bool echo_ = true;
  bool exiting_ = false;
  bool complained_ = false;
  const CommandChain* nextChain_ = nullptr;  // the one behind the running one in its line
  int jumps_ = 0;         // counts GOTO and the like: what stands behind one in its line is not run
  int conditionals_ = 0;  // IFs within IFs
};

}  // namespace torvane
