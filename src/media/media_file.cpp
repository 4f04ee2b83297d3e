#include "media/media_file.h"

#include <QFile>
#include <QFileInfo>

#include "core/text.h"
#include "platform/host_files.h"

namespace torvane {
namespace {

constexpr double kBytesAMegabyte = 1048576;

/// A pipe or a device has no size, and reading from one may never end.
bool IsPlainFile(const QString& hostPath) {
  return !hostPath.isEmpty() && QFileInfo(hostPath).isFile();
}

}  // namespace

HostMediaFile::HostMediaFile(const QString& dosPath) : hostPath_(HostFiles::ToHost(dosPath)) {}

std::optional<qint64> HostMediaFile::Size() {
  if (!IsPlainFile(hostPath_)) return std::nullopt;
  QFile file(hostPath_);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.size();
}

std::optional<QByteArray> HostMediaFile::Read(qint64 position, qsizetype count) {
  if (!IsPlainFile(hostPath_)) return std::nullopt;
  QFile file(hostPath_);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return std::nullopt;
  if (position < 0 || position >= file.size() || !file.seek(position)) return QByteArray();
  return file.read(count);
}

qint64 FileSizeOf(MediaFile& file) {
  return file.Size().value_or(0);
}

int SizeInMB(qint64 bytes) {
  return RoundToInt(double(bytes) / kBytesAMegabyte);
}

}  // namespace torvane
