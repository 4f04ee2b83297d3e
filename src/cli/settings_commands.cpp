#include "cli/settings_commands.h"

#include "cli/cli_prompter.h"
#include "cli/commands.h"
#include "core/overwrite.h"
#include "core/preset_file.h"
#include "core/project_difference.h"
#include "core/project_file.h"
#include "core/project_settings.h"
#include "core/settings_store.h"
#include "core/settings_table.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString StoredText(const SettingTexts& stored, const SettingRow& row) {
  const auto found = stored.constFind(row.key.toString());
  return found == stored.constEnd() ? SettingText({}, row) : *found;
}

/// A setting as a line that can be given back with --settings, below what it means.
QString ListLines(const SettingRow& row, QString value) {
  value.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
  return u"# "_s + row.meaning + u'\n' + row.key + u'=' + value + u'\n';
}

QString ListText(const SettingTexts& stored) {
  QString text;
  for (const SettingRow& row : SettingsTable()) {
    if (!row.key.isEmpty()) text += ListLines(row, StoredText(stored, row));
  }
  return text;
}

QString ProjectListText(const Settings& carried) {
  QString text;
  for (const SettingRow& row : SettingsTable()) {
    if (!row.key.isEmpty() && BelongsToProject(row)) text += ListLines(row, SettingText(carried, row));
  }
  return text;
}

/// The changes of "set"; they have been checked.
QList<SettingOverride> Assignments(const QStringList& arguments) {
  QList<SettingOverride> changes;
  for (const QString& argument : arguments) {
    if (const Result<SettingOverride> setting = ParseSettingOverride(argument)) changes << *setting;
  }
  return changes;
}

SettingTexts Texts(const QList<SettingOverride>& changes) {
  SettingTexts texts;
  for (const auto& [key, value] : changes) texts.insert(key, SettingTextOf(*FindSetting(key), value));
  return texts;
}

int ExitOf(const Status& status, Prompter& prompter) {
  if (!status) prompter.Fail(status.Error());
  return status ? kExitDone : kExitFailed;
}

}  // namespace

Status CheckSettingsArguments(const QStringList& arguments) {
  const bool ofProject = arguments.front() == u"project" && arguments.size() > 2;
  const QStringList words = ofProject ? arguments.sliced(2) : arguments;
  const QString& action = words.front();
  if (action == u"list" && words.size() == 1) return {};
  if (action == u"get" && words.size() == 2) {
    return ofProject ? CheckProjectSetting(words[1]) : CheckSettingKey(words[1]);
  }
  if (action == u"set" && words.size() > 1) {
    for (const QString& word : words.sliced(1)) {
      const Result<SettingOverride> setting = ParseSettingOverride(word);
      if (!setting) return Failure{setting.Error()};
      const Status carried = ofProject ? CheckProjectSetting(setting->key) : Status();
      if (!carried) return carried;
    }
    return {};
  }
  return Failure{
      u"The command is: settings list, settings get KEY, or settings set KEY=VALUE... (settings project P.tvn "
      u"in front for what a project carries)"_s};
}

Status CheckPresetArguments(const QStringList& arguments) {
  if (arguments.front() == u"save" || arguments.front() == u"load") return {};
  return Failure{u"The command is: preset save FILE, or preset load FILE"_s};
}

int RunSettingsCommand(const CommandLine& line, Prompter& prompter) {
  const SettingsStore store(line.profileDir);
  if (line.arguments.front() == u"set")
    return ExitOf(store.Write(Texts(Assignments(line.arguments.sliced(1)))), prompter);
  const Result<SettingTexts> stored = store.Read();
  if (!stored) return ExitOf(Failure{stored.Error()}, prompter);
  if (line.arguments.front() == u"list") {
    PrintOut(ListText(*stored));
  } else {
    PrintOut(StoredText(*stored, *FindSetting(line.arguments.back())) + u'\n');
  }
  return kExitDone;
}

int RunProjectSettingsCommand(const CommandLine& line, Project& project, Prompter& prompter) {
  const QString& action = line.arguments[2];
  const Settings carried = CarriedSettings(project);
  if (action == u"list") {
    PrintOut(ProjectListText(carried));
    return kExitDone;
  }
  if (action == u"get") {
    PrintOut(SettingText(carried, *FindSetting(line.arguments.back())) + u'\n');
    return kExitDone;
  }
  const Status changed = SetProjectSettings(project, Assignments(line.arguments.sliced(3)));
  if (!changed) return ExitOf(changed, prompter);
  return SaveProject(project, prompter) ? kExitDone : kExitFailed;
}

int RunPresetCommand(const CommandLine& line, const Settings& settings, Prompter& prompter) {
  const QString file = HostFiles::FromUser(line.arguments.back());
  if (line.arguments.front() == u"save") {
    const QString preset = WithPresetExtension(file);
    return MayWriteFile(preset, {}, prompter) ? ExitOf(SavePreset(preset, settings), prompter) : kExitFailed;
  }

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
