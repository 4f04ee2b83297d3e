#pragma once

#include <QByteArray>
#include <QString>

#include "core/settings.h"
#include "platform/result.h"

namespace torvane {

/// The text of a preset file ".tvp": look and feel of menus and elements, a line "[key]=value" for each setting that
/// has a place in presets, in the order of those places. UTF-8, with the line end of this system. A line break within
/// a value becomes a blank, as a value is one line.
QByteArray PresetText(const Settings& settings);

/// The value of a key in the text of a preset file: what stands behind "[key]=", which is matched without regard to
/// case, on the first line that starts with it, or else the text from that length on of the first line that holds it
/// anywhere; `fallback` when no line does.
QString ReadPresetValue(const QString& text, const QString& key, const QString& fallback);

/// The values that a preset holds, by the keys of their settings; ReadSettings takes them over. A value is found under
/// the name it is written with, or else under the second name that some have. `GridLayout` is written but never read.
/// Text that is no UTF-8 is read as Latin-1.
SettingTexts ReadPreset(const QByteArray& content);

/// Writes a preset file. On failure the former file stands; the text is message 157 and the reason.
Status SavePreset(const QString& path, const Settings& settings);

Result<SettingTexts> LoadPreset(const QString& path);

/// Appends ".tvp" unless the name has at least four characters and ends in it, in any case.
QString WithPresetExtension(const QString& path);

/// "\TVNPreset.tvp" in the output directory.
QString DefaultPresetFile(const Settings& settings);

}  // namespace torvane
