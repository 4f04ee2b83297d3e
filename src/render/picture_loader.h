#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <QStringList>

#include "core/menu_view.h"
#include "platform/result.h"

namespace torvane {

/// The picture in a file (DOS path) with Format_ARGB32, its first frame when it has several; the content decides of
/// which format it is. Fails with the reason alone, without the path.
Result<QImage> ReadPicture(const QString& path);

/// Loads the pictures that a menu or an audio titleset names, each once, and gathers what went wrong. A picture that cannot
/// be loaded draws nothing, and the rest is finished without it.
class PictureLoader {
 public:
  explicit PictureLoader(const MenuView& menu) : owner_(u"menu " + menu.Name() + u" (" + menu.Key() + u')') {}
  /// `owner` is told with each error: "audio titleset 3".
  explicit PictureLoader(QString owner) : owner_(std::move(owner)) {}

  /// The picture at a DOS path with Format_ARGB32, its first frame when it has several; null where there is none.
  QImage Load(const QString& path);

  /// One text for each picture that could not be loaded, with its path and owner.
  const QStringList& Errors() const { return errors_; }

 private:
  QString owner_;
  QHash<QString, QImage> pictures_;
  QStringList errors_;
};

}  // namespace torvane
