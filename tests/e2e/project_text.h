#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace torvane::test {

/// A project file as text, read and changed without the program under test: one element a line.
class ProjectText {
 public:
  explicit ProjectText(QByteArray text) : text_(std::move(text)) {}

  const QByteArray& Text() const { return text_; }

  /// What stands behind the "=" of a node's caption; empty for an absent node.
  QString Value(const QString& key) const;

  /// Chapter starts of a film in seconds.
  std::vector<double> ChapterStarts(int film) const;

  /// Length of a film in seconds.
  double Seconds(int film) const;

  int FilmCount() const;

  /// Replaces what stands behind the "=" of a caption.
  void SetValue(const QString& key, const QString& value);

  void SetTag(const QString& key, const QString& tag) { SetAttribute(key, QStringLiteral("Tag"), tag); }

  /// Replaces the value of an attribute of one of the settings elements, for example NOMENUS.
  void SetSetting(const QString& attribute, const QString& value);

  /// Makes the project one for NTSC: norm, size and rate of the films, and every vertical position in the shorter
  /// frame.
  void MakeNtsc();

 private:
  QStringList Keys() const;
  void SetAttribute(const QString& key, const QString& attribute, const QString& value);
  QString Attribute(const QString& key, const QString& attribute) const;

  QByteArray text_;
};

}  // namespace torvane::test
