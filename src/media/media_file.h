#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace torvane {

/// A media file as the analysers see it: its size and its bytes at any position.
class MediaFile {
 public:
  virtual ~MediaFile() = default;

  /// Size in bytes, or nothing when the file cannot be opened.
  virtual std::optional<qint64> Size() = 0;

  /// The bytes from `position` (0 is the first) on, at most `count`; fewer or none at the end of the file. Nothing when
  /// the file cannot be opened.
  virtual std::optional<QByteArray> Read(qint64 position, qsizetype count) = 0;
};

/// A file of this machine by its DOS path. Each read opens and closes it, so that it is never held open in between and
/// another program may be reading or replacing it.
class HostMediaFile : public MediaFile {
 public:
  explicit HostMediaFile(const QString& dosPath);

  std::optional<qint64> Size() override;
  std::optional<QByteArray> Read(qint64 position, qsizetype count) override;

 private:
  QString hostPath_;
};

/// Size in bytes; 0 when the file cannot be opened.
qint64 FileSizeOf(MediaFile& file);

/// A size in megabytes of 1048576 bytes, to the nearest.
int SizeInMB(qint64 bytes);

}  // namespace torvane
