#pragma once

#include <QString>
#include <memory>

class QTemporaryDir;

namespace torvane::test {

/// A file system of a few megabytes that really runs full, for as long as the object lives.
///
/// A tmpfs mounted for the purpose where this process may do that (root, or in a name space of its own: see
/// with_mounts.sh); else the /dev/shm of a container, filled up to the wanted rest. Fails the running test where
/// neither can be had.
class SmallDisk {
 public:
  explicit SmallDisk(int megabytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// A directory on it; empty when there is no such disk.
  QString Path() const { return path_; }

 private:
  bool Mount(int megabytes);
  bool FillSharedMemory(int megabytes);

  std::unique_ptr<QTemporaryDir> dir_;
  QString path_;
  bool mounted_ = false;
};

}  // namespace torvane::test
