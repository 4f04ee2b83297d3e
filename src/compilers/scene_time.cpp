#include "compilers/scene_time.h"

#include <algorithm>

#include "core/text.h"
#include "core/timecode.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kMillisecondsADay = 86400000;

double RoundedToHundredths(double value) {
  return RoundHalfEven(value * 100) / 100;
}

/// Seconds of "hh:mm:ss".
double SecondsOf(const QString& time) {
  return Val(time.section(u':', 0, 0)) * 3600 + Val(time.section(u':', 1, 1)) * 60 + Val(time.section(u':', 2, 2));
}

QString TimeOfDay(qint64 milliseconds) {
  const auto field = [](qint64 value) -> QString { return QString::number(value).rightJustified(2, u'0'); };
  return field(milliseconds / 3600000 % 24) + u':' + field(milliseconds / 60000 % 60) + u':' +
         field(milliseconds / 1000 % 60);
}

int FramesAt30(qint64 milliseconds) {
  return int(RoundedToHundredths(double(milliseconds) / 1000 * 30));
}

QString NonDropSceneTime(const QString& time) {
  constexpr double kNonDropClock = 1.001001001;
  constexpr double kFrameMilliseconds = 33.334;
  constexpr int kHalfFrame = 17;
  constexpr int kLastFrame = 29;
  constexpr int kLastFrameEnd = 983;
  const qsizetype point = time.indexOf(u'.');
  const double fraction = point < 0 ? 0 : Val(time.mid(point));
  const double days = (SecondsOf(time.left(point)) + fraction) / 86400 * kNonDropClock;
  auto milliseconds = qint64(days * kMillisecondsADay);
  const qint64 rest = milliseconds % 1000;
  int frames = FramesAt30(rest);
  if (rest - qint64(frames * kFrameMilliseconds) > kHalfFrame) {
    if (rest <= kLastFrameEnd) {
      if (frames < kLastFrame) ++frames;
    } else {
      milliseconds += 1000 - rest;
      frames = 0;
    }
  }
  return TimeOfDay(milliseconds) + u':' + QString::number(frames);
}

}  // namespace

std::optional<QString> CompletedTimeCode(const QString& time) {
  const qsizetype colons = time.count(u':');
  if (colons > 1 && time.contains(u'.')) return std::nullopt;
  const QString missing = u":00:00:00"_s;
  return QString(time + missing.mid(3 * std::min<qsizetype>(colons, 2)));
}

QString ChapterToSceneTime(const QString& time, double rate) {
  if (RoundedToHundredths(rate) == 29.97) return NonDropSceneTime(time);
  if (const std::optional<QString> completed = CompletedTimeCode(time)) return *completed;

  const qsizetype point = time.indexOf(u'.');
  const QString seconds = time.left(point);
  const auto frames = [rate](double fraction) -> QString {
    return u':' + QString::number(int(RoundedToHundredths(rate * fraction)));
  };
  if (rate == 25) return seconds + frames(Val(time.mid(point, 4)));
  // The next millisecond, so that a time which was cut to milliseconds does not fall into the frame before its own.
  const int next = ValToInt(time.mid(point + 1, 3)) + 1;
  if (next < 1000) return seconds + frames(next / 1000.0);
  return TimeOfDay((qint64(SecondsOf(seconds)) + 1) * 1000) + u":0";
}

}  // namespace torvane
