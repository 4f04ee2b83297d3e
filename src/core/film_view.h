#pragma once

#include <QString>
#include <optional>

#include "core/keys.h"
#include "core/project_tree.h"

namespace torvane {

/// A film's nodes as typed values, with what stands for an absent node. Holds no copy.
class FilmView {
 public:
  FilmView(const ProjectTree& tree, int film) : tree_(&tree), film_(film) {}

  int Number() const { return film_; }
  bool IsAudioTitleSet() const;

  std::optional<QString> Text(Attribute attribute) const;
  QString Tag(Attribute attribute) const;  ///< "" for a node without one
  QString Name() const { return Text(film_node::Name).value_or(QString()); }
  QString Video() const { return Text(film_node::Video).value_or(QString()); }
  QString Chapters() const { return Text(film_node::Chapters).value_or(QString()); }
  QString Fps() const { return Text(film_node::Fps).value_or(QString()); }
  bool NeedsMux() const;  ///< the video batch multiplexes the film

  std::optional<QString> Audio(int stream) const;     ///< stream 1 to 3
  std::optional<QString> Subtitle(int stream) const;  ///< stream 1 to 3
  QString SubtitleFormat(int stream) const;
  int SubtitleCount() const;  ///< number of the highest subtitle stream, 0 without one
  bool StartsWithSubtitle() const;  ///< the first subtitle stream starts switched on

  /// Number in the VMGM domain of the menu that the film returns to: k + 1 for a menu "MMk" of the project, else 1.
  int ReturnMenu() const;

 private:
  std::optional<QString> TextAt(const QString& key, qsizetype labelLength) const;

  const ProjectTree* tree_;
  int film_;
};

}  // namespace torvane
