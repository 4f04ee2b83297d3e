#pragma once

#include <QString>

namespace torvane {

/// Decimals of the seconds in a time code; the value is the number of the form.
enum class TimecodeStyle { Hundredths = 2, Milliseconds = 3 };

/// A time given in days as "hh:mm:ss", the separator and the fraction, cut off and not rounded. Hours wrap at 24. A
/// negative time has "-" in front.
QString FormatTimecode(double days, TimecodeStyle style, QChar separator = u'.');

/// A time given in days as "h:mm:ss", to the nearest second. Hours wrap at 24, a sign is dropped.
QString TimeOfDayText(double days);

/// A number with two decimals, halves away from 0.
QString TwoDecimals(double value);

/// A number rounded to four decimals, halves away from 0.
double FourDecimals(double value);

}  // namespace torvane
