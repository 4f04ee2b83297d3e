#include "run/source_guard.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kMostFiles = 10000;
const std::array<QString, 2> kOwnFolders{u"TempSub.d"_s, u"TempAudioMpg"_s};

/// Host path with all links resolved as far as the path exists, in one case.
QString Resolved(const QString& hostPath) {
  const QFileInfo info(hostPath);
  const QString canonical = info.canonicalFilePath();
  if (!canonical.isEmpty()) return canonical.toCaseFolded();
  const QString parent = info.absolutePath();
  if (parent == info.absoluteFilePath()) return parent.toCaseFolded();
  return QDir::cleanPath(Resolved(parent) + u'/' + info.fileName()).toCaseFolded();
}

/// The two places a file name stands for: where the name itself lies, and where the file lies if that is a link.
std::array<QString, 2> PlacesOf(const QString& dosPath) {
  const QString host = QDir::cleanPath(QDir::current().absoluteFilePath(HostFiles::ToHost(dosPath)));
  const QFileInfo info(host);
  return {QDir::cleanPath(Resolved(info.absolutePath()) + u'/' + info.fileName().toCaseFolded()), Resolved(host)};
}

void DeleteFilesOf(const QString& dosDir, const SourceGuard& guard) {
  qsizetype rounds = 0;
  const QStringList names = HostFiles::FileNames(dosDir);
  for (const QString& name : names) {
    // A backslash in a name would name a file somewhere else.
    if (name.startsWith(u'.') || name.contains(u'\\')) continue;
    if (++rounds > kMostFiles) return;
    const QString file = dosDir + u'\\' + name;
    if (!guard.Protects(file)) HostFiles::RemoveFile(file);
  }
}

}  // namespace

SourceGuard::SourceGuard(const QStringList& protectedFiles) {
  for (const QString& file : protectedFiles) {
    if (file.isEmpty()) continue;
    for (const QString& place : PlacesOf(file)) files_.insert(place);
  }
}

bool SourceGuard::Protects(const QString& dosPath) const {
  const auto places = PlacesOf(dosPath);
  return std::any_of(places.begin(), places.end(), [&](const QString& place) { return files_.contains(place); });
}

QStringList CheckSourcesOutsideTemp(const QStringList& protectedFiles, const QString& tempDir) {
  QSet<QString> cleaned{Resolved(HostFiles::ToHost(tempDir))};
  for (const QString& folder : kOwnFolders) cleaned.insert(Resolved(HostFiles::ToHost(tempDir + u'\\' + folder)));
  QStringList inDanger;
  for (const QString& file : protectedFiles) {
    if (file.isEmpty() || inDanger.contains(file)) continue;
    const auto places = PlacesOf(file);
    const bool hit = std::any_of(places.begin(), places.end(),
                                 [&](const QString& place) { return cleaned.contains(QFileInfo(place).path()); });
    if (hit) inDanger << file;
  }
  return inDanger;
}

void CleanTempDir(const QString& tempDir, const SourceGuard& guard) {
  if (tempDir.isEmpty()) return;
  for (const QString& name : kOwnFolders) {
    const QString folder = tempDir + u'\\' + name;
    if (QFileInfo(HostFiles::ToHost(folder)).isSymLink()) continue;
    DeleteFilesOf(folder, guard);
    HostFiles::RemoveDir(folder);
  }
  DeleteFilesOf(tempDir, guard);
}

}  // namespace torvane
