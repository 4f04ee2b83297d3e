#include "render/menu_pictures.h"

#include <QBuffer>
#include <QImageWriter>

#include "core/text.h"
#include "platform/generated_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Menu pictures are read once and deleted: time counts, size does not. It is the lowest level of compression.
constexpr int kFastPngCompression = 11;

}  // namespace

Status WriteMenuPictures(const std::vector<MenuPicture>& pictures, const QString& menuKey, const QString& dosDir) {
  for (const MenuPicture& picture : pictures) {
    const QString path = dosDir + u'\\' + menuKey + picture.Suffix;
    const Result<QByteArray> bytes = EncodePicture(picture.Image, path);
    if (!bytes) return Failure{bytes.Error()};
    if (const Status written = WriteGeneratedFile(path, *bytes); !written) return written;
  }
  return {};
}

Result<QByteArray> EncodePicture(const QImage& image, const QString& fileName, int quality) {
  const QString extension = GetExtensionUpper(fileName);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, extension.toLower().toLatin1());
  if (extension.startsWith(u'J')) writer.setQuality(quality);
  if (extension == u"PNG") writer.setCompression(kFastPngCompression);
  if (!writer.write(image)) return Failure{u"Picture \"" + fileName + u"\": " + writer.errorString()};
  return bytes;
}

}  // namespace torvane
