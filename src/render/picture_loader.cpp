#include "render/picture_loader.h"

#include <QBuffer>
#include <QImageReader>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

namespace {

/// True for a PNG or JPEG file whose end is missing. The readers draw the rest of such a picture grey, or complain on
/// the terminal by themselves.
bool IsCutOff(const QByteArray& content) {
  if (content.startsWith("\x89PNG")) return !content.contains("IEND");
  return content.startsWith("\xFF\xD8") && !content.contains("\xFF\xD9");
}

}  // namespace

Result<QImage> ReadPicture(const QString& path) {
  if (path.isEmpty() || !HostFiles::FileExists(path)) return Failure{u"File Not Found"_s};
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  if (IsCutOff(*content)) return Failure{u"Unknown Image Format"_s};
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
