#pragma once

#include <QString>
#include <functional>

namespace torvane {

/// The text of a run in its two forms: as the user sees it, and as the log file gets it. They differ only where a
/// tool log shows a failure (CheckMuxManLogFile).
class Transcript {
 public:
  /// `onShown` is told each piece of shown text as it is added.
  explicit Transcript(std::function<void(const QString&)> onShown);

  void Add(const QString& text);         ///< to both
  void AddShown(const QString& text);    ///< only to what the user sees
  void AddConsole(const QString& text);  ///< only to what goes into the log file

  const QString& Shown() const { return shown_; }
  const QString& ConsoleText() const { return consoleText_; }

 private:
  std::function<void(const QString&)> onShown_;
  QString shown_;
  QString consoleText_;
};

}  // namespace torvane
