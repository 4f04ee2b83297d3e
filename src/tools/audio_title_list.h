#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "core/audio_title_set.h"
#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// One row of the list: a title, what is known of its file, and whether a disc can take it.
struct AudioTitleRow {
  AudioTitle Title = {};
  QString Info = {};
  bool Wrong = false;  ///< not known, or neither of 48 kHz nor a WAV file of 96 kHz
  bool operator==(const AudioTitleRow&) const = default;
};

/// What stands in the fields beside the list.
struct AudioTitleFields {
  QString AudiotitlesetName = {};
  QString AudioFile = {};  ///< of the selected row
  QString Author = {};     ///< of the selected row, and of new rows
  QString Album = {};
  QString Title = {};
  QString Image = {};
  bool UsePattern = false;  ///< file names tell author, album, track and title
  bool AddTrack = false;    ///< the track goes in front of the title, or is dropped
  bool Chapters = false;    ///< one title with a chapter for each track, or a title for each
  bool operator==(const AudioTitleFields&) const = default;
};

/// A random number from 0 to below `limit`.
using RandomSource = std::function<int(int limit)>;

/// The list of an audio titleset under edit, with every command of its dialog. Rows count from 0.
class AudioTitleList {
 public:
  /// A new titleset.
  AudioTitleList(const Settings& settings, Prompter& prompter);
  /// One of the project's.
  AudioTitleList(const AudioTitleStore& store, const Settings& settings, Prompter& prompter);

  AudioTitleFields Fields;
  const std::vector<AudioTitleRow>& Rows() const { return rows_; }
  int Selected() const { return selected_; }  ///< -1 for none
  static QString NumberText(int row);         ///< "01"

  /// Adds files of one directory in the order given, as far as they fit. Titles of different kinds of sound do not go
  /// together, a file that is in the list already is left out.
  void AddFiles(const QString& dir, const QStringList& names);

  void RemoveFiles(const QList<int>& rows);
  void RemoveAll();
  void MoveUp();
  void MoveDown();
  void Shuffle(const RandomSource& random);

  /// Makes a row the selected one and shows it in the fields.
  void Select(int row);

  /// Writes the fields of author, album and title into the selected row.
  void UpdateSelected();
  /// Writes a picture into the selected row.
  void SetImage(const QString& path);
  void SetAllAuthor();
  void SetAllAlbum();
  void SetAllImages();

  /// Reads all files again; false when one of them is wrong.
  bool CheckFiles();

  /// Commands of its own are for a titleset with chapters alone; both tell so.
  bool MayEditActions() const;
  bool ChooseTitles();
  void SetActions(const QString& preAction, const QString& postAction, const QString& uop);

  AudioLayout Layout;

  /// The finished titleset; nothing when a check stops.
  std::optional<AudioTitleStore> Accept();

 private:
  enum class Kind { None = -1, Mpeg = 0, Ac3 = 1, Wav = 2 };
  static Kind KindOf(const QString& path);
  bool Refuses(const QString& path) const;
  bool Contains(const QString& path) const;
  void AddRow(const QString& path, const QString& image);
  void Swap(int row, int other);
  void Deselect();
  QString FirstSoundFault() const;
  bool TellOfActions() const;

  const Settings& settings_;
  Prompter& prompter_;
  AudioTitleStore store_;  ///< what the list does not show
  std::vector<AudioTitleRow> rows_;
  int selected_ = -1;
  Kind audioKind_ = Kind::None;
};

/// The patterns of the files that the list takes, with ";" between them.
QString AudioTitlePattern(int engine);

}  // namespace torvane
