#pragma once

#include <QString>
#include <optional>

namespace torvane {

/// A time with less than "hh:mm:ss.fraction", filled up to a time code of MuxMan as the text allows: ":00:00:00" behind
/// a text without ":", ":00:00" with one, ":00" with two and no fraction. Nothing for a complete time.
std::optional<QString> CompletedTimeCode(const QString& time);

/// A chapter time "hh:mm:ss" with an optional ".fraction" as scene time of MuxMan, "hh:mm:ss:f". At 29.97 frames a
/// second it is brought to the clock of its time codes, which counts 30, and to the nearest frame.
QString ChapterToSceneTime(const QString& time, double rate);

}  // namespace torvane
