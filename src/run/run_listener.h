#pragma once

#include <QString>

#include "run/log_scan.h"

namespace torvane {

enum class RunSign { Error, Success };

/// How a run went: all steps ran well; one failed, or the console did; or the user stopped it.
enum class RunOutcome { Finished, Failed, Aborted };

/// Follows a run live. Everything is called on the thread that drives the run.
class RunListener {
 public:
  virtual ~RunListener() = default;

  /// Text that was added at the end of what the user sees.
  virtual void TextAppended(const QString& /*text*/) {}
  virtual void CaptionChanged(const QString& /*caption*/) {}

  /// A step begins: its index from 0, the number of steps, its batch file.
  virtual void StepStarted(qsizetype /*index*/, qsizetype /*count*/, const QString& /*batch*/) {}

  /// The step has ended after so many seconds; whether it went well is told behind this.
  virtual void StepEnded(qsizetype /*index*/, double /*seconds*/) {}

  /// A range of the text shown so far is to be seen in red.
  virtual void Marked(const RunMark& /*mark*/) {}
  virtual void SignShown(RunSign /*sign*/) {}

  /// The last call of a run: logs are written, temporary files are gone.
  virtual void Finished(RunOutcome /*outcome*/) {}

  /// About every 50 ms while a step runs. A window handles its events here; a command line looks for an interrupt.
  /// BatchRun::Tick, RequestClose and Terminate may be called from here.
  virtual void Pump() {}
};

}  // namespace torvane
