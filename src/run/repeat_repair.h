#pragma once

#include <QString>
#include <optional>

namespace torvane {

/// `text` without the repeats of its lines. A line ends with a CR and includes it. Where a line occurs again behind
/// itself (whatever the case of its letters), everything up to the end of the last occurrence and one character more
/// is dropped. The first line is looked at only if it is longer than 20 characters with its CR; then come the lines
/// behind each CR, which may have any length.
QString RepairRepeatedLines(const QString& text);

/// Keeps a tool that prints the same progress line again and again from filling the log.
class RepeatRepair {
 public:
  /// What of the next piece of output is to be shown; nothing when it only repeats what came last.
  std::optional<QString> Take(const QString& chunk);

 private:
  QString lastChunk_;
  QString lastShown_;
};

}  // namespace torvane
