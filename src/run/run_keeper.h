#pragma once

#include <QString>
#include <QStringList>

namespace torvane {

/// Looks after what a run makes, and after what it replaces until that is made whole. Called on the thread that drives
/// the run.
class RunKeeper {
 public:
  virtual ~RunKeeper() = default;

  /// A step has ended. `failed` when its text, its exit status or its console said so. Answers with what is wrong with
  /// what the step should have made, a sentence each; any of them fails the step.
  virtual QStringList StepEnded(const QString& batch, bool failed) = 0;

  /// No step will follow, whatever the outcome; called once, before the temporary directory is cleaned.
  virtual void RunEnded() = 0;
};

}  // namespace torvane
