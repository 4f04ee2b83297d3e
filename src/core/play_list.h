#pragma once

#include <QString>

#include "core/project_tree.h"

namespace torvane {

/// A playlist of a film: chosen chapters, or titles of an audio titleset, in an order of the user's.
struct PlayList {
  int Film = 0;
  int Number = 0;  ///< among the film's playlists, from 1
  QString List;    ///< numbers in two digits, separated by a comma and a blank: "03, 01, 02"
  QString PreAction = {};
  QString PostAction = {};
  QString UOP = {};  ///< hexadecimal mask of prohibited user operations
  bool operator==(const PlayList&) const = default;
};

/// Adds the playlist's nodes below its film, or brings those of an existing one in line. The group is made on first
/// need.
void AddPlayListNode(ProjectTree& tree, const PlayList& playList);

/// The playlist of a node "PlayList"; film and number are those of its tag. An absent node reads as empty.
PlayList ReadPlayList(const ProjectTree& tree, const QString& key);

/// The number that the next playlist of a film gets: one more than its highest.
int NextPlayListNumber(const ProjectTree& tree, int film);

}  // namespace torvane
