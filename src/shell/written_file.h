#pragma once

#include <sys/stat.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

#include "platform/result.h"

namespace torvane {

/// A file that a program is about to write, remembered as it was before.
class WrittenFile {
 public:
  explicit WrittenFile(const QString& hostPath);

  const QString& HostPath() const { return hostPath_; }

  /// True when the file is there and not as it was.
  bool IsChanged() const;

  /// True when an ordinary file is there that holds nothing.
  bool IsEmpty() const;

  /// True when the last bytes are these, as far as it can be read.
  bool EndsWith(const QByteArray& ending) const;

  /// True when something is there that is no ordinary file, such as a device.
  bool IsSpecial() const;

  /// True when the file system that holds it has no room left. Encoders do not notice when their last bytes find none.
  bool IsDiskFull() const;

 private:
  QString hostPath_;
  std::optional<struct stat> before_;
};

/// Removes a file, or a link itself, so that a new file can take its place. A folder, a device, a pipe or the like
/// stays, and that is no failure; a link to one stays as well and is one, since what writes there would go through it.
Status MakeWayFor(const QString& hostPath);

/// The same where nothing depends on it.
void RemoveOrdinaryFile(const QString& hostPath);

/// The first of the files to write that is one of the files to read as well, by whatever name or link; "" for none.
QString WrittenWhileRead(const QStringList& written, const QStringList& read);

}  // namespace torvane
