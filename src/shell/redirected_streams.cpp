#include "shell/redirected_streams.h"

#include <fcntl.h>

#include <QFile>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/host_files.h"
#include "shell/current_directory.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Nothing is written to where a link leads.
int OpenFlags(Redirection::Kind kind) {
  if (kind == Redirection::Kind::Write) return O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW;
  if (kind == Redirection::Kind::Append) return O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW;
  return O_RDONLY;
}

}  // namespace

QString RedirectionTarget(const Redirection& redirection) {
  const bool nothing = redirection.target.compare(u"nul", Qt::CaseInsensitive) == 0;
  return nothing ? u"/dev/null"_s : HostFiles::ToHost(ResolveDosPath(redirection.target));
}

RedirectedStreams OpenRedirections(const QList<Redirection>& redirections, const Streams& base) {
  RedirectedStreams opened;
  std::array<int, 3> handles{base.in, base.out, base.err};
  for (const Redirection& redirection : redirections) {
    if (redirection.handle > 2) continue;
    int& handle = handles[std::size_t(redirection.handle)];
    if (redirection.kind == Redirection::Kind::Duplicate) {
      if (redirection.duplicateOf <= 2) handle = handles[std::size_t(redirection.duplicateOf)];
      continue;
    }
    const QString host = RedirectionTarget(redirection);
    if (redirection.kind == Redirection::Kind::Write) {
      if (const Status way = MakeWayFor(host); !way) {
        opened.error = way.Error();
        return opened;
      }
    }
    OwnedFd file(open(QFile::encodeName(host).constData(), OpenFlags(redirection.kind) | O_CLOEXEC, 0666));
    if (!file) {
      opened.error = u"%1: %2"_s.arg(host, QString::fromLocal8Bit(std::strerror(errno)));
      return opened;
    }
    handle = file.Get();
    opened.owned.push_back(std::move(file));
    if (redirection.handle == 0) opened.input = host;
    if (redirection.kind == Redirection::Kind::Write && redirection.handle == 1) opened.created << host;
  }
  // A file that also holds the text of errors is worth keeping whatever happens.
  if (handles[1] == handles[2]) opened.created.clear();
  opened.streams = {handles[0], handles[1], handles[2]};
  return opened;
}

}  // namespace torvane
