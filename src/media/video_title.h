#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <optional>

#include "core/film_record.h"
#include "core/prompter.h"
#include "media/chapter_editor.h"
#include "media/language_list.h"
#include "media/mpeg_info.h"
#include "media/video_labels.h"

namespace torvane {

struct Project;

/// Gives a film the video that was analysed: picture, size, duration. Its subtitle streams are not known.
void TakeVideo(FilmRecord& film, const MpegInfo& video);

/// A new film, of which the record names the video and what else is known; without a name it gets its file's. Nothing
/// when the file is no video; the user has been told so.
std::optional<FilmRecord> NewFilm(FilmRecord film, const Settings& settings, Prompter& prompter);

/// What the user sees and edits of a film, as the fields hold it. Paths are full, or names in the video's folder.
struct VideoTitleFields {
  QString VideoName = {};  ///< title of the film, and the stem of its temporary files
  std::array<QString, kFilmStreams> Audio = {};
  std::array<QString, kFilmStreams> Subtitle = {};
  FilmLanguages Languages = {};
  QString AudioDelay = QStringLiteral("0");       ///< milliseconds
  QString AddStreamNumber = QStringLiteral("0");  ///< subtitle streams inside a multiplexed video
  QString Chapters = {};                          ///< times with "," between them
  QString NewVideoSize = {};                      ///< shrink target in MB
  QString Factor = {};                            ///< the same as a part of the video, "50%"
  bool Shrink = false;
  bool AutoStartSubs = false;
  bool Animated = false;
  bool operator==(const VideoTitleFields&) const = default;
};

/// The preparation of a film: its streams, languages, chapters, palette and shrink target, with every check, and what
/// becomes of them. A dialog binds its widgets to the fields and calls the function of each command; a check that
/// answers false has told the user why. The record that comes out of `Accept` is the only result.
///
/// Stream numbers go from 1 to 3.
class VideoTitle {
 public:
  /// `film` is a new film, or one of the project's. The project is asked for its settings and the format of its first
  /// film, and told when its user has been warned of the frame rate.
  VideoTitle(Project& project, FilmRecord film, Prompter& prompter);

  /// Fills the fields. A chapter file that came with the film is loaded; "" for none.
  void Open(const QString& chapterFile = {});

  VideoTitleFields Fields;
  const VideoLabels& Labels() const { return labels_; }
  const Label& AudioInfoLine(int stream) const { return audioInfo_[stream - 1]; }
  int TotalSize() const { return totalSize_; }  ///< megabytes of the finished title
  QString VideoFile() const { return film_.VideoFile; }
  float FPS() const { return float(film_.FPS); }
  double DurationSec() const { return film_.DurationSec; }
  int ResV() const { return film_.ResV; }

  // ---- Streams ----

  /// Takes another video; everything else starts over. False: it is no video, and nothing has changed.
  bool SetVideo(const QString& path);

  void SetAudio(int stream, const QString& path);
  void ClearAudio(int stream);

  bool SetSubtitle(int stream, const QString& path);
  void ClearSubtitle(int stream);

  /// How a text subtitle is drawn; "" as long as nothing was chosen.
  const QString& SubFormatStr(int stream) const { return film_.SubFormatStr[stream - 1]; }
  void SetSubFormatStr(int stream, const QString& format) { film_.SubFormatStr[stream - 1] = format; }

  /// Where the file dialogs begin: beside the video, with its name.
  QString DefaultAudioFile() const;
  QString DefaultSubtitleFile(int stream) const;

  // ---- Palette: "" is the standard one ----

  const QString& SubColors() const { return film_.SubColors; }
  void SetSubColors(const QString& colors) { film_.SubColors = colors; }
  bool ReadPalette(const QString& path);

  // ---- Chapters ----

  bool LoadChapters(const QString& path);
  void ResetChapters();
  bool EditChapters(ChapterEditorMode mode, ChapterEditorHost& host);

  // ---- Commands of the title ----

  void SetActions(const QString& preAction, const QString& postAction, const QString& uop);
  const QString& PreAction() const { return film_.PreAction; }
  const QString& PostAction() const { return film_.PostAction; }
  QString PreActionText() const;  ///< "Default" when there is none
  QString PostActionText() const;
  const QString& UOP() const { return film_.UOP; }

  // ---- Checks, when the user leaves a field ----

  bool CheckVideoName();
  bool CheckAudioDelay();
  bool CheckAddStreamNumber();
  bool CheckNewVideoSize();
  bool CheckFactor();
  bool CheckShrink();  ///< when the box is ticked

  /// Sum of the video, the other files and the room that multiplexing takes.
  void UpdateTotalSize();

  /// All checks in their order, and the finished record; nothing when one of them stops.
  std::optional<FilmRecord> Accept();

 private:
  void ShowVideo();
  void SetAutomaticChapters();
  void CheckChangedProperties();
  void DetectAudioFiles(bool refresh);
  void CheckSpecialCharacters();
  void ShowAudioInfo(int stream, bool asFound);
  QString FullPath(const QString& name) const;
  qint64 FileMegabytes(const QString& name) const;
  bool CheckRange(const QString& text, int least, int most);
  bool TakeNewVideoSize(double size);
  void ClearShrink();
  void ShowShrinkTarget();
  bool CheckStreamOrder(const std::array<QString, kFilmStreams>& streams, int message);
  bool Ask(const QString& warning);
  bool CheckSoundKinds();
  bool WarnOfFormat();
  FilmRecord FinishedFilm();
  QString NewSubFormatStr(int stream) const;

  Project& project_;
  Prompter& prompter_;
  FilmRecord film_;
  VideoLabels labels_;
  std::array<Label, kFilmStreams> audioInfo_;
  int shrinkTo_ = -1;  ///< the target that was checked last; -1 for none
  int totalSize_ = 0;
  bool opened_ = false;
  bool videoReplaced_ = false;
};

}  // namespace torvane
