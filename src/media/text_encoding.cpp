#include "media/text_encoding.h"

#include <QStringDecoder>
#include <algorithm>

namespace torvane {
namespace {

bool HasUtf16Mark(const QByteArray& text) {
  return text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF");
}

}  // namespace

TextEncoding EncodingOfText(const QByteArray& text) {
  if (HasUtf16Mark(text)) return TextEncoding::Utf16;
  if (std::none_of(text.begin(), text.end(), [](char c) { return quint8(c) > 127; })) return TextEncoding::Unstated;
  return text.isValidUtf8() ? TextEncoding::Utf8 : TextEncoding::Unstated;
}

QByteArray TextAsUtf8(const QByteArray& text) {
  // Both decoders take the mark away.
  QStringDecoder decoder(HasUtf16Mark(text) ? QStringDecoder::Utf16 : QStringDecoder::Utf8);
  return QString(decoder.decode(text)).toUtf8();
}

}  // namespace torvane
