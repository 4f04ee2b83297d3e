#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace torvane {

/// The text of a run in its two forms: as the user sees it, and as the log file gets it. They differ only where a
/// tool log shows a failure (CheckMuxManLogFile). Beside them stands what is still to be judged, as it came: what the
/// user sees has lost the lines that seemed to be repeats.
class Transcript {
 public:
  /// `onShown` is told each piece of shown text as it is added.
  explicit Transcript(std::function<void(const QString&)> onShown);

  void Add(const QString& text);         ///< to both
  void AddShown(const QString& text);    ///< only to what the user sees
  void AddConsole(const QString& text);  ///< only to what goes into the log file

  /// Adds a piece of output of which `shown` is seen and logged.
  void AddOutput(const QString& came, const std::optional<QString>& shown);

  const QString& Shown() const { return shown_; }
  const QString& ConsoleText() const { return consoleText_; }

  /// All that came since the last call of Judged, and the character before it, in which a line may have ended.
  const QString& ToJudge() const { return toJudge_; }
  void Judged();

 private:
  void Show(const QString& text);

  std::function<void(const QString&)> onShown_;
  QString shown_;
  QString toJudge_;
  QString consoleText_;
};

}  // namespace torvane
