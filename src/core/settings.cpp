#include "core/settings.h"

#include <algorithm>
#include <cmath>

#include "core/settings_table.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

template <class... Alternatives>
struct Overloaded : Alternatives... {
  using Alternatives::operator()...;
};
template <class... Alternatives>
Overloaded(Alternatives...) -> Overloaded<Alternatives...>;

int NumberOfText(SettingKind kind, const QString& text) {
  switch (kind) {
    case SettingKind::Switch:
      return Val(text) != 0 ? 1 : 0;
    case SettingKind::Magnitude:
      return RoundToInt(std::abs(Val(text)));
    case SettingKind::Byte:
      return std::clamp(ValToInt(text), 0, 255);
    default:
      return ValToInt(text);
  }
}

QString TextOfNumber(SettingKind kind, int number) {
  switch (kind) {
    case SettingKind::Switch:
      return number != 0 ? u"1"_s : u"0"_s;
    case SettingKind::Magnitude:
      return QString::number(std::abs(qint64(number)));
    default:
      return QString::number(number);
  }
}

template <class Wanted>
void ReadRows(const SettingTexts& texts, Settings& settings, Wanted wanted) {
  for (const SettingRow& row : SettingsTable()) {
    if (!wanted(row)) continue;
    const auto found = texts.constFind(row.key.toString());
    if (found != texts.constEnd()) SetSettingText(settings, row, *found);
  }
}

bool IsMask(const SettingRow& row) {
  return row.kind == SettingKind::Mask;
}

}  // namespace

const SettingRow* FindSetting(QStringView key) {
  if (key.isEmpty()) return nullptr;
  const auto rows = SettingsTable();
  const auto found = std::find_if(rows.begin(), rows.end(), [key](const SettingRow& row) { return row.key == key; });
  return found == rows.end() ? nullptr : &*found;
}

QString SettingText(const Settings& settings, const SettingRow& row) {
  return std::visit(Overloaded{
                        [&](bool Settings::*flag) { return settings.*flag ? u"1"_s : u"0"_s; },
                        [&](int Settings::*number) { return TextOfNumber(row.kind, settings.*number); },
                        [&](double Settings::*number) { return FormatNumberDot(settings.*number); },
                        [&](QString Settings::*text) { return settings.*text; },
                        [&](GifMaskRecord Settings::*mask) { return FormatMaskString(settings.*mask); },
                        [&](FontRecord Settings::*font) { return FormatFontString(settings.*font); },
                    },
                    row.member);
}

void SetSettingText(Settings& settings, const SettingRow& row, const QString& text) {
  std::visit(Overloaded{
                 [&](bool Settings::*flag) { settings.*flag = Val(text) != 0; },
                 [&](int Settings::*number) { settings.*number = NumberOfText(row.kind, text); },
                 [&](double Settings::*number) { settings.*number = std::max(Val(text), 0.0); },
                 [&](QString Settings::*value) { settings.*value = text; },
                 [&](GifMaskRecord Settings::*mask) {
                   settings.*mask = ParseMaskString(text, settings.AppPath, settings.OwnGifMaskDir);
                 },
                 [&](FontRecord Settings::*font) { settings.*font = ParseFontString(text); },
             },
             row.member);
}

void ReadSettings(const SettingTexts& texts, Settings& settings) {
  ReadSettingsButMasks(texts, settings);
  ReadMaskSettings(texts, settings);
}

void ReadMaskSettings(const SettingTexts& texts, Settings& settings) {
  ReadRows(texts, settings, IsMask);
}

void ReadSettingsButMasks(const SettingTexts& texts, Settings& settings) {
  ReadRows(texts, settings, [](const SettingRow& row) { return !IsMask(row); });
}

SettingTexts WriteSettings(const Settings& settings) {
  SettingTexts texts;
  for (const SettingRow& row : SettingsTable()) {
    if (!row.key.isEmpty()) texts.insert(row.key.toString(), SettingText(settings, row));
  }
  return texts;
}

void FollowVideoNorm(Settings& settings) {
  settings.VideoHeight = settings.VideoNormPal ? 576 : 480;
}

void ApplyNoMenus(Settings& settings) {
  if (!settings.NoMenus) return;
  settings.GoNextTitle = true;
  settings.NoShowTitleSetMenu = true;
  settings.AnimatedMainMenu = false;
  settings.AdvancedMode = false;
}

}  // namespace torvane
