#include "run/repeat_repair.h"

namespace torvane {
namespace {

constexpr QChar kCr = u'\r';
constexpr qsizetype kShortFirstLine = 20;

/// `text` with the repeats of its first line dropped, when that is longer than `limit` characters.
QString DropRepeatsOfFirstLine(const QString& text, qsizetype limit) {
  const qsizetype length = text.indexOf(kCr) + 1;
  if (length == 0 || length <= limit) return text;
  const QString line = text.first(length);
  const qsizetype last = text.lastIndexOf(line, Qt::CaseInsensitive);
  if (last < length) return text;
  return line + text.mid(last + length + 1);
}

}  // namespace

QString RepairRepeatedLines(const QString& text) {
  QString repaired = DropRepeatsOfFirstLine(text, kShortFirstLine);
  for (qsizetype cr = repaired.indexOf(kCr); cr >= 0; cr = repaired.indexOf(kCr, cr + 1)) {
    repaired = repaired.first(cr + 1) + DropRepeatsOfFirstLine(repaired.sliced(cr + 1), 0);
  }
  return repaired;
}

std::optional<QString> RepeatRepair::Take(const QString& chunk) {
  if (!chunk.endsWith(u'>') && chunk == lastChunk_) return std::nullopt;
  lastChunk_ = chunk;
  QString repaired = RepairRepeatedLines(chunk);
  if (repaired == lastShown_) return std::nullopt;
  lastShown_ = repaired;
  return repaired;
}

}  // namespace torvane
