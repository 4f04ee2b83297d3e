#include "tools/title_pattern.h"

#include "core/text.h"

namespace torvane {
namespace {

/// The separator in front of the one at `behind`, when there is text between them; -1 for none.
qsizetype SeparatorBefore(const QString& name, qsizetype behind) {
  const qsizetype at = behind < 1 ? -1 : name.lastIndexOf(kPatternSeparator, behind - 1);
  return behind - at > kPatternSeparator.size() ? at : -1;
}

QString Between(const QString& name, qsizetype first, qsizetype second) {
  return name.mid(first + kPatternSeparator.size(), second - first - kPatternSeparator.size());
}

}  // namespace

TitlePattern ParseTitlePattern(const QString& name) {
  const qsizetype last = name.lastIndexOf(kPatternSeparator);
  if (last < 0) return {.Title = name};
  TitlePattern pattern{.Title = name.mid(last + kPatternSeparator.size())};
  if (pattern.Title.isEmpty()) return {.Title = name};
  const qsizetype track = SeparatorBefore(name, last);
  if (track < 0) return pattern;
  pattern.Track = Between(name, track, last);
  const qsizetype album = SeparatorBefore(name, track);
  if (album < 0) return pattern;
  pattern.Album = Between(name, album, track);
  pattern.Author = name.first(album);
  return pattern;
}

QString TitleOfFile(const QString& path) {
  QString name = SplitFileName(path).name.replace(u'_', u' ');
  if (name.endsWith(u'.')) name.chop(1);
  return name;
}

}  // namespace torvane
