#include "platform/real_place.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>
#include <optional>

#include "platform/host_files.h"

namespace torvane {
namespace {

enum class Links { Followed, Taken };

std::optional<struct stat> StateOf(const QString& hostPath, Links links) {
  struct stat state = {};
  const QByteArray path = QFile::encodeName(hostPath);
  const int answer = links == Links::Followed ? stat(path.constData(), &state) : lstat(path.constData(), &state);
  return answer == 0 ? std::optional(state) : std::nullopt;
}

QString Absolute(const QString& dosPath) {
  return QDir::cleanPath(QDir::current().absoluteFilePath(HostFiles::ToHost(dosPath)));
}

QString Resolved(const QString& hostPath) {
  const QFileInfo info(hostPath);
  const QString canonical = info.canonicalFilePath();
  if (!canonical.isEmpty()) return canonical;
  const QString parent = info.absolutePath();
  if (parent == info.absoluteFilePath()) return parent;
  return QDir::cleanPath(Resolved(parent) + u'/' + info.fileName());
}

/// The name itself, in a folder whose links are followed.
QString ResolvedName(const QString& hostPath) {
  const QFileInfo info(hostPath);
  return QDir::cleanPath(Resolved(info.absolutePath()) + u'/' + info.fileName());
}

QString ParentOf(const QString& hostPath) {
  return hostPath.left(std::max<qsizetype>(hostPath.lastIndexOf(u'/'), 1));
}

RealPlace PlaceOfHost(QString hostPath) {
  RealPlace place;
  while (true) {
    if (const auto state = StateOf(hostPath, Links::Taken)) {
      place.device = state->st_dev;
      place.inode = state->st_ino;
      return place;
    }
    if (hostPath == u"/") return place;
    place.rest = hostPath.sliced(hostPath.lastIndexOf(u'/')).toCaseFolded() + place.rest;
    hostPath = ParentOf(hostPath);
  }
}

/// The ways on which a path is reached: by its name and by what that leads to.
std::array<QString, 2> WaysOf(const QString& dosPath) {
  const QString host = Absolute(dosPath);
  return {ResolvedName(host), Resolved(host)};
}

}  // namespace

QString ResolvedPath(const QString& dosPath) {
  return Resolved(Absolute(dosPath));
}

size_t qHash(const RealPlace& place, size_t seed) {
  return qHashMulti(seed, place.device, place.inode, place.rest);
}

RealPlace PlaceOf(const QString& dosPath) {
  return PlaceOfHost(Resolved(Absolute(dosPath)));
}

RealPlace PlaceOfName(const QString& dosPath) {
  return PlaceOfHost(ResolvedName(Absolute(dosPath)));
}

bool LiesWithin(const QString& dosPath, const QString& dosFolder) {
  const RealPlace folder = PlaceOf(dosFolder);
  for (QString way : WaysOf(dosPath)) {
    while (way != u"/") {
      way = ParentOf(way);
      if (PlaceOfHost(way) == folder) return true;
    }
  }
  return false;
}

bool LiesDirectlyIn(const QString& dosPath, const QString& dosFolder) {
  const RealPlace folder = PlaceOf(dosFolder);
  for (const QString& way : WaysOf(dosPath)) {
    if (PlaceOfHost(ParentOf(way)) == folder) return true;
  }
  return false;
}

bool NameExists(const QString& dosPath) {
  return !dosPath.isEmpty() && StateOf(HostFiles::ToHost(dosPath), Links::Taken).has_value();
}

bool IsLink(const QString& dosPath) {
  const auto state = StateOf(HostFiles::ToHost(dosPath), Links::Taken);
  return state && S_ISLNK(state->st_mode);
}

}  // namespace torvane
