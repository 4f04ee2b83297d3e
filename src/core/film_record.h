#pragma once

#include <QString>
#include <array>

#include "core/keys.h"
#include "core/project.h"

namespace torvane {

/// Everything a film's nodes hold: what the analyser found in its video, and what the user chose for it.
struct FilmRecord {
  QString Name = {};
  QString VideoFile = {};  ///< full DOS path
  int SizeMB = 0;          ///< whole megabytes
  int ResH = 0;
  int ResV = 0;
  double FPS = 0;                             ///< 23.976, 24, 25, 29.97, ...
  QString Aspect = {};                        ///< "1:1", "4:3", "16:9" or "2.21:1"
  QString Duration = {};                      ///< hours, minutes, seconds and hundredths
  double DurationSec = 0;                     ///< kept in hundredths
  QString MpegVersion = QStringLiteral("?");  ///< "1", "2" or "?"
  int MuxOK = 0;                              ///< 1: navigation packs are present

  std::array<QString, kFilmStreams> Audio = {};         ///< full paths, empty for none
  int AudioDelay = 0;                                   ///< milliseconds, for all audio streams
  QString SubColors = {};                               ///< 16 packed colours with ","; empty for the standard palette
  int AddSubStream = 0;                                 ///< subtitle streams already inside a multiplexed file, 0 to 31
  std::array<QString, kFilmStreams> SubTitel = {};      ///< full paths, empty for none
  std::array<QString, kFilmStreams> SubFormatStr = {};  ///< 13 fields separated by "/"
  bool AutoStartSubs = false;                           ///< the first subtitle stream starts by itself
  QString Chapters = QStringLiteral("00:00:00.000");    ///< times separated by ","
  int ShrinkTo = -1;                                    ///< megabytes; -1 for none
  int TotalSize = 0;                                    ///< megabytes of the finished title
  QString LanguageTags = {};  ///< six tags of two characters separated by ",": three of audio, three of subtitles
  int FilmMux = 1;            ///< 1: elementary streams, which the video batch multiplexes
  int Animated = 0;           ///< 0 no animated button, 1 one, 2 one whose video has been replaced
  QString PreAction = {};
  QString PostAction = {};
  QString UOP = {};
  bool operator==(const FilmRecord&) const = default;
};

/// True for a video that is multiplexed already: its path ends with "MPG" or "VOB". Any other is an elementary stream,
/// to which sound, subtitles and a shrink target can be given.
bool IsMultiplexedFile(QStringView path);

/// Adds the nodes of film number `FilmCount` + 1 at the end of the root level and counts it. `ownerMenu` is the menu
/// that holds its button, `buttonNumber` the button's number there. Returns the film's number.
int AddFilmSubtree(Project& project, const FilmRecord& film, const QString& ownerMenu, int buttonNumber);

/// A record of the film's nodes; an absent node reads as its default.
FilmRecord ReadFilmNodes(const ProjectTree& tree, int film);

/// Brings the nodes of an existing film in line with the record: nodes whose condition fails go, new ones take their
/// place in the order of a new film's nodes. Owner and button number stay.
void WriteFilmNodes(ProjectTree& tree, int film, const FilmRecord& record);

}  // namespace torvane
