#include "cli/console_view.h"

#include "cli/cli_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void ConsoleView::TextAppended(const QString& text) { PrintOut(text); }

void ConsoleView::StepStarted(qsizetype index, qsizetype count, const QString& batch) {
  step_ = u"step %1 of %2: "_s.arg(index + 1).arg(count) + batch;
  PrintError(step_ + u'\n');
}

void ConsoleView::StepEnded(qsizetype /*index*/, double seconds) {
  PrintError(step_ + u", " + QString::number(seconds, 'f', 1) + u" s\n");
}

void ConsoleView::Finished(RunOutcome outcome) {
  PrintError(outcome == RunOutcome::Finished ? u"finished\n"_s
             : outcome == RunOutcome::Failed ? u"failed in %1; what the console printed says why\n"_s.arg(step_)
                                             : u"aborted\n"_s);
}

void ConsoleView::Pump() {
  if (!run_) return;
  switch (interrupts_.ApplyTo(*run_)) {
    case InterruptWatch::Effect::None:
      break;
    case InterruptWatch::Effect::StopsAfterStep:
      PrintError(u"stopping after this step; once more stops now\n"_s);
      break;
    case InterruptWatch::Effect::StopsNow:
      PrintError(u"stopping now\n"_s);
      break;
  }
}

}  // namespace torvane
