#include "run/transcript.h"

#include <algorithm>
#include <utility>

namespace torvane {

Transcript::Transcript(std::function<void(const QString&)> onShown) : onShown_(std::move(onShown)) {}

void Transcript::Add(const QString& text) {
  AddConsole(text);
  AddShown(text);
}

void Transcript::AddShown(const QString& text) {
  toJudge_ += text;
  Show(text);
}

void Transcript::AddConsole(const QString& text) {
  consoleText_ += text;
}

void Transcript::AddOutput(const QString& came, const std::optional<QString>& shown) {
  toJudge_ += came;
  if (!shown) return;
  AddConsole(*shown);
  Show(*shown);
}

void Transcript::Judged() {
  toJudge_ = toJudge_.last(std::min<qsizetype>(toJudge_.size(), 1));
}

void Transcript::Show(const QString& text) {
  shown_ += text;
  onShown_(text);
}

}  // namespace torvane
