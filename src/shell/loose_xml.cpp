#include "shell/loose_xml.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include "core/control_elements.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

qsizetype SkipSpace(const QString& text, qsizetype position) {
  while (position < text.size() && text[position].isSpace()) ++position;
  return position;
}

qsizetype SkipName(const QString& text, qsizetype position) {
  while (position < text.size() && (text[position].isLetterOrNumber() || u"_:.-"_s.contains(text[position])))
    ++position;
  return position;
}

class LooseParser {
 public:
  explicit LooseParser(const QString& text) : text_(text) {}

  QList<LoosePiece> Run() {
    while (position_ < text_.size()) {
      if (text_[position_] != u'<' || !TakeMarkup()) pending_ += text_[position_++];
    }
    Flush();
    return pieces_;
  }

 private:
  void Flush() {
    if (!pending_.isEmpty()) pieces_ << LoosePiece{LoosePiece::Kind::Text, pending_, {}, {}, {}};
    pending_.clear();
  }

  void Add(const LoosePiece& piece, qsizetype end) {
    Flush();
    pieces_ << piece;
    position_ = end;
  }

  bool At(QStringView mark) const { return QStringView(text_).sliced(position_).startsWith(mark); }

  bool TakeMarkup() {
    if (At(u"<!--")) return TakeComment();
    if (At(u"<![CDATA[")) return TakeVerbatim(u"]]>"_s);
    if (command_.isEmpty() && At(u"<?")) return TakeVerbatim(u"?>"_s);
    if (command_.isEmpty() && At(u"<!")) return TakeVerbatim(u">"_s);
    return TakeTag();
  }

  /// Where a mark stands next. One that was not found once is not looked for again.
  qsizetype Find(const QString& mark, qsizetype from) {
    if (missing_.contains(mark)) return -1;
    const qsizetype found = text_.indexOf(mark, from);
    if (found < 0) missing_ << mark;
    return found;
  }

  bool TakeVerbatim(const QString& mark) {
    const qsizetype end = Find(mark, position_);
    if (end < 0) return false;
    const qsizetype behind = end + mark.size();
    Add({LoosePiece::Kind::Verbatim, text_.sliced(position_, behind - position_), {}, {}, {}}, behind);
    return true;
  }

  bool TakeComment() {
    const qsizetype begin = position_ + 4;
    const qsizetype first = Find(u"-->"_s, begin);
    if (first < 0) return false;
    qsizetype end = first;
    for (qsizetype at = first; at >= 0; at = text_.indexOf(u"-->", at + 1)) {
      if (text_.sliced(begin, at - begin).contains(u'\n') && at != first) break;
      if (!EndsLineOrMeetsTag(at + 3)) continue;
      end = at;
      break;
    }
    Add({LoosePiece::Kind::Comment, text_.sliced(begin, end - begin), {}, {}, {}}, end + 3);
    return true;
  }

  bool EndsLineOrMeetsTag(qsizetype position) const {
    while (position < text_.size() && (text_[position] == u' ' || text_[position] == u'\t')) ++position;
    if (position >= text_.size() || text_[position] == u'\r' || text_[position] == u'\n') return true;
    if (text_[position] != u'<') return false;
    if (QStringView(text_).sliced(position).startsWith(u"<!--")) return true;
    const qsizetype name = position + (position + 1 < text_.size() && text_[position + 1] == u'/' ? 2 : 1);
    return IsControlElement(text_.sliced(name, SkipName(text_, name) - name).toLower());
  }

  bool TakeTag() {
    qsizetype at = position_ + 1;
    const bool closing = at < text_.size() && text_[at] == u'/';
    if (closing) ++at;
    if (at >= text_.size() || !text_[at].isLetter()) return false;
    LoosePiece tag;
    const qsizetype nameEnd = SkipName(text_, at);
    tag.name = text_.sliced(at, nameEnd - at);
    const QString lower = tag.name.toLower();
    if (IsControlElement(lower)) tag.name = lower;
    if (!command_.isEmpty() && !IsControlElement(lower)) return false;
    at = nameEnd;
    for (;;) {
      const qsizetype begin = at;
      at = SkipSpace(text_, at);
      if (at >= text_.size()) return false;
      const QString space = text_.sliced(begin, at - begin);
      const bool empty = !closing && QStringView(text_).sliced(at).startsWith(u"/>");
      if (empty || text_[at] == u'>') {
        tag.kind = closing ? LoosePiece::Kind::CloseTag
                   : empty ? LoosePiece::Kind::EmptyTag
                           : LoosePiece::Kind::OpenTag;
        tag.tail = space;
        command_ = tag.kind == LoosePiece::Kind::OpenTag && HoldsCommands(tag.name) ? tag.name : QString();
        Add(tag, at + (empty ? 2 : 1));
        return true;
      }
      if (closing || (space.isEmpty() && tag.attributes.isEmpty())) return false;
      LooseAttribute attribute{space.isEmpty() ? u" "_s : space, {}, {}};
      if (!TakeAttribute(attribute, at)) return false;
      if (IsControlElement(tag.name)) attribute.name = attribute.name.toLower();
      tag.attributes << attribute;
    }
  }

  bool TakeAttribute(LooseAttribute& attribute, qsizetype& at) const {
    const qsizetype nameEnd = SkipName(text_, at);
    if (nameEnd == at) return false;
    attribute.name = text_.sliced(at, nameEnd - at);
    at = SkipSpace(text_, nameEnd);
    if (at >= text_.size() || text_[at] != u'=') return false;
    at = SkipSpace(text_, at + 1);
    if (at >= text_.size()) return false;
    const QChar quote = text_[at];
    if (quote != u'"' && quote != u'\'') {
      const qsizetype begin = at;
      while (at < text_.size() && !text_[at].isSpace() && text_[at] != u'>' && text_[at] != u'<' &&
             !QStringView(text_).sliced(at).startsWith(u"/>")) {
        ++at;
      }
      attribute.value = text_.sliced(begin, at - begin);
      return at > begin;
    }
    const qsizetype end = ValueEnd(at + 1, quote);
    if (end < 0) return false;
    attribute.value = text_.sliced(at + 1, end - at - 1);
    at = end + 1;
    return true;
  }

  qsizetype ValueEnd(qsizetype begin, QChar quote) const {
    static const QRegularExpression kFollows(u"\\G\\s*(?:/?>|\\?>|[\\w:.-]+\\s*=\\s*[\"'])"_s);
    const qsizetype first = text_.indexOf(quote, begin);
    int candidates = 0;
    for (qsizetype at = first; at >= 0 && candidates < 16; at = text_.indexOf(quote, at + 1), ++candidates) {
      if (kFollows.match(text_, at + 1).hasMatch()) return at;
      // A value never goes on in another line.
      const qsizetype lineEnd = text_.indexOf(u'\n', at);
      if (lineEnd >= 0 && lineEnd < text_.indexOf(quote, at + 1)) break;
    }
    return first;
  }

  const QString& text_;
  qsizetype position_ = 0;
  QString command_;  // the open element that holds commands
  QString pending_;
  QSet<QString> missing_;
  QList<LoosePiece> pieces_;
};

/// Characters that no XML file may hold become blanks.
QString OnlyLegal(QString text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    const bool control = c.unicode() < 32 && c != u'\t' && c != u'\n' && c != u'\r';
    const bool paired = (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ||
                        (c.isLowSurrogate() && i > 0 && text[i - 1].isHighSurrogate());
    if (control || c.unicode() >= 0xFFFE || (c.isSurrogate() && !paired)) text[i] = u' ';
  }
  return text;
}

struct Entity {
  qsizetype length = 0;  // 0: there is none
  char32_t character = 0;
};

bool IsLegal(char32_t c) {
  return c == u'\t' || c == u'\n' || c == u'\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

/// The entity at an "&".
Entity EntityAt(QStringView text) {
  static const QRegularExpression kEntity(u"^&(?:(amp|lt|gt|quot|apos)|#(\\d{1,7})|#x([0-9A-Fa-f]{1,6}));"_s);
  static const QHash<QString, char32_t> kNamed{
      {u"amp"_s, U'&'}, {u"lt"_s, U'<'}, {u"gt"_s, U'>'}, {u"quot"_s, U'"'}, {u"apos"_s, U'\''}};
  const QRegularExpressionMatch match = kEntity.match(text.left(12).toString());
  if (!match.hasMatch()) return {};
  const char32_t character = !match.captured(1).isEmpty()   ? kNamed[match.captured(1)]
                             : !match.captured(2).isEmpty() ? match.captured(2).toUInt()
                                                            : match.captured(3).toUInt(nullptr, 16);
  return IsLegal(character) ? Entity{match.capturedLength(), character} : Entity{};
}

QString EscapeBare(const QString& text, bool value) {
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c == u'&' && EntityAt(QStringView(text).sliced(i)).length == 0) {
      result += u"&amp;";
    } else if (c == u'<') {
      result += u"&lt;";
    } else if (c == u'"' && value) {
      result += u"&quot;";
    } else if (c == u'>' && !value && result.endsWith(u"]]")) {
      result += u"&gt;";
    } else {
      result += c;
    }
  }
  return OnlyLegal(result);
}

QString MendedComment(QString text) {
  while (text.contains(u"--")) text.replace(u"--"_s, u"- -"_s);
  if (text.endsWith(u'-')) text += u' ';
  return OnlyLegal(text);
}

}  // namespace

bool HoldsCommands(const QString& elementName) {
  static const QSet<QString> kNames{u"pre"_s, u"post"_s, u"button"_s, u"fpc"_s, u"cell"_s};
  return kNames.contains(elementName);
}

QList<LoosePiece> ParseLooseXml(const QString& text) {
  return LooseParser(text).Run();
}

QString ToWellFormed(const QList<LoosePiece>& pieces) {
  QString result;
  for (const LoosePiece& piece : pieces) {
    switch (piece.kind) {
      case LoosePiece::Kind::Text:
        result += EscapeBare(piece.text, false);
        break;
      case LoosePiece::Kind::Comment:
        result += u"<!--"_s + MendedComment(piece.text) + u"-->"_s;
        break;
      case LoosePiece::Kind::Verbatim:
        result += OnlyLegal(piece.text);
        break;
      case LoosePiece::Kind::CloseTag:
        result += u"</"_s + piece.name + piece.tail + u'>';
        break;
      case LoosePiece::Kind::OpenTag:
      case LoosePiece::Kind::EmptyTag:
        result += u'<' + piece.name;
        for (const LooseAttribute& attribute : piece.attributes) {
          result += attribute.space + attribute.name + u"=\""_s + EscapeBare(attribute.value, true) + u'"';
        }
        result += piece.tail + (piece.kind == LoosePiece::Kind::EmptyTag ? u"/>"_s : u">"_s);
        break;
    }
  }
  return result;
}

QString DecodeEntities(const QString& value) {
  QString result;
  for (qsizetype i = 0; i < value.size();) {
    const Entity entity = value[i] == u'&' ? EntityAt(QStringView(value).sliced(i)) : Entity{};
    if (entity.length == 0) {
      result += value[i++];
    } else {
      result += QString::fromUcs4(&entity.character, 1);
      i += entity.length;
    }
  }
  return result;
}

QString EncodeValue(const QString& text) {
  QString result = text;
  result.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'"', u"&quot;"_s);
  result.replace(u'\n', u"&#10;"_s).replace(u'\t', u"&#09;"_s);
  return result;
}

}  // namespace torvane
