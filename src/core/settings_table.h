#pragma once

#include <QString>
#include <QStringView>
#include <span>
#include <variant>

#include "core/settings.h"

namespace torvane {

/// How a setting is read and written as text.
enum class SettingKind {
  Flag,       ///< 0 or 1; any number but 0 is read as set
  Switch,     ///< the same for a number of two values
  Number,     ///< decimal, 32 bits
  Magnitude,  ///< decimal, without its sign
  Byte,       ///< decimal, 0 to 255
  Decimal,    ///< a number that may have a fraction, not below 0
  Text,       ///< as it stands
  Path,       ///< text that names a file or directory
  Mask,       ///< string form of a GifMaskRecord
  Font,       ///< string form of a FontRecord
};

using SettingMember = std::variant<bool Settings::*, int Settings::*, double Settings::*, QString Settings::*,
                                   GifMaskRecord Settings::*, FontRecord Settings::*>;

/// Where a project file holds the setting: as an attribute of one of its elements SETTINGS, SETTINGS2 to SETTINGS5.
struct ProjectPlace {
  int element = 0;   ///< 1 to 5; 0 for a setting that is no part of a project
  int position = 0;  ///< place among the attributes of the element, from 1
  QStringView attribute;
};

/// Where a preset file holds the setting, and under which name.
struct PresetPlace {
  int position = 0;           ///< place among the lines, from 1; 0 for a setting that is no part of a preset
  QStringView key = {};       ///< "" for the setting's own key
  QStringView otherKey = {};  ///< a second name that is read where the first is missing; "" for none
};

/// What the text of a setting must look like beyond its kind.
enum class SettingForm {
  Any,
  NotEmpty,
  Choice,          ///< one of `choices`
  Crop,            ///< "20" or "16,8,-16,-8" (ValidCropValue)
  Effect,          ///< four whole numbers, each followed by ";"
  Grid,            ///< the form of a GridLayoutRecord, with sound numbers for a PAL menu
  SubtitleFormat,  ///< nine fields separated by "/"
  VolumeName,      ///< 1 to 30 capitals, digits and "_"
};

/// Limits of a number, both included; no limits where `least` is above `most`.
struct SettingRange {
  int least = 0;
  int most = -1;
  bool isEven = false;
};

/// The one description of a setting, which the store, settings files, the command line, project files, preset files
/// and the settings dialog walk. Its default is what the member has in `Settings{}`.
struct SettingRow {
  QStringView key;  ///< "" for a value that only project files hold
  SettingKind kind = SettingKind::Text;
  SettingMember member;
  ProjectPlace project;
  PresetPlace preset = {};
  SettingRange range = {};
  SettingForm form = SettingForm::Any;
  QStringView choices = {};  ///< separated by blanks
  QStringView meaning = {};  ///< a sentence for the user

  // What is left to say of a row; each gives the row with it.
  constexpr SettingRow From(int least, int most) const {
    SettingRow row = *this;
    row.range = {least, most};
    return row;
  }
  constexpr SettingRow EvenFrom(int least, int most) const {
    SettingRow row = *this;
    row.range = {least, most, true};
    return row;
  }
  constexpr SettingRow As(SettingForm textForm) const {
    SettingRow row = *this;
    row.form = textForm;
    return row;
  }
  constexpr SettingRow OneOf(QStringView words) const {
    SettingRow row = *this;
    row.form = SettingForm::Choice;
    row.choices = words;
    return row;
  }
  constexpr SettingRow Means(QStringView sentence) const {
    SettingRow row = *this;
    row.meaning = sentence;
    return row;
  }
};

/// All settings, in the order in which they are read.
std::span<const SettingRow> SettingsTable();

/// The row of a key, which is matched exactly, or null.
const SettingRow* FindSetting(QStringView key);

/// The value of a setting as text.
QString SettingText(const Settings& settings, const SettingRow& row);

/// Sets a value from its text by the rule of its kind. A mask's file is looked up below `settings.AppPath` and in
/// `settings.OwnGifMaskDir`.
void SetSettingText(Settings& settings, const SettingRow& row, const QString& text);

}  // namespace torvane
