#include "platform/generated_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/host_files.h"
#include "platform/owned_fd.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool WriteAllTo(int file, const QByteArray& content) {
  qsizetype written = 0;
  while (written < content.size()) {
    const ssize_t count = write(file, content.constData() + written, static_cast<size_t>(content.size() - written));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += count;
  }
  return true;
}

Status WriteGeneratedFile(const QString& dosPath, const QByteArray& content) {
  const QString path = HostFiles::ToHost(dosPath);
  const QByteArray target = QFile::encodeName(path);
  const QByteArray unfinished = target + kUnfinishedEnding.toUtf8();
  errno = 0;
  // What an earlier run left under this name, or a link that stands in its place, is never written through.
  (void)unlink(unfinished.constData());
  OwnedFd file(open(unfinished.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
  bool done = bool(file);
  if (done) {
    done = WriteAllTo(file.Get(), content) && close(file.Release()) == 0 &&
           std::rename(unfinished.constData(), target.constData()) == 0;
    const int reason = errno;
    if (!done) (void)unlink(unfinished.constData());
    errno = reason;
  }
  if (done) return {};
  return Failure{u"%1: %2"_s.arg(path, QString::fromLocal8Bit(std::strerror(errno)))};
}

}  // namespace torvane
