#include "render/picture_loader.h"

#include <QBuffer>
#include <QImageReader>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

Result<QImage> ReadPicture(const QString& path) {
  if (path.isEmpty() || !HostFiles::FileExists(path)) return Failure{u"File Not Found"_s};
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  QBuffer buffer;
  buffer.setData(*content);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QImage picture = reader.read();
  if (picture.isNull()) return Failure{u"Unknown Image Format"_s};
  return picture.convertToFormat(QImage::Format_ARGB32);
}

QImage PictureLoader::Load(const QString& path) {
  if (const auto known = pictures_.constFind(path); known != pictures_.cend()) return *known;
  const Result<QImage> picture = ReadPicture(path);
  if (!picture) errors_ << u"Picture \"" + path + u"\" of " + owner_ + u": " + picture.Error();
  return pictures_[path] = picture ? *picture : QImage();
}

}  // namespace torvane
