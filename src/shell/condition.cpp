#include "shell/condition.h"

#include "platform/host_files.h"
#include "shell/command_parser.h"
#include "shell/current_directory.h"
#include "shell/dos_wildcard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class ConditionReader {
 public:
  explicit ConditionReader(const QString& text) : text_(text) {}

  /// The next word with its quotes; it ends at a blank, and before "==" unless that is wanted as part of it.
  QString Word() {
    SkipDelimiters();
    return TakeWord();
  }

  /// Behind "==" only blanks part it from its right side, which may be empty no more than the left one.
  QString TakeWord() {
    QString word;
    bool quoted = false;
    for (; position_ < text_.size(); ++position_) {
      const QChar c = text_[position_];
      if (c == u'"') quoted = !quoted;
      if (!quoted && (IsDelimiter(c) || c == u'(')) break;
      word += c;
    }
    return word;
  }

  bool TakeEquals() {
    qsizetype at = position_;
    while (at < text_.size() && (text_[at] == u' ' || text_[at] == u'\t')) ++at;
    if (!QStringView(text_).sliced(at).startsWith(u"==")) return false;
    position_ = at + 2;
    return true;
  }

  QString Rest() const { return text_.sliced(position_); }

 private:
  void SkipDelimiters() {
    while (position_ < text_.size() && IsDelimiter(text_[position_])) ++position_;
  }

  const QString& text_;
  qsizetype position_ = 0;
};

bool Exists(QString path) {
  path = ResolveDosPath(path.remove(u'"'));
  if (path.endsWith(u"\\nul", Qt::CaseInsensitive)) return HostFiles::DirExists(path.chopped(4));
  return HostFiles::DirExists(path) || !FilesOf(path).isEmpty();
}

/// EQU, NEQ, LSS, LEQ, GTR, GEQ: as numbers where both sides are numbers, else as texts.
std::optional<bool> Compare(const QString& left, const QString& comparison, const QString& right,
                            Qt::CaseSensitivity sensitivity) {
  bool leftIsNumber = false;
  bool rightIsNumber = false;
  const int a = left.toInt(&leftIsNumber);
  const int b = right.toInt(&rightIsNumber);
  const int order = leftIsNumber && rightIsNumber ? (a > b) - (a < b) : QString::compare(left, right, sensitivity);
  const QString name = comparison.toUpper();
  if (name == u"EQU") return order == 0;
  if (name == u"NEQ") return order != 0;
  if (name == u"LSS") return order < 0;
  if (name == u"LEQ") return order <= 0;
  if (name == u"GTR") return order > 0;
  if (name == u"GEQ") return order >= 0;
  return std::nullopt;
}

}  // namespace

std::optional<Condition> TestCondition(const QString& text, int errorLevel, const BatchVariables& variables) {
  ConditionReader reader(text);
  auto sensitivity = Qt::CaseSensitive;
  bool negated = false;
  QString word = reader.Word();
  for (;; word = reader.Word()) {
    if (word.compare(u"/i", Qt::CaseInsensitive) == 0) {
      sensitivity = Qt::CaseInsensitive;
    } else if (word.compare(u"not", Qt::CaseInsensitive) == 0 && !negated) {
      negated = true;
    } else {
      break;
    }
  }
  const QString name = word.toLower();
  std::optional<bool> holds;
  if (reader.TakeEquals()) {
    const QString right = reader.Word();
    if (!word.isEmpty() && !right.isEmpty()) holds = QString::compare(word, right, sensitivity) == 0;
  } else if (name == u"errorlevel") {
    bool isNumber = false;
    const int level = reader.Word().toInt(&isNumber);
    if (isNumber) holds = errorLevel >= level;
  } else if (name == u"exist") {
    const QString path = reader.Word();
    if (!path.isEmpty()) holds = Exists(path);
  } else if (name == u"defined") {
    const QString variable = reader.Word();
    if (!variable.isEmpty()) holds = variables.Value(variable).has_value();
  } else {
    const QString comparison = reader.Word();
    const QString right = reader.Word();
    if (!right.isEmpty()) holds = Compare(word, comparison, right, sensitivity);
  }
  if (!holds || reader.Rest().trimmed().isEmpty()) return std::nullopt;
  return Condition{*holds != negated, reader.Rest()};
}

}  // namespace torvane
