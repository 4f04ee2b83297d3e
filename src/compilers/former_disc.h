#pragma once

#include <QString>
#include <QStringList>

#include "platform/result.h"

namespace torvane {

/// What a run replaces, each by itself.
enum class DiscPart { Disc, Image };

/// What becomes of it when a run begins.
enum class FormerFate {
  SetAside,     ///< it comes back unless what replaces it is whole
  DeletedFirst  ///< the user gave it up for the room it takes
};

/// The former VIDEO_TS folder and ISO image, set aside in the folder "DVD.former" of the output directory until what
/// replaces them is whole. An image on another file system stays beside its place, as "NAME.ISO.former".
///
/// Everything is renamed, nothing copied, so that a program killed at any moment leaves each part whole, in its place
/// or aside. A record in the folder tells where the parts belong; it is written before the first of them moves.
class FormerDisc {
 public:
  /// `outDir` is a DOS path.
  explicit FormerDisc(QString outDir);

  /// True when a run that did not come to its end has left a part aside. Not to be asked while a run goes on.
  bool IsLeft() const;

  /// Sets a part aside from its place: {Out}\DVD\VIDEO_TS, or the image. Nothing there, or an empty folder, is no
  /// failure. On failure the part is where it was.
  Status Keep(DiscPart part, const QString& place);

  bool IsAside(DiscPart part) const;

  /// Puts a part back, in place of what stands there. On failure it stays aside.
  Status PutBack(DiscPart part);

  /// Deletes a part that was set aside.
  void Drop(DiscPart part);

  /// Puts back all parts that are aside. Answers with the places they are in again; fails with the first that cannot.
  Result<QStringList> PutBackAll();

  QString Folder() const { return folder_; }

 private:
  QString Aside(const QString& name) const { return folder_ + u'\\' + name; }
  QString PlaceOfPart(DiscPart part) const;
  QString KeptPath(DiscPart part) const;
  bool ReadRecord();
  Status WriteRecord();
  void Tidy();

  QString outDir_;
  QString folder_;
  QString image_;  ///< where the image belongs; "" as long as none is aside
};

}  // namespace torvane
