#include "shell/language_command.h"

#include "platform/host_files.h"
#include "shell/builtin_commands.h"
#include "shell/command_parser.h"
#include "shell/current_directory.h"
#include "shell/tool_table.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool IsControl(const QString& name) {
  return name == u"echo" || name == u"goto" || name == u"call" || name == u"exit" || name == u"rem";
}

bool HasBatchEnding(const QString& name) {
  return name.endsWith(u".bat", Qt::CaseInsensitive) || name.endsWith(u".cmd", Qt::CaseInsensitive);
}

}  // namespace

std::optional<NamedCommand> LanguageCommand(const QString& text) {
  // A drive alone makes its root the current directory.
  const QString trimmed = text.trimmed();
  if (trimmed.size() == 2 && HostFiles::HasDrive(trimmed)) return NamedCommand{u"cd"_s, trimmed + u'\\'};
  qsizetype end = 0;
  while (end < text.size() && text[end].isLetter()) ++end;
  const QString name = text.left(end).toLower();
  if (!IsControl(name) && !IsBuiltin(name)) return std::nullopt;
  if (end < text.size() && !IsDelimiter(text[end])) {
    const QString joined = name == u"echo"                      ? u".:([]+/\\"_s
                           : name == u"cd" || name == u"chdir"  ? u"./\\"_s
                           : name == u"goto" || name == u"call" ? u":"_s
                                                                : u"/"_s;
    if (!joined.contains(text[end])) return std::nullopt;
  }
  return NamedCommand{name, text.sliced(end)};
}

QString FromFirstWord(const QString& text) {
  qsizetype begin = 0;
  while (begin < text.size() && (IsDelimiter(text[begin]) || text[begin] == u'@')) ++begin;
  return text.sliced(begin);
}

QStringList BatchArguments(const QString& text) {
  QStringList arguments;
  QString current;
  bool quoted = false;
  for (const QChar c : text) {
    if (c == u'"') quoted = !quoted;
    if (!quoted && IsDelimiter(c)) {
      if (!current.isEmpty()) arguments << current;
      current.clear();
    } else {
      current += c;
    }
  }
  if (!current.isEmpty()) arguments << current;
  return arguments;
}

std::optional<QString> BatchOf(const QString& word) {
  if (HasBatchEnding(word)) return word;
  for (const QString& ending : {u".bat"_s, u".cmd"_s}) {
    if (!FindTool(word) && HostFiles::FileExists(ResolveDosPath(word + ending))) return word + ending;
  }
  return std::nullopt;
}

}  // namespace torvane
