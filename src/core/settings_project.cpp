#include "core/settings_project.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "core/dos_path.h"
#include "core/settings_table.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<QStringView, 5> kElements{u"SETTINGS", u"SETTINGS2", u"SETTINGS3", u"SETTINGS4", u"SETTINGS5"};
constexpr int kFormerElement = 4;

/// No XML name starts with a digit, so the attribute 169MODE is written with a "_"; both forms are read.
constexpr QStringView kWrittenMode = u"_169MODE";
constexpr QStringView kBareMode = u"169MODE";

using AttributeTexts = QHash<QString, QString>;

std::optional<QString> FindAttribute(const AttributeTexts& attributes, QStringView name) {
  for (const QStringView form : {name, name == kWrittenMode ? kBareMode : name}) {
    const auto found = attributes.constFind(form.toString());
    if (found != attributes.constEnd()) return *found;
  }
  return std::nullopt;
}

std::vector<const SettingRow*> RowsOfElement(int element) {
  std::vector<const SettingRow*> rows;
  for (const SettingRow& row : SettingsTable()) {
    if (row.project.element == element) rows.push_back(&row);
  }
  std::ranges::sort(rows, {}, [](const SettingRow* row) { return row->project.position; });
  return rows;
}

enum class Masks { Only, None };

void ReadElement(const AttributeTexts& attributes, int element, Masks masks, const QString& projectDir,
                 Settings& settings) {
  for (const SettingRow* row : RowsOfElement(element)) {
    if ((row->kind == SettingKind::Mask) != (masks == Masks::Only)) continue;
    const std::optional<QString> text = FindAttribute(attributes, row->project.attribute);
    if (text) SetSettingText(settings, *row, row->kind == SettingKind::Path ? DosPathOf(*text, projectDir) : *text);
  }
}

/// Keeps the first three fields of an effect and clears the flag behind them.
QString EffectOfFormerLayout(const QString& text) {
  QString effect;
  for (int k = 0; k < 3; ++k) effect += FormatNumberDot(OutlineField(text, k)) + u';';
  return effect + u"0;"_s;
}

void ReadFormerLayout(const AttributeTexts& attributes, Settings& settings) {
  for (const QStringView key : {u"NoMenus", u"LoopSyntax", u"Engine", u"Def169Mode", u"DefAudioTSType", u"AdjNTSCtc"}) {
    const SettingRow* row = FindSetting(key);
    SetSettingText(settings, *row, FindAttribute(attributes, row->project.attribute).value_or(u"0"_s));
  }
  for (const QStringView key : {u"DefShadow", u"DefBlock", u"DefOutline", u"DefBOutline"}) {
    const SettingRow* row = FindSetting(key);
    const std::optional<QString> text = FindAttribute(attributes, row->project.attribute);
    if (text) SetSettingText(settings, *row, EffectOfFormerLayout(*text));
  }
}

int LastElementOf(float fileVersion) {
  if (fileVersion > 1.04F) return 5;
  return fileVersion > 0.85F ? 4 : 1;
}

}  // namespace

QList<ProjectElement> ProjectAttributes(const Settings& settings) {
  QList<ProjectElement> elements;
  for (int i = 0; i < int(kElements.size()); ++i) {
    ProjectElement element{.name = kElements[i].toString(), .attributes = {}};
    if (i == 0) element.attributes.emplaceBack(u"TVNVERSION"_s, ProgramVersion.toString());
    for (const SettingRow* row : RowsOfElement(i + 1)) {
      element.attributes.emplaceBack(row->project.attribute.toString(), SettingText(settings, *row));
    }
    elements += element;
  }
  return elements;
}

void ReadProjectSettings(const ElementAttributes& elements, float fileVersion, const QString& projectDir,
                         Settings& settings) {
  const int last = LastElementOf(fileVersion);
  for (const Masks masks : {Masks::None, Masks::Only}) {
    for (int element = 1; element <= last; ++element) {
      const AttributeTexts attributes = elements.value(kElements[element - 1].toString());
      ReadElement(attributes, element, masks, projectDir, settings);
      if (element == kFormerElement && masks == Masks::None) ReadFormerLayout(attributes, settings);
    }
  }
  FollowVideoNorm(settings);
  ApplyNoMenus(settings);
}

}  // namespace torvane
