#pragma once

#include <QList>
#include <QString>

namespace torvane {

/// Name and value of an attribute. `value` stands as in the file, without its quotes; `space` is what stands before.
struct LooseAttribute {
  QString space;
  QString name;
  QString value;
};

/// A tag, a comment, or the text between them.
struct LoosePiece {
  enum class Kind { Text, OpenTag, EmptyTag, CloseTag, Comment, Verbatim };

  Kind kind = Kind::Text;
  QString text;  ///< of Text, Comment (without its marks) and Verbatim
  QString name;  ///< of a tag
  QList<LooseAttribute> attributes;
  QString tail;  ///< blanks before the end of a tag
};

/// Takes apart XML that was written without regard to what its texts hold: bare "&" and "<" in texts and values, quotes
/// inside values, "--" and "-->" inside comments. Where a rule is needed it is this:
/// - In an element that holds commands (`pre`, `post`, `button`, `fpc`, `cell`) a "<" begins a tag only before a name
/// of
///   a control file element; elsewhere before any letter.
/// - A value ends at the quote that the tag's end or a further attribute follows, else at the first quote.
/// - A comment ends at the "-->" that the line's end or a tag follows, else at the first one.
///
/// Nothing is refused: what makes no tag is text.
QList<LoosePiece> ParseLooseXml(const QString& text);

/// Writes the pieces as well-formed text as far as the tags match, in the same lines. Names of control file elements
/// come out in small letters, and so do the names of their attributes. An entity such as "&lt;" stays one.
QString ToWellFormed(const QList<LoosePiece>& pieces);

/// True for an element that holds commands of the player's language.
bool HoldsCommands(const QString& elementName);

/// Turns the five named entities and character numbers of a value into what they stand for.
QString DecodeEntities(const QString& value);

/// The value that stands for a text in a file whatever the text holds.
QString EncodeValue(const QString& text);

}  // namespace torvane
