#include "platform/dos_code_page.h"

#include <QStringDecoder>
#include <array>

namespace torvane {
namespace {

struct DosLetter {
  char16_t letter;
  unsigned char byte;
};

constexpr std::array<DosLetter, 7> kDosLetters{{{u'ä', 132},
                                                {u'ö', 148},
                                                {u'ü', 129},
                                                {u'Ä', 142},
                                                {u'Ö', 153},
                                                {u'Ü', 154},
                                                {u'ß', 225}}};

const DosLetter* LetterOfByte(unsigned char byte) {
  for (const DosLetter& entry : kDosLetters) {
    if (entry.byte == byte) return &entry;
  }
  return nullptr;
}

/// Length of the valid UTF-8 sequence of two to four bytes at the start of `bytes`, or 0.
qsizetype Utf8SequenceLength(QByteArrayView bytes) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return 0;
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder.decode(bytes.first(length));
  return decoder.hasError() || decoded.isEmpty() ? 0 : length;
}

bool IsSharpSWithUmlauts(QByteArrayView sequence) {
  return sequence.size() == 3 && static_cast<unsigned char>(sequence[0]) == 225 &&
         LetterOfByte(static_cast<unsigned char>(sequence[1])) && LetterOfByte(static_cast<unsigned char>(sequence[2]));
}

}  // namespace

QByteArray ToDosCodePage(const QString& text) {
  QByteArray bytes;
  qsizetype copied = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    for (const DosLetter& entry : kDosLetters) {
      if (text[i] != QChar(entry.letter)) continue;
      bytes += QStringView(text).sliced(copied, i - copied).toUtf8();
      bytes += static_cast<char>(entry.byte);
      copied = i + 1;
    }
  }
  return bytes + QStringView(text).sliced(copied).toUtf8();
}

QString FromDosCodePage(const QByteArray& bytes) {
  QString text;
  const QByteArrayView view(bytes);
  for (qsizetype i = 0; i < view.size();) {
    const auto byte = static_cast<unsigned char>(view[i]);
    if (byte < 128) {
      text += QChar(char16_t(byte));
      ++i;
      continue;
    }
    const qsizetype length = Utf8SequenceLength(view.sliced(i));
    if (length > 0 && !IsSharpSWithUmlauts(view.sliced(i, length))) {
      text += QString::fromUtf8(view.sliced(i, length));
      i += length;
      continue;
    }
    const DosLetter* entry = LetterOfByte(byte);
    text += entry ? QChar(entry->letter) : QChar(QChar::ReplacementCharacter);
    ++i;
  }
  return text;
}

}  // namespace torvane
