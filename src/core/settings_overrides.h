#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "core/settings_table.h"
#include "platform/result.h"

namespace torvane {

/// A setting given for one run of the program, on the command line or in a settings file.
struct SettingOverride {
  QString key;
  QString value;
  bool operator==(const SettingOverride&) const = default;
};

/// Fails for a key that no setting has, which is matched exactly; names the key that differs in case only.
Status CheckSettingKey(const QString& key);

/// Reads "KEY=VALUE". The value is all behind the first "=", blanks included. Fails as well for a value that is none of
/// the setting's.
Result<SettingOverride> ParseSettingOverride(const QString& text);

/// A value as the setting holds it: a path that a user typed, which may be a host path, is a DOS path.
QString SettingTextOf(const SettingRow& row, const QString& typed);

/// Reads a settings file: UTF-8 text with a KEY=VALUE in each line; blank lines and lines that start with "#" say
/// nothing. Lines may end in CR LF. Fails at the first line that is no setting, with `fileName` and the line's number.
Result<QList<SettingOverride>> ParseSettingsFile(const QByteArray& content, const QString& fileName);

}  // namespace torvane
