#pragma once

#include "run/batch_run.h"
#include "run/interrupt_watch.h"
#include "run/run_listener.h"

namespace torvane {

/// Shows a run on the command line: the console's text on the standard output as it comes, the progress on the
/// standard error output. Ctrl-C aborts behind the running step, a second one ends that step as well; each says so.
class ConsoleView : public RunListener {
 public:
  void Follow(BatchRun& run) { run_ = &run; }

  void TextAppended(const QString& text) override;
  void StepStarted(qsizetype index, qsizetype count, const QString& batch) override;
  void StepEnded(qsizetype index, double seconds) override;
  void Finished(RunOutcome outcome) override;
  void Pump() override;

 private:
  BatchRun* run_ = nullptr;
  InterruptWatch interrupts_;
  QString step_;
};

}  // namespace torvane
