#pragma once

#include <QByteArray>

namespace torvane {

/// How a text states by itself what its bytes mean.
enum class TextEncoding {
  Unstated,  ///< 7-bit text, or one of the many 8-bit character sets
  Utf8,      ///< valid UTF-8 with bytes above 127, with a mark at its start or without
  Utf16      ///< with a mark at its start, of either byte order
};

TextEncoding EncodingOfText(const QByteArray& text);

/// The same text in UTF-8 without a mark, of one that is Utf8 or Utf16. A half or wrong sign becomes U+FFFD.
QByteArray TextAsUtf8(const QByteArray& text);

}  // namespace torvane
