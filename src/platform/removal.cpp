#include "platform/removal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/host_files.h"
#include "platform/owned_fd.h"
#include "platform/real_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

Failure Refusal(const QString& path, const QString& reason) {
  return Failure{u"%1: %2"_s.arg(path, reason)};
}

Failure SystemFailure(const QString& path) {
  return Refusal(path, QString::fromLocal8Bit(std::strerror(errno)));
}

/// A folder and one name in it, which is deleted through the open folder: no path is walked a second time.
struct Entry {
  int folder;
  QByteArray name;
  QString path;  ///< for messages
};

Status Remove(const Entry& entry) {
  struct stat state = {};
  if (fstatat(entry.folder, entry.name.constData(), &state, AT_SYMLINK_NOFOLLOW) != 0) {
    return errno == ENOENT ? Status() : SystemFailure(entry.path);
  }
  const int flags = S_ISDIR(state.st_mode) ? AT_REMOVEDIR : 0;
  return unlinkat(entry.folder, entry.name.constData(), flags) == 0 ? Status() : SystemFailure(entry.path);
}

/// Empties and removes a folder of one file system; passes on from what fails and tells the first failure.
Status RemoveAll(const Entry& entry, dev_t device) {
  OwnedFd opened(openat(entry.folder, entry.name.constData(), kFolder | O_NOFOLLOW));
  if (!opened)
    return errno == ENOENT ? Status() : errno == ENOTDIR || errno == ELOOP ? Remove(entry) : SystemFailure(entry.path);
  struct stat state = {};
  if (fstat(opened.Get(), &state) != 0) return SystemFailure(entry.path);
  if (state.st_dev != device) return Refusal(entry.path, u"another file system is mounted there"_s);

  const int folder = opened.Get();
  const std::unique_ptr<DIR, int (*)(DIR*)> names(fdopendir(folder), closedir);
  if (!names) return SystemFailure(entry.path);
  opened.Release();  // closed with the names
  Status status;
  while (const dirent* found = readdir(names.get())) {
    const QByteArray name(found->d_name);
    if (name == "." || name == "..") continue;
    const Status removed = RemoveAll({folder, name, entry.path + u'/' + QFile::decodeName(name)}, device);
    if (status && !removed) status = removed;
  }
  return status ? Remove(entry) : status;
}

/// Why a folder is not to be deleted as a whole; "" when it may be.
QString ReasonToKeep(const QString& folder) {
  if (folder.count(u'/') < 2) return u"a folder in the root of this machine is not deleted"_s;
  for (const QString& kept : {QDir::homePath(), QDir::currentPath()}) {
    const QString place = QFileInfo(kept).canonicalFilePath();
    if (place == folder || place.startsWith(folder + u'/')) return u"it holds the home or the current directory"_s;
  }
  return {};
}

}  // namespace

Status RemoveBelow(const QString& dosFolder, const QString& relative) {
  const QString root = HostFiles::ToHost(dosFolder);
  const QString path = root + u'/' + relative;
  const QStringList parts = relative.split(u'/');
  for (const QString& part : parts) {
    if (part.isEmpty() || part == u"." || part == u"..") return Refusal(path, u"this is no name below the folder"_s);
  }
  if (dosFolder.isEmpty()) return Refusal(path, u"no folder is given"_s);
  OwnedFd folder(open(QFile::encodeName(root).constData(), kFolder));
  for (qsizetype i = 0; folder && i + 1 < parts.size(); ++i) {
    folder = OwnedFd(openat(folder.Get(), QFile::encodeName(parts[i]).constData(), kFolder | O_NOFOLLOW));
  }
  if (!folder) return errno == ENOENT ? Status() : SystemFailure(path);
  return Remove({folder.Get(), QFile::encodeName(parts.last()), path});
}

Status RemoveTree(const QString& dosPath) {
  if (dosPath.isEmpty()) return Refusal(u"\"\""_s, u"no folder is given"_s);
  const QString named = QDir::cleanPath(QDir::current().absoluteFilePath(HostFiles::ToHost(dosPath)));
  const QString parent = QFileInfo(QFileInfo(named).absolutePath()).canonicalFilePath();
  if (parent.isEmpty()) return {};
  const QString path = QDir::cleanPath(parent + u'/' + QFileInfo(named).fileName());
  if (const QString reason = ReasonToKeep(path); !reason.isEmpty()) return Refusal(path, reason);
  const OwnedFd folder(open(QFile::encodeName(parent).constData(), kFolder | O_NOFOLLOW));
  struct stat state = {};
  if (!folder || fstat(folder.Get(), &state) != 0) return SystemFailure(path);
  return RemoveAll({folder.Get(), QFile::encodeName(QFileInfo(named).fileName()), path}, state.st_dev);
}

}  // namespace torvane
