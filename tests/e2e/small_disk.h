#pragma once

#include <QString>
#include <memory>

class QTemporaryDir;

namespace torvane::test {

/// A file system of a few megabytes that really runs full, for as long as the object lives.
///
/// A tmpfs mounted for the purpose where this process may do that (root, or in a name space of its own: see
/// with_mounts.sh); else the /dev/shm of a container, filled up to the wanted rest; else an image that FUSE mounts for
/// any user. Fails the running test, with what it needs, where none can be had.
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
  bool MountImage(int megabytes);

  enum class MountKind { None, Tmpfs, Fuse };

  std::unique_ptr<QTemporaryDir> dir_;
  QString path_;
  MountKind mount_ = MountKind::None;
};

}  // namespace torvane::test
