#include "run/run_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/generated_file.h"
#include "platform/host_files.h"
#include "platform/owned_fd.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr off_t kRoom = 1048576;

/// Overwrites a file in the room it has, which deleting it first would give away. A link is refused.
Status Overwrite(const QString& dosPath, const QByteArray& content, off_t room) {
  const QString path = HostFiles::ToHost(dosPath);
  const auto failure = [&] { return Failure{u"%1: %2"_s.arg(path, QString::fromLocal8Bit(std::strerror(errno)))}; };
  OwnedFd file(open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0666));
  if (!file) return failure();
  Status status = WriteAllTo(file.Get(), content) ? Status{} : Status{failure()};
  const off_t written = lseek(file.Get(), 0, SEEK_CUR);
  if (ftruncate(file.Get(), written) != 0 && status) status = failure();
  if (room > 0) (void)fallocate(file.Get(), FALLOC_FL_KEEP_SIZE, 0, room);
  if (close(file.Release()) != 0 && status) status = failure();
  return status;
}

}  // namespace

RunLog::RunLog(QString file) : file_(std::move(file)) {}

Status RunLog::Start(const QString& line) const {
  HostFiles::RemoveFile(file_);  // a link in its place goes itself, and so does a second name of another file
  return Overwrite(file_, line.toUtf8() + "\r\n", kRoom);
}

void RunLog::AddLine(const QString& line) const {
  (void)HostFiles::Append(file_, line.toUtf8() + "\r\n");
}

Status RunLog::Finish(const QString& text) const {
  return Overwrite(file_, text.toUtf8(), 0);
}

}  // namespace torvane
