#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

namespace torvane {

/// A command as a value. Paths are the machine's own.
struct ChildCommand {
  QString program;
  QStringList arguments;
  QString directory;                        ///< "" for the current one
  QMap<QString, QString> environment = {};  ///< what it has beside the environment of this program
};

/// How a child process ended.
struct ChildEnd {
  bool signalled = false;
  int code = 0;  ///< number of the signal, else the exit code
};

/// One child process in a process group of its own, without standard input, with output and errors merged in a pipe.
///
/// The group keeps a Ctrl-C at the terminal from reaching the tools, and lets a crashed console's tools be ended. The
/// process gets a SIGTERM when the thread that started it is gone, also when this program was killed.
class ChildProcess {
 public:
  enum class Started { Yes, NoPipe, NoProcess };
  enum class Output { Data, Idle, Closed };

  ChildProcess() = default;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  /// `reason` takes what the machine says when it fails.
  Started Start(const ChildCommand& command, QString& reason);

  pid_t Id() const { return id_; }

  /// Waits up to `milliseconds` for output and takes at most `limit` bytes of it. Idle after a signal as well.
  Output Read(QByteArray& bytes, qsizetype limit, int milliseconds);

  /// The end of the process, as soon as there is one. Its identifier stays taken until Reap.
  std::optional<ChildEnd> Ended() const;

  /// Lets go of a process that has ended.
  void Reap();

  /// Sends a signal to the whole group. After the end of the process, and before Reap, to what is left of the group.
  void SignalGroup(int signal) const;

  /// Stops listening and leaves the process to itself. It is reaped whenever it ends, by a later ReapAbandoned.
  void Abandon();

  static void ReapAbandoned();

 private:
  void CloseOutput();

  pid_t id_ = 0;
  int output_ = -1;
};

}  // namespace torvane
