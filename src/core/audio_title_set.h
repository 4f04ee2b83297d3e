#pragma once

#include <QString>
#include <vector>

#include "core/font_string.h"
#include "core/project.h"

namespace torvane {

/// One title of an audio titleset.
struct AudioTitle {
  QString File;  ///< full path of the audio file
  QString Artist;
  QString Album;
  QString Title;
  QString Image;  ///< full path of the picture shown
  int Size = 0;   ///< bytes the title takes on the disc, with its picture
  bool operator==(const AudioTitle&) const = default;
};

/// How one of the three texts stands on the pictures.
struct AudioTextLayout {
  FontRecord Font;
  int Color = 0;  ///< packed
  int XPos = 0;
  int YPos = 0;
  bool operator==(const AudioTextLayout&) const = default;
};

struct AudioLayout {
  AudioTextLayout Author;
  AudioTextLayout Album;
  AudioTextLayout Title;
  bool UseBlur = false;
  int BlurX = 0;  ///< hundredths
  int BlurY = 0;  ///< hundredths
  bool operator==(const AudioLayout&) const = default;
};

/// The layout that the settings give a new audio titleset.
AudioLayout DefaultAudioLayout(const Settings& settings);

/// Everything the nodes of an audio titleset hold.
struct AudioTitleStore {
  QString Name;
  std::vector<AudioTitle> Titles;  ///< 1 to 96
  QString AudioTSLayoutType = {};  ///< "1": one title with a chapter for each track; "" or "0": a title for each
  AudioLayout Layout = {};
  int TotalSize = 0;  ///< megabytes
  QString PreAction = {};
  QString PostAction = {};
  QString UOP = {};
  bool operator==(const AudioTitleStore&) const = default;
};

/// Whole megabytes that the titles take together.
int AudioTitlesMB(const std::vector<AudioTitle>& titles);

/// Adds the nodes of an audio titleset as film number `FilmCount` + 1 at the end of the root level and counts it.
/// `ownerMenu` is the menu that holds its button, `buttonNumber` the button's number there. Returns the film's number.
int AddAudioTitleSetSubtree(Project& project, const AudioTitleStore& store, const QString& ownerMenu, int buttonNumber);

/// A store of the titleset's nodes; an absent node reads as empty or 0.
AudioTitleStore ReadAudioTitleSet(const ProjectTree& tree, int film);

/// Brings the nodes of an existing audio titleset in line with the store. Owner and button number stay.
void WriteAudioTitleSet(ProjectTree& tree, int film, const AudioTitleStore& store);

}  // namespace torvane
