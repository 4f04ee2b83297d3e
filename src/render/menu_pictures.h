#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "platform/result.h"

namespace torvane {

/// One picture of a menu. Its file is the menu's key and the suffix: "MM" and "High.png".
struct MenuPicture {
  QString Suffix;
  QImage Image;
};

/// Writes the pictures of a menu into a directory, each whole or not at all. Stops at the first that cannot be written.
Status WriteMenuPictures(const std::vector<MenuPicture>& pictures, const QString& menuKey, const QString& dosDir);

/// A picture in the format that the file name's extension says. `quality` is 0 to 100 for JPEG.
Result<QByteArray> EncodePicture(const QImage& image, const QString& fileName, int quality = 100);

}  // namespace torvane
