#include "platform/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/host_files.h"
#include "platform/real_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The process that holds the lock of an open folder, as far as the system shows it: "torvane-cli (process 4711)".
QString HolderOf(int folder) {
  struct stat state = {};
  QFile locks(u"/proc/locks"_s);
  if (fstat(folder, &state) != 0 || !locks.open(QIODevice::ReadOnly)) return u"another process"_s;
  // 1: FLOCK  ADVISORY  WRITE 4711 08:01:131090 0 EOF
  const QByteArray file = QByteArray::number(major(state.st_dev), 16).rightJustified(2, '0') + ':' +
                          QByteArray::number(minor(state.st_dev), 16).rightJustified(2, '0') + ':' +
                          QByteArray::number(quint64(state.st_ino));
  for (const QByteArray& line : locks.readAll().split('\n')) {
    const QList<QByteArray> fields = line.simplified().split(' ');
    if (fields.size() < 6 || fields[1] != "FLOCK" || fields[5] != file || fields[4].toInt() <= 0) continue;
    const QString process = QString::fromLatin1(fields[4]);
    QFile name(u"/proc/%1/comm"_s.arg(process));
    const QString program =
        name.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(name.readAll()).trimmed() : QString();
    return program.isEmpty() ? u"process "_s + process : u"%1 (process %2)"_s.arg(program, process);
  }
  return u"another process"_s;
}

}  // namespace

Result<FolderLock> FolderLock::Take(const QStringList& dosFolders) {
  FolderLock lock;
  std::vector<RealPlace> taken;
  for (const QString& dosFolder : dosFolders) {
    const RealPlace place = PlaceOf(dosFolder);
    if (std::ranges::find(taken, place) != taken.end()) continue;
    taken.push_back(place);
    const QString folder = HostFiles::ToHost(dosFolder);
    OwnedFd opened(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened) return Failure{u"%1: %2"_s.arg(folder, QString::fromLocal8Bit(std::strerror(errno)))};
    if (flock(opened.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      return Failure{u"%1 is in use by %2. Please wait until it has ended, or choose another directory."_s.arg(
          folder, HolderOf(opened.Get()))};
    }
    lock.held_.push_back(std::move(opened));
  }
  return lock;
}

}  // namespace torvane
