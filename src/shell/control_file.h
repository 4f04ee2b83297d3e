#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "platform/result.h"
#include "shell/loose_xml.h"

namespace torvane {

/// Turns the DOS path of a control file into the path that the tool is given.
using PathMapper = std::function<QString(const QString& dosPath)>;

/// What a `textsub` is given in place of its own text and character set; "" leaves it as it is.
struct SubtitleText {
  QString file = {};  ///< DOS path
  QString characterSet = {};
};

/// A dvdauthor or spumux control file, taken apart so that paths can be put in and the whole written out well-formed.
class ControlFile {
 public:
  /// Reads UTF-8; text that is none is read as DOS code page text.
  explicit ControlFile(const QByteArray& bytes);

  QList<LoosePiece>& Pieces() { return pieces_; }

  /// The text to hand to a tool, UTF-8.
  QByteArray ToBytes() const;

  /// "PAL" or "NTSC" as the first video element states; "" when none does.
  QString StatedVideoFormat() const;

  /// DOS path of the folder that dvdauthor fills with a disc, with its table of titles; "" where it makes none.
  QString Disc() const;

  /// DOS paths of the films, in order.
  QStringList Films() const;

  /// The texts of all elements that hold commands, in order, as they stand; blank ones are left out.
  QStringList Commands() const;

  /// Maps what dvdauthor opens: `dest`, the file of a `vob`, a `palette`.
  void MapAuthorPaths(const PathMapper& map);

  /// Tells dvdauthor that menus whose subpictures are made for widescreen and letterbox alone have no pan and scan
  /// form. It would else make room for a third group of buttons, into which those beyond the twelfth are written.
  void ExcludePanScan();

  /// Maps what spumux opens: `image`, `highlight` and `select` pictures of a `spu`, and of a `textsub` its `filename`;
  /// its `font` goes through `font`.
  void MapSpumuxPaths(const PathMapper& map, const PathMapper& font);

  /// Asks for each `textsub` what it shall be given, by the DOS path of its text. Fails with the first answer that
  /// does.
  Status ReplaceTexts(const std::function<Result<SubtitleText>(const QString& dosPath)>& answer);

  /// Asks for each palette of a `pgc` that shows a film to which spumux has added subtitles (by its name,
  /// "..._SUB1.mpg") which one it shall be given: DOS paths both. Fails with the first answer that does.
  Status ReplacePalettes(const std::function<Result<QString>(const QString& dosPath)>& answer);

  /// Gives each `textsub` that does not state them these colours, in the notation of spumux ("#FF8080").
  void SetTextColors(const QString& outline, const QString& fill);

 private:
  QList<LoosePiece> pieces_;
};

/// The DOS path that an attribute's value means. Control files of this system hold paths as they are, "&" included;
/// one written by hand may hold entities. The path as it stands wins when there is such a file.
QString PathOfValue(const QString& value);

}  // namespace torvane
