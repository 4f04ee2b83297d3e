#pragma once

#include <QString>
#include <cstdint>

namespace torvane {

/// Why a console could not be run. Equal to a default one when nothing is wrong.
struct ConsoleError {
  std::uint32_t number = 0;
  QString source;
  QString text;
  QString detail;  ///< what the machine says about it, with the path; may be ""
  bool operator==(const ConsoleError&) const = default;
};

/// How a console came to its end.
struct ConsoleEnd {
  enum class Kind {
    Exited,     ///< ended by itself; `code` is its exit code: 0, unless it had to complain
    Signalled,  ///< ended by a signal; `code` is its number
    Cancelled,  ///< nobody listens any more; the process may still run
    NotRun      ///< could not be started; `error` tells why
  };
  Kind kind = Kind::Exited;
  int code = 0;
  ConsoleError error;
  bool operator==(const ConsoleEnd&) const = default;
};

/// What a console calls while its process runs, all on the caller's thread.
class ConsoleClient {
 public:
  virtual ~ConsoleClient() = default;

  /// A piece of the merged output, as it comes: cut anywhere, but never within a character. Not empty.
  virtual void ReadProcess(const QString& chunk) = 0;

  /// Once in each turn of the loop, before the pipe is looked at.
  virtual void BeforePoll() {}

  /// At least every 50 ms or so: keeps a window alive, or looks whether the user wants to stop.
  virtual void Pump() {}
};

/// Runs one command at a time with its output and errors merged.
class Console {
 public:
  virtual ~Console() = default;

  /// The command of the process that runs now; "" when none does.
  virtual QString CommandLine() const = 0;

  /// Identifier of the process that runs now; 0 when none does.
  virtual std::int32_t ProcessID() const = 0;

  /// Runs "cmd.exe" or "cmd /k FILE.bat" in a directory (DOS path; "" for the current one), and returns when the
  /// process has ended and all its output was handed on, or after Cancel.
  virtual ConsoleEnd RunProcess(const QString& commandLine, const QString& directory, ConsoleClient& client) = 0;

  /// Ends the listening at the next turn of the loop. The process itself is not ended.
  virtual void Cancel() = 0;

  /// Asks the process and everything it started to end, and ends them by force if they don't within three seconds.
  /// RunProcess returns as usual.
  virtual void Terminate() = 0;
};

}  // namespace torvane
