#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "platform/owned_fd.h"
#include "platform/result.h"

namespace torvane {

/// Folders that belong to this process for as long as the object lives: to one such object at a time, whatever way the
/// folder is written. The system frees them when the process ends, however it ends, and no file is made for it.
///
/// A file system that knows no locks (some network ones) gives none; its folders are then taken unguarded.
class FolderLock {
 public:
  /// Takes all of the folders (DOS paths), or none. Fails with the folder and the process that has it.
  static Result<FolderLock> Take(const QStringList& dosFolders);

 private:
  std::vector<OwnedFd> held_;
};

}  // namespace torvane
