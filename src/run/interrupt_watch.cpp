#include "run/interrupt_watch.h"

#include <atomic>
#include <csignal>

#include "run/batch_run.h"

namespace torvane {
namespace {

std::atomic<int> presses = 0;
static_assert(std::atomic<int>::is_always_lock_free);

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction former[std::size(kSignals)];

extern "C" void CountPress(int signal) {
  presses += signal == SIGINT ? 1 : 2;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  presses = 0;
  struct sigaction action {};
  action.sa_handler = CountPress;
  // No SA_RESTART: the wait for console output returns, so that a press is answered at once.
  for (size_t i = 0; i < std::size(kSignals); ++i) {
    sigaction(kSignals[i], nullptr, &former[i]);
    if (former[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

InterruptWatch::~InterruptWatch() {
  for (size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &former[i], nullptr);
}

InterruptWatch::Effect InterruptWatch::ApplyTo(BatchRun& run) {
  const int now = presses;
  if (now == applied_) return Effect::None;
  const bool first = applied_ == 0;
  applied_ = now;
  if (first) run.RequestClose();
  if (now == 1) return Effect::StopsAfterStep;
  run.Terminate();
  return Effect::StopsNow;
}

}  // namespace torvane
