#include "cli/command_line.h"

#include <algorithm>
#include <cmath>

#include "cli/edit_commands.h"
#include "cli/recover_command.h"
#include "cli/settings_commands.h"
#include "core/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr CommandHelp kCommands[] = {
    {u"new", u"OUT.tvn", u"Saves the default project made from the settings in force.",
     u"torvane-cli --set VideoNormPal=0 new ntsc.tvn", 1, 1},
    {u"tree", u"P.tvn", u"Prints every node: depth, key, image, tag and caption, separated by TAB.",
     u"torvane-cli tree holiday.tvn", 1, 1},
    {u"save", u"P.tvn OUT.tvn", u"Loads a project and saves it under another name.",
     u"torvane-cli save old.tvn new.tvn", 2, 2},
    {u"info", u"P.tvn", u"Prints what a project holds and what is wrong with it.", u"torvane-cli info holiday.tvn", 1,
     1},
    {u"compile", u"P.tvn", u"Create Batch: writes all control files, batches and pictures, and runs nothing.",
     u"torvane-cli --set TempDir=/tmp/batches compile holiday.tvn", 1, 1},
    {u"build", u"P.tvn", u"Create DVD: compiles the project and makes the disc.",
     u"torvane-cli --set OutDir=/home/me/disc --set CreateISO=1 --set ISOPath=/home/me build holiday.tvn", 1, 1},
    {u"check", u"P.tvn", u"Syntax Check: lets dvdauthor read the control file, whether the films exist or not.",
     u"torvane-cli check holiday.tvn", 1, 1},
    {u"compose", u"P.tvn MENUKEY -o DIR [--mode 0|1|2]",
     u"Draws one menu and writes its pictures: for the disc (0), as preview (1) or for a script (2).",
     u"torvane-cli compose holiday.tvn MM -o /tmp/pictures", 2, 2, u"-o --mode"},
    {u"run", u"BATCH...", u"Runs batch files of the temporary directory.",
     u"torvane-cli --set TempDir=/tmp/batches run batchrun0.bat author.bat", 1, -1},
    {u"settings", u"[project P.tvn] list | get KEY | set KEY=VALUE...",
     u"Shows the stored settings, with the defaults of those not stored, or stores values; with a project shows or "
     u"changes those that it carries.",
     u"torvane-cli settings set VideoNormPal=0 OutDir=/home/me/disc", 1, -1},
    {u"preset", u"save|load FILE.tvp", u"Saves the look of menus and elements as a preset, or stores that of one.",
     u"torvane-cli preset load blue.tvp", 2, 2},
    {u"analyse", u"FILE...",
     u"Judges video and audio files and prints what is known of each as JSON, one object a line.",
     u"torvane-cli analyse holiday.m2v holiday.ac3", 1, -1},
    {u"chapters", u"FILE --fps F [--duration S] [--frames yes|no]",
     u"Reads a text file of chapter marks and prints the chapter list; --frames tells whether fractions are frames.",
     u"torvane-cli chapters holiday.txt --fps 25 --duration 3600", 1, 1, u"--fps --duration --frames"},
    {u"palette", u"FILE",
     u"Reads a subtitle palette (ifo, pal, rgb, sst): prints the packed colours, then each as R, G, B.",
     u"torvane-cli palette VTS_01_0.IFO", 1, 1},
    {u"recover", u"list | disc | save JOURNAL OUT.tvn | discard JOURNAL",
     u"Lists the unsaved work that killed programs left (name, time of the last change, project), saves or discards "
     u"it, or "
     u"puts a disc back that a killed run had set aside.",
     u"torvane-cli recover save 4711-1 holiday-again.tvn", 1, 3},
};

constexpr QStringView kUsage =
    u"torvane-cli [--profile DIR] [--settings FILE] [--set KEY=VALUE]... [--lang en|de] [--assume yes|no|default] "
    u"COMMAND";

constexpr QStringView kOptions =
    u"  --profile DIR      keep the stored settings in DIR instead of the user's own folder\n"
    u"  --settings FILE    take the KEY=VALUE lines of FILE over the stored settings, for this run only\n"
    u"  --set KEY=VALUE    the same for one setting; comes after --settings\n"
    u"  --lang en|de       language of the messages\n"
    u"  --assume POLICY    answer questions with yes, no, or each one's own default\n"
    u"  --help             this text, or that of a command\n"
    u"  --version          the version of the program\n";

bool Takes(const CommandHelp& command, const QString& option) {
  return command.options.toString().split(u' ').contains(option);
}

bool HasFlag(const CommandHelp& command, const QString& option) {
  return command.flags.toString().split(u' ').contains(option);
}

/// True for an option that some command has of its own.
bool IsOwnOption(const QString& option) {
  const auto takes = [&option](const CommandHelp& command) { return Takes(command, option); };
  return std::any_of(std::begin(kCommands), std::end(kCommands), takes) ||
         std::any_of(EditCommands().begin(), EditCommands().end(), takes);
}

/// Walks the arguments; options take their value from the next argument or from behind "=".
class Parser {
 public:
  explicit Parser(const QStringList& arguments) : arguments_(arguments) {}

  Result<CommandLine> Parse() {
    while (next_ < arguments_.size()) {
      const QString argument = arguments_[next_++];
      if (argument == u"--") {
        while (next_ < arguments_.size()) Positional(arguments_[next_++]);
      } else if (argument.startsWith(u'-') && argument.size() > 1) {
        const Status taken = Option(argument);
        if (!taken) return Failure{taken.Error()};
      } else {
        Positional(argument);
      }
    }
    const Status sound = Check();
    if (!sound) return Failure{sound.Error()};
    return line_;
  }

 private:
  void Positional(const QString& argument) {
    if (line_.command.isEmpty()) {
      line_.command = argument;
    } else {
      line_.arguments << argument;
    }
  }

  Status Option(const QString& argument) {
    const QString name = argument.startsWith(u"--") ? argument.section(u'=', 0, 0) : argument;
    if (name == u"--help" || name == u"-h") {
      line_.wantsHelp = true;
      return {};
    }
    if (name == u"--version") {
      line_.wantsVersion = true;
      return {};
    }
    const CommandHelp* command = FindCommand(line_.command);
    if (command && HasFlag(*command, argument)) {
      line_.options[name] << QString();
      return {};
    }
    QString value;
    if (name.size() < argument.size()) {
      value = argument.mid(name.size() + 1);
    } else if (next_ < arguments_.size()) {
      value = arguments_[next_++];
    } else {
      return Failure{u"%1 needs a value."_s.arg(name)};
    }
    return Value(name, value);
  }

  Status Value(const QString& name, const QString& value) {
    if (name == u"--profile") {
      line_.profileDir = value;
    } else if (name == u"--settings") {
      line_.settingsFile = value;
    } else if (name == u"--set") {
      const Result<SettingOverride> setting = ParseSettingOverride(value);
      if (!setting) return Failure{setting.Error()};
      line_.overrides << *setting;
    } else if (name == u"--lang") {
      return Choice(name, value, {{u"en", kEnglish}, {u"de", kGerman}}, line_.language);
    } else if (name == u"--assume") {
      return Choice(name, value, {{u"yes", AnswerPolicy::Yes}, {u"no", AnswerPolicy::No}, {u"default", AnswerPolicy::Default}},
                    line_.answers);
    } else if (IsOwnOption(name)) {
      line_.options[name] << value;
      return OwnValue(name, value);
    } else {
      return Failure{u"There is no option %1."_s.arg(name)};
    }
    return {};
  }

  /// What is known of the values of an option whatever the command does with it.
  Status OwnValue(const QString& name, const QString& value) {
    if (name == u"-o") {
      line_.output = value;
    } else if (name == u"--mode") {
      return Choice(name, value, {{u"0", 0}, {u"1", 1}, {u"2", 2}}, line_.mode);
    } else if (name == u"--frames") {
      line_.frames = AnswerPolicy::Default;
      return Choice(name, value, {{u"yes", AnswerPolicy::Yes}, {u"no", AnswerPolicy::No}}, *line_.frames);
    } else if (name == u"--fps") {
      line_.fps = value.toFloat();
      if (!(line_.fps > 0) || std::isinf(line_.fps)) return Failure{u"--fps takes a number above 0, not \"%1\"."_s.arg(value)};
    } else if (name == u"--duration") {
      bool isNumber = false;
      line_.duration = value.toDouble(&isNumber);
      if (!isNumber || !(*line_.duration >= 0)) return Failure{u"--duration takes seconds, not \"%1\"."_s.arg(value)};
    }
    return {};
  }

  template <class T>
  Status Choice(const QString& name, const QString& value, std::initializer_list<std::pair<QStringView, T>> choices,
                T& target) {
    QStringList words;
    for (const auto& [word, meaning] : choices) {
      if (value == word) {
        target = meaning;
        return {};
      }
      words << word.toString();
    }
    return Failure{u"%1 takes %2, not \"%3\"."_s.arg(name, words.join(u", "), value)};
  }

  Status Check() const {
    if (line_.wantsHelp || line_.wantsVersion) return {};
    if (line_.command.isEmpty()) return Failure{u"A command is missing."_s};
    const CommandHelp* command = FindCommand(line_.command);
    if (!command) return Failure{u"There is no command \"%1\"."_s.arg(line_.command)};
    const qsizetype count = line_.arguments.size();
    if (count < command->least || (command->most >= 0 && count > command->most)) {
      return Failure{u"The command is: %1 %2"_s.arg(command->name, command->arguments)};
    }
    for (const QString& option : line_.options.keys()) {
      if (!Takes(*command, option) && !HasFlag(*command, option)) return Failure{u"The command %1 takes no %2."_s.arg(line_.command, option)};
    }
    if (line_.command == u"compose" && line_.output.isEmpty()) {
      return Failure{u"The command compose needs a directory for its pictures: -o DIR"_s};
    }
    if (line_.command == u"settings") return CheckSettingsArguments(line_.arguments);
    if (line_.command == u"preset") return CheckPresetArguments(line_.arguments);
    if (line_.command == u"recover") return CheckRecoverArguments(line_.arguments);
    if (line_.command == u"chapters" && line_.fps == 0) {
      return Failure{u"The command chapters needs the frame rate of the film: --fps F"_s};
    }
    return {};
  }

  const QStringList& arguments_;
  qsizetype next_ = 0;
  CommandLine line_;
};

QString CommandText(const CommandHelp& command) {
  return u"  %1 %2\n      %3\n      Example: %4\n"_s.arg(command.name, command.arguments, command.purpose,
                                                          command.example);
}

}  // namespace

Result<CommandLine> ParseCommandLine(const QStringList& arguments) { return Parser(arguments).Parse(); }

const CommandHelp* FindCommand(QStringView name) {
  for (const CommandHelp& command : kCommands) {
    if (command.name == name) return &command;
  }
  for (const CommandHelp& command : EditCommands()) {
    if (command.name == name) return &command;
  }
  return nullptr;
}

QString HelpText(const QString& command) {
  if (const CommandHelp* help = FindCommand(command)) return CommandText(*help);
  QString text = kUsage + u"\n\nTorvane without a window: checks, compiles and authors DVD projects.\n\nCommands\n";
  for (const CommandHelp& each : kCommands) text += CommandText(each);
  text += u"\nCommands that change a project (menu M is MM without --menu, and without -o the project itself is saved)\n";
  for (const CommandHelp& each : EditCommands()) text += CommandText(each);
  return text + u"\nOptions\n" + kOptions +
         u"\nExit codes: 0 done, 1 the work failed or was refused, 2 wrong usage.\n"
         u"A folder named by TORVANE_DRIVE_C is drive C; paths may be written in either form.\n";
}

}  // namespace torvane
