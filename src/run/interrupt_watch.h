#pragma once

#include <QtGlobal>

namespace torvane {

class BatchRun;

/// Catches Ctrl-C for the life of the object, for a run that is driven from the command line. There may be one at a
/// time.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  Q_DISABLE_COPY_MOVE(InterruptWatch)

  enum class Effect { None, StopsAfterStep, StopsNow };

  /// Passes on what came since the last call, from RunListener::Pump: the first Ctrl-C lets the running step end and
  /// starts no further one; the second ends the step as well, and so does a SIGTERM or SIGHUP at once. Answers with
  /// what this call has brought about.
  Effect ApplyTo(BatchRun& run);

 private:
  int applied_ = 0;
};

}  // namespace torvane
