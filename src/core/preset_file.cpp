#include "core/preset_file.h"

#include <QStringDecoder>
#include <algorithm>
#include <optional>
#include <vector>

#include "core/messages.h"
#include "core/settings_table.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

#ifdef Q_OS_WIN
constexpr QStringView kLineEnd = u"\r\n";
#else
constexpr QStringView kLineEnd = u"\n";
#endif

/// The rows that have a place in presets, in the order of their lines.
std::vector<const SettingRow*> PresetRows() {
  std::vector<const SettingRow*> rows;
  for (const SettingRow& row : SettingsTable()) {
    if (row.preset.position > 0) rows.push_back(&row);
  }
  std::ranges::sort(rows, {}, [](const SettingRow* row) { return row->preset.position; });
  return rows;
}

QString PresetKey(const SettingRow& row) { return (row.preset.key.isEmpty() ? row.key : row.preset.key).toString(); }

QString OneLine(QString value) {
  return value.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
}

QString Decoded(const QByteArray& content) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  QString text = decoder(content);
  return decoder.hasError() ? QString::fromLatin1(content) : text;
}

std::optional<QString> FindValue(QStringView text, QStringView key) {
  if (key.isEmpty()) return std::nullopt;
  const QString bracket = u'[' + key + u"]=";
  std::optional<QString> elsewhere;
  for (QStringView line : text.tokenize(u'\n')) {
    if (line.endsWith(u'\r')) line.chop(1);
    const qsizetype at = line.indexOf(bracket, 0, Qt::CaseInsensitive);
    if (at == 0) return line.sliced(bracket.size()).toString();
    if (at > 0 && !elsewhere) elsewhere = line.sliced(bracket.size()).toString();
  }
  return elsewhere;
}

}  // namespace

QByteArray PresetText(const Settings& settings) {
  QString text;
  for (const SettingRow* row : PresetRows()) {
    text += u'[' + PresetKey(*row) + u"]=" + OneLine(SettingText(settings, *row)) + kLineEnd;
  }
  return text.toUtf8();
}

QString ReadPresetValue(const QString& text, const QString& key, const QString& fallback) {
  return FindValue(text, key).value_or(fallback);
}

SettingTexts ReadPreset(const QByteArray& content) {
  const QString text = Decoded(content);
  SettingTexts texts;
  for (const SettingRow* row : PresetRows()) {
    if (row->key == u"GridLayout") continue;  // a grid is made for the menu at hand, so the user's own stays
    std::optional<QString> value = FindValue(text, PresetKey(*row));
    if (!value) value = FindValue(text, row->preset.otherKey);
    if (value) texts.insert(row->key.toString(), *value);
  }
  return texts;
}

Status SavePreset(const QString& path, const Settings& settings) {
  const Status written = HostFiles::WriteAtomically(path, PresetText(settings));
  if (written) return {};
  return Failure{GetMessage(157) + u"\r\n" + written.Error()};
}

Result<SettingTexts> LoadPreset(const QString& path) {
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  return ReadPreset(*content);
}

QString WithPresetExtension(const QString& path) {
  return path.size() >= 4 && path.endsWith(u".tvp", Qt::CaseInsensitive) ? path : path + u".tvp"_s;
}

QString DefaultPresetFile(const Settings& settings) { return settings.OutDir + u"\\TVNPreset.tvp"; }

}  // namespace torvane
