#include "run/transcript.h"

#include <utility>

namespace torvane {

Transcript::Transcript(std::function<void(const QString&)> onShown) : onShown_(std::move(onShown)) {}

void Transcript::Add(const QString& text) {
  AddConsole(text);
  AddShown(text);
}

void Transcript::AddShown(const QString& text) {
  shown_ += text;
  onShown_(text);
}

void Transcript::AddConsole(const QString& text) {
  consoleText_ += text;
}

}  // namespace torvane
