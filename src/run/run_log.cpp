#include "run/run_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr off_t kRoom = 1048576;

/// Overwrites a file in the room it has, which deleting it first would give away.
Status Overwrite(const QString& dosPath, const QByteArray& content, off_t room) {
  const QString path = HostFiles::ToHost(dosPath);
  const auto failure = [&] { return Failure{u"%1: %2"_s.arg(path, QString::fromLocal8Bit(std::strerror(errno)))}; };
  const int file = open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0) return failure();
  qsizetype written = 0;
  while (written < content.size()) {
    const ssize_t count = write(file, content.constData() + written, static_cast<size_t>(content.size() - written));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += count;
  }
  Status status = written == content.size() ? Status{} : Status{failure()};
  if (ftruncate(file, written) != 0 && status) status = failure();
  if (room > 0) (void)fallocate(file, FALLOC_FL_KEEP_SIZE, 0, room);
  if (close(file) != 0 && status) status = failure();
  return status;
}

}  // namespace

RunLog::RunLog(QString file) : file_(std::move(file)) {}

Status RunLog::Start(const QString& line) const {
  return Overwrite(file_, line.toUtf8() + "\r\n", kRoom);
}

void RunLog::AddLine(const QString& line) const {
  (void)HostFiles::Append(file_, line.toUtf8() + "\r\n");
}

Status RunLog::Finish(const QString& text) const {
  return Overwrite(file_, text.toUtf8(), 0);
}

}  // namespace torvane
