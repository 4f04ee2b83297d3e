#include "media/media_text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Longer than anything that a 33-bit clock or a GOP header can tell.
constexpr double kMostDays = 366;
constexpr qint64 kSecondsADay = 86400;

QString Digits(qint64 value, int count) {
  return QString::number(value).rightJustified(count, u'0');
}

}  // namespace

QString FormatTimecode(double days, TimecodeStyle style, QChar separator) {
  const int decimals = int(style);
  const qint64 unit = style == TimecodeStyle::Milliseconds ? 1000 : 100;
  const auto parts = qint64(std::clamp(days, -kMostDays, kMostDays) * double(kSecondsADay * unit));
  const qint64 t = std::abs(parts);
  QString text = parts < 0 ? u"-"_s : QString();
  text += Digits(t / (3600 * unit) % 24, 2) + u':' + Digits(t / (60 * unit) % 60, 2) + u':' + Digits(t / unit % 60, 2) +
          separator + Digits(t % unit, decimals);
  return text;
}

QString TimeOfDayText(double days) {
  const auto seconds = qint64(std::round(std::abs(std::clamp(days, -kMostDays, kMostDays)) * double(kSecondsADay)));
  return QString::number(seconds / 3600 % 24) + u':' + Digits(seconds / 60 % 60, 2) + u':' + Digits(seconds % 60, 2);
}

QString TwoDecimals(double value) {
  const double rounded = std::round(value * 100) / 100;
  return QString::number(rounded == 0 ? 0 : rounded, 'f', 2);
}

double FourDecimals(double value) {
  return std::round(value * 10000) / 10000;
}

}  // namespace torvane
