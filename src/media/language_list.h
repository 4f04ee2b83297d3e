#pragma once

#include <QString>
#include <array>
#include <span>

#include "core/keys.h"

namespace torvane {

/// The languages that a stream may have, in the order of the choice lists: "not specified", the four common ones, then
/// the rest by name. An entry is two letters, a blank and the name in brackets; one has its name alone.
std::span<const QStringView> LanguageList();

/// The languages of a film's streams as places in LanguageList; 0 where none is specified.
struct FilmLanguages {
  std::array<int, kFilmStreams> Audio = {};
  std::array<int, kFilmStreams> Subtitle = {};
  bool operator==(const FilmLanguages&) const = default;
};

/// Place of the first entry that begins with the two characters of a tag, by case; 0 without one.
int LanguageOfTag(QStringView tag);

/// Two characters: those of the entry, or blanks for "not specified".
QString LanguageTag(int language);

/// Takes a film's `LanguageTags` apart: six tags of two characters with "," between them.
FilmLanguages ParseLanguageTags(const QString& tags);

/// The reverse; "" when nothing is specified.
QString FormatLanguageTags(const FilmLanguages& languages);

}  // namespace torvane
