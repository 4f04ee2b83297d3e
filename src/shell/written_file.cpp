#include "shell/written_file.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include <QFile>

namespace torvane {
namespace {

std::optional<struct stat> StateOf(const QString& hostPath) {
  struct stat state = {};
  if (stat(QFile::encodeName(hostPath).constData(), &state) != 0) return std::nullopt;
  return state;
}

}  // namespace

WrittenFile::WrittenFile(const QString& hostPath) : hostPath_(hostPath), before_(StateOf(hostPath)) {}

bool WrittenFile::IsChanged() const {
  const std::optional<struct stat> now = StateOf(hostPath_);
  if (!now) return false;
  return !before_ || now->st_ino != before_->st_ino || now->st_size != before_->st_size ||
         now->st_mtim.tv_sec != before_->st_mtim.tv_sec || now->st_mtim.tv_nsec != before_->st_mtim.tv_nsec;
}

bool WrittenFile::IsDiskFull() const {
  struct statvfs space = {};
  if (statvfs(QFile::encodeName(hostPath_).constData(), &space) != 0) return false;
  return (geteuid() == 0 ? space.f_bfree : space.f_bavail) == 0 && space.f_blocks > 0;
}

void WrittenFile::RemoveChanged() const {
  if (IsChanged()) RemoveOrdinaryFile(hostPath_);
}

void RemoveOrdinaryFile(const QString& hostPath) {
  const std::optional<struct stat> state = StateOf(hostPath);
  if (state && S_ISREG(state->st_mode)) unlink(QFile::encodeName(hostPath).constData());
}

}  // namespace torvane
