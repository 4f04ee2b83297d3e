#pragma once

#include <sys/stat.h>

#include <QString>
#include <optional>

namespace torvane {

/// A file that a program is about to write, remembered as it was before.
class WrittenFile {
 public:
  explicit WrittenFile(const QString& hostPath);

  const QString& HostPath() const { return hostPath_; }

  /// True when the file is there and not as it was.
  bool IsChanged() const;

  /// True when the file system that holds it has no room left. Encoders do not notice when their last bytes find none.
  bool IsDiskFull() const;

  /// Removes what a failed program left: only an ordinary file, and only when it was changed.
  void RemoveChanged() const;

 private:
  QString hostPath_;
  std::optional<struct stat> before_;
};

/// Removes a file unless it is a device, a pipe or the like.
void RemoveOrdinaryFile(const QString& hostPath);

}  // namespace torvane
