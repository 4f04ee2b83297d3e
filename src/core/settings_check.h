#pragma once

#include <QString>

#include "core/settings_table.h"
#include "platform/result.h"

namespace torvane {

/// Whether a value that a user gives is one of the setting: its kind, its range, its form. The failure names the
/// setting and what it takes. Stored values are read without this test (SetSettingText), as far as they are sound.
Status CheckSettingText(const SettingRow& row, const QString& text);

}  // namespace torvane
