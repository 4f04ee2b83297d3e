#include "platform/host_files.h"

#include <fcntl.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "platform/generated_file.h"
#include "platform/owned_fd.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString DriveRoot(QChar letter) {
  const QByteArray name = QByteArray("TORVANE_DRIVE_") + char(letter.toUpper().toLatin1());
  const QString named = qEnvironmentVariable(name.constData());
  if (!named.isEmpty()) return QDir(named).absolutePath();
  if (letter.toUpper() == u'Z') return u"/"_s;
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/torvane/drive_"_s +
         letter.toLower();
}

bool Exists(const QString& hostPath) {
  const QFileInfo info(hostPath);
  return info.exists() || info.isSymLink();
}

/// The name in `directory` that stands for `component`: as written where that exists, else the first in sorted order
/// that differs in case only, else as written.
QString FindComponent(const QString& directory, const QString& component) {
  if (component == u"." || component == u".." || Exists(directory + u'/' + component)) return component;
  const QStringList names =
      QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
  for (const QString& name : names) {
    if (name.compare(component, Qt::CaseInsensitive) == 0) return name;
  }
  return component;
}

QString HostReason(const QString& hostPath, const QString& reason) {
  return u"%1: %2"_s.arg(hostPath, reason);
}

QStringList Names(const QString& dosDir, QDir::Filters filters) {
  return QDir(HostFiles::ToHost(dosDir)).entryList(filters | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

}  // namespace

bool HostFiles::HasDrive(const QString& path) {
  return path.size() >= 2 && path[1] == u':' && path[0].unicode() < 128 && path[0].isLetter();
}

QString HostFiles::ToHost(const QString& dosPath) {
  if (dosPath.isEmpty()) return {};
  QString rest = dosPath;
  rest.replace(u'\\', u'/');
  QString path;
  if (HasDrive(rest)) {
    path = DriveRoot(rest[0]);
    rest.remove(0, 2);
  } else if (rest.startsWith(u'/')) {
    path = DriveRoot(CurrentDirectory()[0]);
  }
  if (!path.isEmpty() && rest.contains(u"..")) rest = ComponentsWithinRoot(rest).join(u'/');
  // The usual case needs no look at any directory.
  const QString asWritten = QDir::cleanPath(path.isEmpty() ? rest : path + u'/' + rest);
  if (Exists(asWritten)) return asWritten;

  const QStringList components = rest.split(u'/', Qt::SkipEmptyParts);
  for (const QString& component : components) {
    const QString found = FindComponent(path.isEmpty() ? u"."_s : path, component);
    if (path.isEmpty()) {
      path = found;
    } else {
      path += path.endsWith(u'/') ? found : u'/' + found;
    }
  }
  return QDir::cleanPath(path);
}

QStringList HostFiles::ComponentsWithinRoot(const QString& path) {
  QStringList components;
  for (const QString& component : QString(path).replace(u'\\', u'/').split(u'/', Qt::SkipEmptyParts)) {
    if (component == u"..") {
      if (!components.isEmpty()) components.removeLast();
    } else if (component != u".") {
      components << component;
    }
  }
  return components;
}

QString HostFiles::CurrentDirectory() {
  const QString current = QDir::currentPath();
  QString best;
  qsizetype bestRoot = 0;
  for (char16_t letter = u'A'; letter <= u'Y'; ++letter) {
    const QString root = QFileInfo(DriveRoot(letter)).canonicalFilePath();
    if (root.size() <= bestRoot || (current != root && !current.startsWith(root + u'/'))) continue;
    bestRoot = root.size();
    best = QChar(letter) + u":\\"_s + current.sliced(root.size()).mid(1).replace(u'/', u'\\');
  }
  return best.isEmpty() ? ToDos(current) : best;
}

QString HostFiles::ToDos(const QString& hostPath) {
  QString path = hostPath;
  path.replace(u'/', u'\\');
  return path.startsWith(u'\\') ? u"Z:"_s + path : path;
}

QString HostFiles::FromUser(const QString& typed) {
  if (typed.isEmpty()) return {};
  if (HasDrive(typed)) {
    QString path = typed;
    return path.replace(u'/', u'\\');
  }
  return ToDos(QDir::cleanPath(QDir::current().absoluteFilePath(typed)));
}

bool HostFiles::FileExists(const QString& dosPath) {
  const QFileInfo info(ToHost(dosPath));
  return !dosPath.isEmpty() && info.exists() && !info.isDir();
}

bool HostFiles::IsSameFile(const QString& dosPath, const QString& otherPath) {
  const QString real = QFileInfo(ToHost(dosPath)).canonicalFilePath();
  return !real.isEmpty() && real == QFileInfo(ToHost(otherPath)).canonicalFilePath();
}

bool HostFiles::DirExists(const QString& dosPath) {
  return !dosPath.isEmpty() && QFileInfo(ToHost(dosPath)).isDir();
}

std::optional<qint64> HostFiles::FileSizeOf(const QString& dosPath) {
  if (!FileExists(dosPath)) return std::nullopt;
  return QFileInfo(ToHost(dosPath)).size();
}

Result<QByteArray> HostFiles::Read(const QString& dosPath) {
  QFile file(ToHost(dosPath));
  if (QFileInfo(file.fileName()).isDir()) return Failure{HostReason(file.fileName(), u"is a directory"_s)};
  if (!file.open(QIODevice::ReadOnly)) return Failure{HostReason(file.fileName(), file.errorString())};
  QByteArray content = file.readAll();
  if (file.error() != QFileDevice::NoError) return Failure{HostReason(file.fileName(), file.errorString())};
  return content;
}

Result<QByteArray> HostFiles::ReadAtMost(const QString& dosPath, qint64 most) {
  constexpr qint64 kMegabyte = 1048576;
  QFile file(ToHost(dosPath));
  if (QFileInfo(file.fileName()).isDir()) return Failure{HostReason(file.fileName(), u"is a directory"_s)};
  if (!file.open(QIODevice::ReadOnly)) return Failure{HostReason(file.fileName(), file.errorString())};
  QByteArray content;
  QByteArray piece;
  if (file.size() <= most) content.reserve(file.size());
  while (file.size() <= most && content.size() <= most && !(piece = file.read(kMegabyte)).isEmpty()) content += piece;
  if (file.error() != QFileDevice::NoError) return Failure{HostReason(file.fileName(), file.errorString())};
  const qint64 size = std::max<qint64>(file.size(), content.size());
  if (size <= most) return content;
  return Failure{
      HostReason(file.fileName(),
                 u"has more than %1 MB; at most %2 are read"_s.arg((size - 1) / kMegabyte).arg(most / kMegabyte))};
}

Status HostFiles::WriteAtomically(const QString& dosPath, const QByteArray& content) {
  QSaveFile file(ToHost(dosPath));
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
    return Failure{HostReason(file.fileName(), file.errorString())};
  }
  return {};
}

Status HostFiles::Append(const QString& dosPath, const QByteArray& content) {
  const QString path = ToHost(dosPath);
  const OwnedFd file(open(QFile::encodeName(path).constData(),
                          O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666));
  if (file && WriteAllTo(file.Get(), content)) return {};
  return Failure{HostReason(path, QString::fromLocal8Bit(std::strerror(errno)))};
}

bool HostFiles::MakeDir(const QString& dosPath) {
  return !dosPath.isEmpty() && QDir().mkpath(ToHost(dosPath));
}

bool HostFiles::RemoveFile(const QString& dosPath) {
  const QString path = ToHost(dosPath);
  return !Exists(path) || QFile::remove(path);
}

bool HostFiles::RemoveDir(const QString& dosPath) {
  return QDir().rmdir(ToHost(dosPath));
}

QStringList HostFiles::FileNames(const QString& dosDir) {
  return Names(dosDir, QDir::Files | QDir::System);
}

QStringList HostFiles::DirNames(const QString& dosDir) {
  return Names(dosDir, QDir::Dirs);
}

bool HostFiles::IsWritableDir(const QString& dosDir) {
  if (!DirExists(dosDir)) return false;
  QTemporaryFile probe(ToHost(dosDir) + u"/.torvaneXXXXXX"_s);
  return probe.open();
}

std::optional<qint64> HostFiles::DriveFreeMB(const QString& dosPath) {
  QString path = ToHost(dosPath);
  while (!path.isEmpty() && path != u"/" && !QFileInfo::exists(path)) path = QFileInfo(path).path();
  // Not QStorageInfo: it knows mount points only, and the root of a chroot need not be one.
  std::error_code error;
  const std::filesystem::space_info space = std::filesystem::space(QFile::encodeName(path).toStdString(), error);
  if (error) return std::nullopt;
  return qint64(space.available / 1048576);
}

}  // namespace torvane
