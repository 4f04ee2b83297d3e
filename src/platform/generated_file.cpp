#include "platform/generated_file.h"

#include <QFile>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

Status WriteGeneratedFile(const QString& dosPath, const QByteArray& content) {
  const QString path = HostFiles::ToHost(dosPath);
  const QByteArray target = QFile::encodeName(path);
  const QByteArray unfinished = target + ".part";
  errno = 0;
  QFile file(QFile::decodeName(unfinished));
  bool done = file.open(QIODevice::WriteOnly);
  if (done) {
    done = file.write(content) == content.size() && file.flush();
    file.close();
    done = done && file.error() == QFileDevice::NoError && std::rename(unfinished.constData(), target.constData()) == 0;
    if (!done) {
      const int reason = errno;
      std::remove(unfinished.constData());
      errno = reason;
    }
  }
  if (done) return {};
  const QString reason = errno ? QString::fromLocal8Bit(std::strerror(errno)) : file.errorString();
  return Failure{u"%1: %2"_s.arg(path, reason)};
}

}  // namespace torvane
