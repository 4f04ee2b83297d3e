#pragma once

#include <QString>
#include <QStringList>

#include "core/settings.h"
#include "core/settings_store.h"
#include "platform/result.h"

namespace torvane {

/// The projects opened last, the latest first, kept in the user's store.
class RecentFiles {
 public:
  static constexpr qsizetype kMost = 9;

  /// Reads the list; entries that are empty, doubled or name no file are dropped.
  explicit RecentFiles(SettingsStore store);

  /// DOS paths, at most kMost.
  const QStringList& Paths() const { return paths_; }

  /// Puts a path first; one that differs in case only leaves its place, the oldest beyond kMost goes. The store is
  /// written; the list holds for this program even when that fails.
  Status Add(const QString& path);

  /// Takes a path out, in any case, such as that of a file that is gone.
  Status Remove(const QString& path);

  /// Puts the list into settings that are going to be stored as a whole.
  void CopyTo(Settings& settings) const;

 private:
  void Drop(const QString& path);
  SettingTexts Texts() const;

  SettingsStore store_;
  QStringList paths_;
};

}  // namespace torvane
