#pragma once

#include <QList>
#include <QString>

namespace torvane {

/// One `<`, `>`, `>>` or `n>&m` of a command.
struct Redirection {
  enum class Kind { Read, Write, Append, Duplicate };

  Kind kind = Kind::Write;
  int handle = 1;        ///< 0 input, 1 output, 2 errors; 3 to 9 are accepted and come to nothing
  QString target;        ///< a DOS path; empty for Duplicate
  int duplicateOf = -1;  ///< the handle that Duplicate copies
  bool operator==(const Redirection&) const = default;
};

/// One command as the batch language sees it: its text without redirections and escapes, quotes kept.
struct CommandText {
  QString text;
  QList<Redirection> redirections;
  bool operator==(const CommandText&) const = default;
};

/// Commands joined by `|`; or an IF, which takes the rest of the line with all its operators.
struct CommandChain {
  enum class Joint { Always, AfterSuccess, AfterFailure };

  Joint joint = Joint::Always;  ///< what joins it to the chain before: `&`, `&&` or `||`
  QList<CommandText> stages;
  QString conditional;  ///< text behind IF, not yet parsed; `stages` is empty then
  bool operator==(const CommandChain&) const = default;
};

/// One line of a batch. `wellFormed` is false for an operator without its command or a redirection without its file.
struct ParsedLine {
  QList<CommandChain> chains;
  bool quiet = false;  ///< the line begins with "@"
  bool wellFormed = true;
  bool operator==(const ParsedLine&) const = default;
};

/// Parses a line whose % variables are already expanded.
ParsedLine ParseCommandLine(const QString& line);

/// True for a line that goes on in the next one: it ends in a "^" that escapes the line's end.
bool GoesOn(const QString& line);

/// One argument of an outside program.
struct CommandWord {
  QString text;         ///< without its quotes
  bool quoted = false;  ///< some part of it stood in quotes
  bool operator==(const CommandWord&) const = default;
};

/// Cuts a text at blanks that stand outside quotes.
QList<CommandWord> SplitWords(const QString& text);

/// True for the characters that part words in the batch language: blank, TAB, comma, semicolon and "=".
bool IsDelimiter(QChar c);

}  // namespace torvane
