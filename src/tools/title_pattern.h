#pragma once

#include <QString>

namespace torvane {

/// What the name of an audio file tells, as "Author - Album - Track - Title". What it does not tell is "".
struct TitlePattern {
  QString Author = {};
  QString Album = {};
  QString Track = {};
  QString Title = {};
  bool operator==(const TitlePattern&) const = default;
};

inline constexpr QStringView kPatternSeparator = u" - ";

/// Cuts a name at its separators, from the end on: the title, the track, then album and author together.
TitlePattern ParseTitlePattern(const QString& name);

/// The name of an audio file as a text: without ending, with blanks for "_".
QString TitleOfFile(const QString& path);

}  // namespace torvane
