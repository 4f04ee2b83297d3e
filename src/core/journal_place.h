#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

namespace torvane {

inline constexpr QStringView kJournalEnding = u".tvj";
inline constexpr QStringView kNewEnding = u".new";  ///< behind the name of a journal that is not whole yet
inline constexpr QStringView kLockEnding = u".lock";

/// Directory of the journals of the user whose store lies in a directory (see SettingsStore). DOS path.
QString JournalDir(const QString& profileDir);

/// Makes a journal (DOS path) this process's own, by a lock file with its process id beside it, until the lock is
/// destroyed. Null when a living process holds it, or when no lock can be made.
std::unique_ptr<QLockFile> LockJournal(const QString& path);

}  // namespace torvane
