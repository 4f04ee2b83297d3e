#include "cli/settings_commands.h"

#include "cli/cli_prompter.h"
#include "cli/commands.h"
#include "core/messages.h"
#include "core/preset_file.h"
#include "core/settings_store.h"
#include "core/settings_table.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kHighestByte = 255;

Status CheckValue(const SettingRow& row, const QString& value) {
  const bool isNumber = std::holds_alternative<int Settings::*>(row.member);
  const bool isFlag = std::holds_alternative<bool Settings::*>(row.member);
  if (!isNumber && !isFlag) return {};
  bool ok = false;
  const int number = value.trimmed().toInt(&ok);
  if (isFlag || row.kind == SettingKind::Switch) {
    if (ok && (number == 0 || number == 1)) return {};
    return Failure{u"%1 takes 0 or 1, not \"%2\"."_s.arg(row.key, value)};
  }
  if (!ok) return Failure{u"%1 takes a whole number, not \"%2\"."_s.arg(row.key, value)};
  if (row.kind == SettingKind::Byte && (number < 0 || number > kHighestByte)) {
    return Failure{u"%1 takes a number from 0 to 255, not %2."_s.arg(row.key, value)};
  }
  if (row.key == u"LangID" && number != kEnglish && number != kGerman) {
    return Failure{u"LangID takes 1000 (English) or 2000 (German), not %1."_s.arg(value)};
  }
  return {};
}

Status CheckAssignment(const QString& text) {
  const Result<SettingOverride> setting = ParseSettingOverride(text);
  if (!setting) return Failure{setting.Error()};
  return CheckValue(*FindSetting(setting->key), setting->value);
}

QString StoredText(const SettingTexts& stored, const SettingRow& row) {
  const auto found = stored.constFind(row.key.toString());
  return found == stored.constEnd() ? SettingText({}, row) : *found;
}

QString ListText(const SettingTexts& stored) {
  QString text;
  for (const SettingRow& row : SettingsTable()) {
    if (row.key.isEmpty()) continue;
    // A line for each setting, so that the list can be given back with --settings.
    QString value = StoredText(stored, row);
    value.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
    text += row.key + u'=' + value + u'\n';
  }
  return text;
}

SettingTexts Assignments(const QStringList& arguments) {
  SettingTexts texts;
  for (const QString& argument : arguments) {
    const Result<SettingOverride> setting = ParseSettingOverride(argument);
    if (!setting) continue;
    const bool isPath = FindSetting(setting->key)->kind == SettingKind::Path && !setting->value.isEmpty();
    texts.insert(setting->key, isPath ? HostFiles::FromUser(setting->value) : setting->value);
  }
  return texts;
}

int ExitOf(const Status& status, Prompter& prompter) {
  if (!status) prompter.Fail(status.Error());
  return status ? kExitDone : kExitFailed;
}

}  // namespace

Status CheckSettingsArguments(const QStringList& arguments) {
  const QString& action = arguments.front();
  if (action == u"list" && arguments.size() == 1) return {};
  if (action == u"get" && arguments.size() == 2) return CheckSettingKey(arguments[1]);
  if (action == u"set" && arguments.size() > 1) {
    for (const QString& argument : arguments.sliced(1)) {
      if (const Status sound = CheckAssignment(argument); !sound) return sound;
    }
    return {};
  }
  return Failure{u"The command is: settings list, settings get KEY, or settings set KEY=VALUE..."_s};
}

Status CheckPresetArguments(const QStringList& arguments) {
  if (arguments.front() == u"save" || arguments.front() == u"load") return {};
  return Failure{u"The command is: preset save FILE, or preset load FILE"_s};
}

int RunSettingsCommand(const CommandLine& line, Prompter& prompter) {
  const SettingsStore store(line.profileDir);
  if (line.arguments.front() == u"set") return ExitOf(store.Write(Assignments(line.arguments.sliced(1))), prompter);
  const Result<SettingTexts> stored = store.Read();
  if (!stored) return ExitOf(Failure{stored.Error()}, prompter);
  if (line.arguments.front() == u"list") {
    PrintOut(ListText(*stored));
  } else {
    PrintOut(StoredText(*stored, *FindSetting(line.arguments.back())) + u'\n');
  }
  return kExitDone;
}

int RunPresetCommand(const CommandLine& line, const Settings& settings, Prompter& prompter) {
  const QString file = HostFiles::FromUser(line.arguments.back());
  if (line.arguments.front() == u"save") return ExitOf(SavePreset(WithPresetExtension(file), settings), prompter);

  const Result<SettingTexts> preset = LoadPreset(file);
  if (!preset) return ExitOf(Failure{preset.Error()}, prompter);
  // Stored are the values as they were understood: a damaged number as far as it is one, no mask that is not there.
  Settings changed = settings;
  ReadSettings(*preset, changed);
  SettingTexts texts;
  for (const QString& key : preset->keys()) texts.insert(key, SettingText(changed, *FindSetting(key)));
  return ExitOf(SettingsStore(line.profileDir).Write(texts), prompter);
}

}  // namespace torvane
