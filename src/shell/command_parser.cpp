#include "shell/command_parser.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool IsBlank(QChar c) {
  return c == u' ' || c == u'\t';
}

bool IsOperator(QChar c) {
  return c == u'|' || c == u'&' || c == u'<' || c == u'>';
}

class LineParser {
 public:
  explicit LineParser(const QString& line) : line_(line) {}

  ParsedLine Run() {
    SkipTo(true);
    parsed_.quiet = position_ < line_.size() && line_[position_] == u'@';
    auto joint = CommandChain::Joint::Always;
    bool needed = false;
    for (;;) {
      CommandChain chain;
      chain.joint = joint;
      const End end = ParseChain(chain);
      const bool empty = chain.stages.isEmpty() && chain.conditional.isEmpty();
      if (empty && (needed || end != End::Line)) parsed_.wellFormed = false;
      if (!empty) parsed_.chains << chain;
      if (!parsed_.wellFormed || end == End::Line) return parsed_;
      joint = end == End::And  ? CommandChain::Joint::AfterSuccess
              : end == End::Or ? CommandChain::Joint::AfterFailure
                               : CommandChain::Joint::Always;
      needed = end != End::Ampersand;
    }
  }

 private:
  enum class End { Line, Ampersand, And, Or, Pipe };

  /// Skips blanks, and the signs that may stand before a command.
  void SkipTo(bool stopAtQuiet = false) {
    while (position_ < line_.size() && (IsDelimiter(line_[position_]) || (line_[position_] == u'@' && !stopAtQuiet))) {
      ++position_;
    }
  }

  bool AtWord(QStringView word) const {
    if (QStringView(line_).sliced(position_).left(word.size()).compare(word, Qt::CaseInsensitive) != 0) return false;
    const qsizetype behind = position_ + word.size();
    return behind >= line_.size() || IsDelimiter(line_[behind]) || IsOperator(line_[behind]);
  }

  End ParseChain(CommandChain& chain) {
    for (;;) {
      SkipTo();
      if (chain.stages.isEmpty() && AtWord(u"if") && position_ + 2 < line_.size()) {
        chain.conditional = line_.sliced(position_ + 2);
        position_ = line_.size();
        return End::Line;
      }
      if (AtWord(u"rem")) {
        chain.stages << CommandText{line_.sliced(position_), {}};
        position_ = line_.size();
        return End::Line;
      }
      CommandText stage;
      const End end = ParseStage(stage);
      const bool empty = stage.text.trimmed().isEmpty();
      if (empty && (end == End::Pipe || !chain.stages.isEmpty() || !stage.redirections.isEmpty())) {
        parsed_.wellFormed = false;
      }
      if (!empty) chain.stages << stage;
      if (end != End::Pipe || !parsed_.wellFormed) return end;
    }
  }

  End ParseStage(CommandText& stage) {
    bool quoted = false;
    bool escapedLast = false;
    while (position_ < line_.size()) {
      const QChar c = line_[position_];
      if (c == u'"') quoted = !quoted;
      if (quoted || !(IsOperator(c) || c == u'^')) {
        stage.text += c;
        escapedLast = false;
        ++position_;
      } else if (c == u'^') {
        if (++position_ < line_.size()) stage.text += line_[position_++];
        escapedLast = true;
      } else if (c == u'<' || c == u'>') {
        ParseRedirection(stage, escapedLast);
        if (!parsed_.wellFormed) return End::Line;
      } else {
        ++position_;
        const bool doubled = position_ < line_.size() && line_[position_] == c;
        if (doubled) ++position_;
        if (c == u'|') return doubled ? End::Or : End::Pipe;
        return doubled ? End::And : End::Ampersand;
      }
    }
    return End::Line;
  }

  /// At "<" or ">". A digit that stands alone before it names the handle.
  void ParseRedirection(CommandText& stage, bool escapedLast) {
    Redirection redirection;
    const bool input = line_[position_] == u'<';
    redirection.kind = input ? Redirection::Kind::Read : Redirection::Kind::Write;
    redirection.handle = input ? 0 : 1;
    QString& text = stage.text;
    const qsizetype last = text.size() - 1;
    if (last >= 0 && !escapedLast && text[last] >= u'0' && text[last] <= u'9' &&
        (last == 0 || IsDelimiter(text[last - 1]))) {
      redirection.handle = text[last].digitValue();
      text.chop(1);
    }
    ++position_;
    if (!input && position_ < line_.size() && line_[position_] == u'>') {
      redirection.kind = Redirection::Kind::Append;
      ++position_;
    }
    if (position_ < line_.size() && line_[position_] == u'&') {
      if (position_ + 1 < line_.size() && line_[position_ + 1] >= u'0' && line_[position_ + 1] <= u'9') {
        redirection.kind = Redirection::Kind::Duplicate;
        redirection.duplicateOf = line_[position_ + 1].digitValue();
        position_ += 2;
        stage.redirections << redirection;
        return;
      }
      parsed_.wellFormed = false;
      return;
    }
    while (position_ < line_.size() && IsBlank(line_[position_])) ++position_;
    redirection.target = ParseTarget();
    if (redirection.target.isEmpty()) parsed_.wellFormed = false;
    stage.redirections << redirection;
  }

  QString ParseTarget() {
    QString target;
    bool quoted = false;
    for (; position_ < line_.size(); ++position_) {
      const QChar c = line_[position_];
      if (c == u'"') {
        quoted = !quoted;
      } else if (!quoted && (IsDelimiter(c) || IsOperator(c))) {
        break;
      } else if (!quoted && c == u'^') {
        if (position_ + 1 < line_.size()) target += line_[++position_];
      } else {
        target += c;
      }
    }
    return target;
  }

  const QString& line_;
  qsizetype position_ = 0;
  ParsedLine parsed_;
};

}  // namespace

bool IsDelimiter(QChar c) {
  return IsBlank(c) || c == u',' || c == u';' || c == u'=';
}

ParsedLine ParseCommandLine(const QString& line) {
  return LineParser(line).Run();
}

bool GoesOn(const QString& line) {
  bool quoted = false;
  for (qsizetype i = 0; i < line.size(); ++i) {
    if (line[i] == u'"') quoted = !quoted;
    if (line[i] != u'^' || quoted) continue;
    if (i + 1 == line.size()) return true;
    ++i;
  }
  return false;
}

QList<CommandWord> SplitWords(const QString& text) {
  QList<CommandWord> words;
  CommandWord word;
  bool open = false;
  bool quoted = false;
  for (const QChar c : text) {
    if (IsBlank(c) && !quoted) {
      if (open) words << word;
      word = {};
      open = false;
      continue;
    }
    open = true;
    if (c == u'"') {
      quoted = !quoted;
      word.quoted = true;
    } else {
      word.text += c;
    }
  }
  if (open) words << word;
  return words;
}

}  // namespace torvane
