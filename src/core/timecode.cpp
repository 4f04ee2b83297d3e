#include "core/timecode.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kSecondsADay = 86400;
constexpr double kMillisecondsADay = kSecondsADay * 1000;
/// 30 / 29.97 squared, to the digits that count here.
constexpr double kNtscFactor = 1.00200300400501;
constexpr int kMaxChapters = 99;

/// No film and no chapter list comes near a year; beyond it, integer arithmetic would be at its end some day.
constexpr double kMaxSeconds = 365 * kSecondsADay;

QString TwoDigits(qint64 value) {
  return QString::number(value).rightJustified(2, u'0');
}

QString ClockText(qint64 seconds) {
  return TwoDigits(seconds / 3600) + u':' + TwoDigits(seconds / 60 % 60) + u':' + TwoDigits(seconds % 60);
}

QString ClockText(double seconds) {
  return ClockText(qint64(std::clamp(seconds, 0.0, kMaxSeconds)));
}

/// The time of a number of parts of a second, of which `unit` (a power of ten) make one second.
QString FractionText(double parts, qint64 unit) {
  const auto total = qint64(std::floor(std::clamp(parts, 0.0, kMaxSeconds * double(unit)) + 0.5));
  const QString fraction = QString::number(unit + total % unit).sliced(1);
  return ClockText(total / unit) + u'.' + fraction;
}

qint64 CountByMinutes(int m, double duration) {
  const double last = duration - 1;
  return last <= 0 ? 1 : qint64(std::ceil(std::min(last, kMaxSeconds) / (m * 60.0)));
}

}  // namespace

QString NormalizeTimecode(const QString& text) {
  if (text.isEmpty()) return u"00:00:00:000"_s;
  static const QRegularExpression seconds(u"^[0-9.]+$"_s);
  if (seconds.match(text).hasMatch()) return FractionText(Val(text) * 1000, 1000);

  static const QRegularExpression fields(u"^(?:([0-9]*):)?([0-9]*):([0-9]*)(?:\\.([0-9]*))?$"_s);
  const QRegularExpressionMatch match = fields.match(text);
  if (!match.hasMatch()) return {};
  QStringList clock;
  for (int i = 1; i <= 3; ++i) clock += match.captured(i).rightJustified(2, u'0');
  return clock.join(u':') + u'.' + match.captured(4).leftJustified(3, u'0', true);
}

QString ChapterListByCount(int n, double duration) {
  QStringList times{ClockText(0.0)};
  if (n < 1 || n > kMaxChapters) return times.first();
  if (duration < n) n = int(std::max(duration, 0.0));
  for (int k = 1; k < n; ++k) times += ClockText(k * duration / n);
  return times.join(u"\r\n"_s);
}

QString ChapterListByMinutes(int m, double duration) {
  QStringList times{ClockText(0.0)};
  if (m < 1 || m > kMaxChapters) return times.first();
  if (CountByMinutes(m, duration) > kMaxChapters) {
    m = int(std::floor(std::floor(std::min(duration, kMaxSeconds) / 60) / 100)) + 1;
    while (CountByMinutes(m, duration) > kMaxChapters) ++m;
  }
  const qint64 count = CountByMinutes(m, duration);
  for (qint64 k = 1; k < count; ++k) times += ClockText(k * m * 60);
  return times.join(u"\r\n"_s);
}

QString FormatDateTimecode(double days, int precision) {
  return precision == 3 ? FractionText(days * kMillisecondsADay, 1000)
                        : FractionText(days * kMillisecondsADay / 10, 100);
}

QString AdjustChapterTime(const QString& time) {
  static const QRegularExpression form(u"^([0-9]{1,4}):([0-9]{1,2}):([0-9]{1,2})(\\.[0-9]*)?$"_s);
  const QRegularExpressionMatch match = form.match(time);
  if (!match.hasMatch()) return time;
  const double clock = Val(match.captured(1)) * 3600 + Val(match.captured(2)) * 60 + Val(match.captured(3));
  return FractionText((clock + Val(match.captured(4))) * kNtscFactor * 1000, 1000);
}

QString ConvertChapterList(const QString& list) {
  static const QRegularExpression separator(u"\r\n|\n|,"_s);
  QStringList converted;
  for (const QString& entry : list.split(separator)) {
    if (entry.size() >= 3) converted += AdjustChapterTime(entry);
  }
  return converted.join(u',');
}

}  // namespace torvane
