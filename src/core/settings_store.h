#pragma once

#include <QString>

#include "core/settings.h"
#include "platform/result.h"

namespace torvane {

/// The per-user store of settings: one text file "Startup.conf" of lines KEY=VALUE in UTF-8, in which "%", CR and LF
/// of a value stand as %25, %0D and %0A.
class SettingsStore {
 public:
  /// The store in a directory, named as a user types it, or the user's own store for "".
  explicit SettingsStore(const QString& dir);

  /// DOS path of the file.
  const QString& Path() const { return path_; }

  /// All keys with their texts, known or not; empty where nothing has been stored yet.
  Result<SettingTexts> Read() const;

  /// Sets the given keys and keeps all others, also those this program does not know. On failure the store is as it
  /// was.
  Status Write(const SettingTexts& changes) const;

 private:
  QString dir_;
  QString path_;
};

}  // namespace torvane
