#include "core/settings_overrides.h"

#include <QStringDecoder>

#include "core/settings_check.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

Status CheckSettingKey(const QString& key) {
  if (FindSetting(key)) return {};
  for (const SettingRow& row : SettingsTable()) {
    if (!row.key.isEmpty() && row.key.compare(key, Qt::CaseInsensitive) == 0) {
      return Failure{u"there is no setting \"%1\"; it is written \"%2\""_s.arg(key, row.key)};
    }
  }
  return Failure{u"there is no setting \"%1\""_s.arg(key)};
}

Result<SettingOverride> ParseSettingOverride(const QString& text) {
  const qsizetype equals = text.indexOf(u'=');
  if (equals < 0) return Failure{u"\"%1\" is not of the form KEY=VALUE"_s.arg(text)};
  SettingOverride setting{.key = text.first(equals), .value = text.sliced(equals + 1)};
  if (const Status known = CheckSettingKey(setting.key); !known) return Failure{known.Error()};
  if (const Status sound = CheckSettingText(*FindSetting(setting.key), setting.value); !sound) {
    return Failure{sound.Error()};
  }
  return setting;
}

QString SettingTextOf(const SettingRow& row, const QString& typed) {
  return row.kind == SettingKind::Path && !typed.isEmpty() ? HostFiles::FromUser(typed) : typed;
}

Result<QList<SettingOverride>> ParseSettingsFile(const QByteArray& content, const QString& fileName) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(content);
  if (decoder.hasError()) return Failure{u"%1: the file is not UTF-8 text"_s.arg(fileName)};

  QList<SettingOverride> settings;
  qsizetype number = 0;
  for (QString line : text.split(u'\n')) {
    ++number;
    if (line.endsWith(u'\r')) line.chop(1);
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) continue;
    const Result<SettingOverride> setting = ParseSettingOverride(line);
    if (!setting) return Failure{u"%1:%2: %3"_s.arg(fileName).arg(number).arg(setting.Error())};
    settings += *setting;
  }
  return settings;
}

}  // namespace torvane
