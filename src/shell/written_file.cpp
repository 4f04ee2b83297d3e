#include "shell/written_file.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

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

bool WrittenFile::IsEmpty() const {
  const std::optional<struct stat> now = StateOf(hostPath_);
  return now && S_ISREG(now->st_mode) && now->st_size == 0;
}

bool WrittenFile::EndsWith(const QByteArray& ending) const {
  QFile file(hostPath_);
  if (ending.isEmpty() || !file.open(QIODevice::ReadOnly)) return true;
  return file.seek(std::max<qint64>(file.size() - ending.size(), 0)) && file.readAll() == ending;
}

bool WrittenFile::IsSpecial() const {
  const std::optional<struct stat> now = StateOf(hostPath_);
  return now && !S_ISREG(now->st_mode);
}

Status MakeWayFor(const QString& hostPath) {
  const QByteArray name = QFile::encodeName(hostPath);
  struct stat state = {};
  if (lstat(name.constData(), &state) != 0 || !(S_ISREG(state.st_mode) || S_ISLNK(state.st_mode))) return {};
  if (const auto target = StateOf(hostPath); target && !S_ISREG(target->st_mode)) {
    return Failure{u"%1 is a link to something that is no file; nothing is written there"_s.arg(hostPath)};
  }
  if (unlink(name.constData()) == 0) return {};
  return Failure{hostPath + u": "_s + qt_error_string()};
}

void RemoveOrdinaryFile(const QString& hostPath) {
  (void)MakeWayFor(hostPath);
}

QString WrittenWhileRead(const QStringList& written, const QStringList& read) {
  for (const QString& output : written) {
    const std::optional<struct stat> state = StateOf(output);
    if (!state || !S_ISREG(state->st_mode)) continue;
    for (const QString& input : read) {
      const std::optional<struct stat> other = StateOf(input);
      if (other && other->st_dev == state->st_dev && other->st_ino == state->st_ino) return output;
    }
  }
  return {};
}

}  // namespace torvane
