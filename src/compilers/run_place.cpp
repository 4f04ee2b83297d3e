#include "compilers/run_place.h"

#include <QDir>
#include <QFileInfo>

#include "compilers/former_disc.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// A misspelt directory must not send the disc elsewhere, so only the last part of its path is made.
Status MakeRunDir(const QString& key, const QString& dir) {
  if (HostFiles::DirExists(dir)) return {};
  const QString host = HostFiles::ToHost(dir);
  if (dir.isEmpty() || !QFileInfo(QFileInfo(host).absolutePath()).isDir()) {
    return Failure{
        u"%1: the directory \"%2\" does not exist, and neither does the one it would lie in. Please make it, or "
        u"choose another."_s.arg(key, host)};
  }
  if (QDir().mkdir(host)) return {};
  return Failure{
      u"%1: the directory \"%2\" does not exist and cannot be made. Please choose another."_s.arg(key, host)};
}

}  // namespace

bool RecoverFormerDisc(const Settings& settings, Prompter& prompter) {
  const Result<QStringList> places = FormerDisc(settings.OutDir).PutBackAll();
  if (!places) {
    prompter.Fail(u"A run that was killed has set the former disc aside in %1. It cannot be put back: %2"_s.arg(
        HostFiles::ToHost(FormerDisc(settings.OutDir).Folder()), places.Error()));
    return false;
  }
  for (const QString& place : *places) {
    prompter.Inform(
        u"A run that was killed had set %1 aside; it is back in its place."_s.arg(HostFiles::ToHost(place)));
  }
  return true;
}

std::optional<FolderLock> TakeRunPlace(const Settings& settings, Prompter& prompter) {
  Status made = MakeRunDir(u"OutDir"_s, settings.OutDir);
  if (made) made = MakeRunDir(u"TempDir"_s, settings.TempDir);
  if (made && settings.CreateISO && !settings.ISOPath.isEmpty()) made = MakeRunDir(u"ISOPath"_s, settings.ISOPath);
  if (!made) {
    prompter.Fail(made.Error());
    return std::nullopt;
  }
  Result<FolderLock> lock = FolderLock::Take({settings.OutDir, settings.TempDir});
  if (!lock) {
    prompter.Fail(lock.Error());
    return std::nullopt;
  }
  if (!RecoverFormerDisc(settings, prompter)) return std::nullopt;
  return std::move(*lock);
}

}  // namespace torvane
