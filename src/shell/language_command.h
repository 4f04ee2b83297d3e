#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace torvane {

/// A command of the batch language itself: its name in small letters and what stands behind it.
struct NamedCommand {
  QString name;
  QString rest;
  bool operator==(const NamedCommand&) const = default;
};

/// The command that a text begins with; nothing when the text names a batch or a program. The name ends at a delimiter,
/// or at a sign that the command takes without a blank: "echo.", "cd..", "goto:end", "erase/q".
std::optional<NamedCommand> LanguageCommand(const QString& text);

/// The text without the delimiters and "@" signs before its first word.
QString FromFirstWord(const QString& text);

/// Arguments of a batch: parted by any delimiter, quotes kept.
QStringList BatchArguments(const QString& text);

/// The batch that a command's first word names: with its ending, or without one where no tool goes by the name and
/// there is such a file.
std::optional<QString> BatchOf(const QString& word);

}  // namespace torvane
