#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>

#include "platform/owned_fd.h"

#include "shell/idle_watch.h"

namespace torvane {

/// File descriptors that a command reads and writes.
struct Streams {
  int in = 0;
  int out = 1;
  int err = 2;
};

/// Two ends of a new pipe, closed in programs that are started later; both empty when the system gives none.
struct PipeEnds {
  OwnedFd read;
  OwnedFd write;
};
PipeEnds MakePipe();

/// One process of a chain: a program, or a piece of this program that runs in a process of its own.
struct ProcessStage {
  QString program;                     ///< host path; not used with `inside`
  QStringList arguments;               ///< the name that the program is told for itself comes first
  QMap<QString, QString> environment;  ///< what differs from this process; "" removes
  std::function<int(const Streams&)> inside;
  Streams streams;
  bool watched = false;  ///< keep the end of what it prints on its error stream
};

/// How a process ended.
struct ProcessEnd {
  QString failure;  ///< the system's reason when the program could not be started
  int exitStatus = 0;
  int signal = 0;            ///< 0 when it ended by itself
  bool wasIdle = false;      ///< it was ended, since nothing was done for as long as allowed
  QByteArray watchedOutput;  ///< of a watched stage: the last bytes it printed as errors, 64 KiB at most
  bool Ok() const { return failure.isEmpty() && exitStatus == 0 && signal == 0; }
};

/// Starts all stages at once, waits until the last of them has ended and tells how each did. The streams of a stage
/// are handed to it as they are, so nothing is held in memory; only a watched error stream passes through this process,
/// byte by byte as it comes. `release` is called when all stages run, to close what only they shall hold. When all that
/// still run do nothing for longer than `patience`, they are ended.
///
/// Nobody else in this process may start or await children meanwhile. When this process is told to stop (see below) or
/// dies, the stages are ended with it.
QList<ProcessEnd> RunProcesses(const QList<ProcessStage>& stages, const std::function<void()>& release,
                               const Patience& patience = {});

/// From now on SIGTERM, SIGINT and SIGHUP end the running stages instead of this process, and a reader of the output
/// who has gone is no reason to die at once. For main() only.
void WatchForStopSignals();

/// The signal that asked to stop, or 0.
int StopSignal();

/// Writes all bytes; false when nobody reads them any more or the disk is full.
bool WriteAll(int fd, const QByteArray& bytes);

}  // namespace torvane
