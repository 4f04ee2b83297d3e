#include "media/chapters.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "core/messages.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kHoursADay = 24;
constexpr double kSecondsADay = 86400;

QString TwoDigits(int value) {
  return QString::number(value).rightJustified(2, u'0');
}
QString ThreeDigits(int value) {
  return QString::number(value).rightJustified(3, u'0');
}

bool HasOnly(QStringView text, QStringView allowed) {
  return std::all_of(text.begin(), text.end(), [&](QChar c) { return allowed.contains(c); });
}

QString FrameTime(double frame, float fps) {
  if (!(fps > 0)) return {};
  const double seconds = frame / double(fps);
  if (seconds >= kSecondsADay) return {};
  const int whole = int(seconds);
  const int milliseconds = int((seconds - whole) * 1000);
  return TwoDigits(whole / 3600) + u':' + TwoDigits(whole / 60 % 60) + u':' + TwoDigits(whole % 60) + u'.' +
         ThreeDigits(milliseconds);
}

/// "hh:mm:ss" of three fields of one or two digits; "" for what is no time of day.
QString TimeOfDay(const QString& text) {
  static const QRegularExpression fields(u"^([0-9]{1,2}):([0-9]{1,2}):([0-9]{1,2})$"_s);
  const QRegularExpressionMatch match = fields.match(text);
  if (!match.hasMatch()) return {};
  const int hours = match.captured(1).toInt();
  const int minutes = match.captured(2).toInt();
  const int seconds = match.captured(3).toInt();
  if (hours >= kHoursADay || minutes >= 60 || seconds >= 60) return {};
  return TwoDigits(hours) + u':' + TwoDigits(minutes) + u':' + TwoDigits(seconds);
}

/// A fraction with its "." in three digits, or "" for a lone ".".
QString ThreeDigitFraction(const QString& text, float fps, ChapterFraction& fraction) {
  switch (text.size()) {
    case 0:
    case 1:
      return {};
    case 2:
      return text + u"00";
    case 3:
      if (Val(text.sliced(1)) > double(fps)) {
        if (fraction == ChapterFraction::MaybeFrames) fraction = ChapterFraction::NoFrames;
      } else if (fraction == ChapterFraction::Unknown) {
        fraction = ChapterFraction::MaybeFrames;
      }
      return text + u'0';
    case 4:
      fraction = ChapterFraction::NoFrames;
      return text;
    default:
      return text.first(4);
  }
}

bool IsZero(const QString& chapter) {
  return HasOnly(chapter, u"0.:");
}

/// The chapters that can be read, sorted, with zero in front.
QStringList NormalizeAll(const QStringList& entries, float fps, ChapterFraction& fraction) {
  QStringList chapters;
  for (const QString& entry : entries) {
    if (entry.size() < 2) continue;
    const QString chapter = NormalizeChapter(entry, fps, fraction);
    if (!chapter.isEmpty()) chapters << chapter;
  }
  std::sort(chapters.begin(), chapters.end());
  if (chapters.isEmpty() || !IsZero(chapters.first())) chapters.prepend(kFirstChapter.toString());
  return chapters;
}

QStringList Lines(const QString& text) {
  static const QRegularExpression lineEnd(u"\r\n|\r|\n"_s);
  return text.split(lineEnd);
}

bool FractionsAreFrames(Prompter& prompter) {
  const QString lineBreak = u"\r\n"_s;
  return prompter.Show({.kind = BoxKind::Question,
                        .buttons = BoxButtons::YesNo,
                        .text = GetMessage(478, {{u"|1", lineBreak}}) + lineBreak + lineBreak +
                                GetMessage(479, {{u"|1", lineBreak}}),
                        .preselected = Answer::Yes}) == Answer::Yes;
}

/// The two digits behind the "." taken as a number of frames.
QString FramesToMilliseconds(const QString& chapter, float fps) {
  const qsizetype point = chapter.indexOf(u'.');
  if (point < 0 || !(fps > 0)) return chapter;
  const double frames = Val(QStringView(chapter).sliced(point + 1).first(2));
  return chapter.first(point + 1) + ThreeDigits(int(std::min(frames / double(fps) * 1000, 999.0)));
}

}  // namespace

QString NormalizeChapter(const QString& text, float fps, ChapterFraction& fraction) {
  if (!HasOnly(text, u"0123456789.:")) return {};
  const qsizetype colons = text.count(u':');
  if (colons == 0) {
    fraction = ChapterFraction::NoFrames;
    const double frame = std::floor(Val(text));
    return frame == 0 ? kFirstChapter.toString() : FrameTime(frame, fps);
  }
  if (colons > 3) return {};

  const qsizetype split = text.lastIndexOf(colons == 3 ? u':' : u'.');
  QString clock = split < 0 ? text : text.first(split);
  const QString behind = split < 0 ? QString() : QString(u'.' + text.sliced(split + 1));
  if (colons == 1) clock.prepend(u"00:");
  const QString time = TimeOfDay(clock);
  // A fraction tells what fractions are even where its time is none.
  const QString digits = ThreeDigitFraction(behind, fps, fraction);
  return time.isEmpty() || digits.count(u'.') > 1 ? QString() : QString(time + digits);
}

Result<QString> LoadChapterList(const QString& path, float fps, Prompter& prompter) {
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  return ParseChapterList(*content, fps, prompter);
}

QString ParseChapterList(const QByteArray& content, float fps, Prompter& prompter) {
  QStringList kept;
  // Editors that put a byte order mark in front must not cost the first chapter.
  const auto marked = QStringConverter::encodingForData(content);
  const QString text = QStringDecoder(marked.value_or(QStringConverter::Latin1))(content);
  for (const QString& line : Lines(text)) {
    if (line.contains(u':') || HasOnly(line, u"0123456789,")) kept << line;
  }
  ChapterFraction fraction = ChapterFraction::Unknown;
  QStringList chapters = NormalizeAll(kept.join(u',').split(u','), fps, fraction);
  if (fraction == ChapterFraction::MaybeFrames && FractionsAreFrames(prompter)) {
    for (QString& chapter : chapters) chapter = FramesToMilliseconds(chapter, fps);
  }
  return chapters.join(u',');
}

QString ChapterListFromLines(const QString& lines, float fps) {
  ChapterFraction fraction = ChapterFraction::Unknown;
  return NormalizeAll(Lines(lines), fps, fraction).join(u',');
}

QString CelltimesFile(const QString& outDir, const QString& video) {
  return outDir + u'\\' + SplitFileName(video).name + u"_Celltimes.txt";
}

}  // namespace torvane
