#include "core/journal_place.h"

#include "core/settings_store.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString JournalDir(const QString& profileDir) { return SplitPath(SettingsStore(profileDir).Path()).dir + u"\\Journal"; }

std::unique_ptr<QLockFile> LockJournal(const QString& path) {
  auto lock = std::make_unique<QLockFile>(HostFiles::ToHost(path) + kLockEnding);
  lock->setStaleLockTime(0);  // it holds as long as its process lives
  return lock->tryLock() ? std::move(lock) : nullptr;
}

}  // namespace torvane
