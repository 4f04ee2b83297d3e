#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

#include "core/settings_overrides.h"
#include "platform/result.h"

namespace torvane {

/// How questions are answered without a user.
enum class AnswerPolicy {
  Default,  ///< what the box's own default button answers
  Yes,      ///< Yes or OK
  No        ///< No or Cancel
};

/// A command line, taken apart.
struct CommandLine {
  QString command;
  QStringList arguments;
  QString profileDir;
  QString settingsFile;               ///< as typed; read before the overrides
  QList<SettingOverride> overrides;   ///< of --set, in order
  int language = 0;                   ///< 1000 English, 2000 German; 0 as the settings say
  AnswerPolicy answers = AnswerPolicy::Default;
  QString output;                     ///< of -o: a directory, or the file to save to
  int mode = 0;                       ///< of --mode
  float fps = 0;                      ///< of --fps; 0 when not given
  std::optional<double> duration;     ///< of --duration, in seconds
  std::optional<AnswerPolicy> frames; ///< of --frames
  QHash<QString, QStringList> options = {};  ///< those of the command itself, by name; each with all its values

  /// The last value of one of those; `absent` where it was not given.
  QString Option(const QString& name, const QString& absent = {}) const {
    return options.contains(name) ? options.value(name).last() : absent;
  }
  bool HasFlag(const QString& name) const { return options.contains(name); }

  bool wantsHelp = false;
  bool wantsVersion = false;
};

/// Takes the arguments behind the program's name apart. Options may stand before and behind the command. Fails with a
/// text for the user.
Result<CommandLine> ParseCommandLine(const QStringList& arguments);

/// Name, arguments, purpose and an example of each command.
struct CommandHelp {
  QStringView name;
  QStringView arguments;
  QStringView purpose;
  QStringView example;
  int least;  ///< number of arguments, at the least and at the most (-1: any number)
  int most;
  QStringView options = {};  ///< names of the options of its own that take a value, separated by blanks
  QStringView flags = {};    ///< names of those without a value; they stand behind the command
};

/// The help of a command, or null.
const CommandHelp* FindCommand(QStringView name);

/// What `--help` prints: of one command, or of all with their examples.
QString HelpText(const QString& command);

}  // namespace torvane
