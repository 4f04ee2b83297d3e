#pragma once

#include <QString>

namespace torvane {

// Time codes are texts "hh:mm:ss" or "hh:mm:ss.mmm", durations are seconds. Hours past 99 take more digits.

/// "hh:mm:ss.mmm" of what a user wrote. A text without ":" is a number of seconds; with one or two, missing hours are
/// 00, short fields get leading zeros and the fraction is filled with zeros or cut to three digits. "00:00:00:000" for
/// the empty text, "" for any other character than digits, "." and ":" or for fields in another order.
QString NormalizeTimecode(const QString& text);

/// n chapters (1 to 99) equally spaced over the film, one "hh:mm:ss" a line (CR LF between them), the first
/// "00:00:00"; fewer where they would lie less than a second apart. Any other n gives "00:00:00".
QString ChapterListByCount(int n, double duration);

/// A chapter each m minutes (1 to 99) up to one second before the end of the film, in the same form. m is raised where
/// the list would hold 100 or more, since a DVD title holds 99 chapters. Any other m gives "00:00:00".
QString ChapterListByMinutes(int m, double duration);

/// A time given in days, as "hh:mm:ss.mmm" with precision 3 and with hundredths otherwise; rounded, a full second
/// carries. A negative time is 0.
QString FormatDateTimecode(double days, int precision);

/// A chapter time of an NTSC film ("hh:mm:ss" with an optional fraction) brought to the clock of its time codes: times
/// 1.00200300400501, to the nearest millisecond, as "hh:mm:ss.mmm". A text of another form comes back unchanged.
QString AdjustChapterTime(const QString& time);

/// The same for each entry of a list with commas or line breaks between them; entries of fewer than three characters
/// are left out, the result has commas.
QString ConvertChapterList(const QString& list);

}  // namespace torvane
