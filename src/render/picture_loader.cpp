#include "render/picture_loader.h"

#include <QBuffer>
#include <QImageReader>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QImage PictureLoader::Load(const QString& path) {
  if (const auto known = pictures_.constFind(path); known != pictures_.cend()) return *known;

  const auto failed = [&](const QString& reason) {
    errors_ << u"Picture \"" + path + u"\" of " + owner_ + u": " + reason;
    return pictures_[path] = QImage();
  };
  if (path.isEmpty() || !HostFiles::FileExists(path)) return failed(u"File Not Found"_s);
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return failed(content.Error());
  QBuffer buffer;
  buffer.setData(*content);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QImage picture = reader.read();
  if (picture.isNull()) return failed(u"Unknown Image Format"_s);
  return pictures_[path] = picture.convertToFormat(QImage::Format_ARGB32);
}

}  // namespace torvane
