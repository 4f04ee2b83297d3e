#pragma once

#include <QByteArray>
#include <initializer_list>

#include "sparse_file.h"

namespace torvane::test {

// The headers of MPEG streams, each as its bytes.

inline QByteArray Bytes(std::initializer_list<int> values) {
  QByteArray bytes;
  for (const int value : values) bytes += char(value);
  return bytes;
}

inline QByteArray Code(int code) {
  return Bytes({0, 0, 1, code});
}

/// MPEG-2 pack header, ISO/IEC 13818-1, 2.5.3.3: marker bits between the parts of the 33-bit SCR base.
inline QByteArray Pack(qint64 scr) {
  quint64 bits = 1;  // 01
  bits = bits << 3 | (quint64(scr) >> 30 & 0x7);
  bits = bits << 1 | 1;
  bits = bits << 15 | (quint64(scr) >> 15 & 0x7FFF);
  bits = bits << 1 | 1;
  bits = bits << 15 | (quint64(scr) & 0x7FFF);
  bits = bits << 1 | 1;
  bits = bits << 9 << 1 | 1;  // SCR extension 0, marker
  QByteArray pack = Code(0xBA);
  for (int shift = 40; shift >= 0; shift -= 8) pack += char(bits >> shift & 0xFF);
  return pack + Bytes({0x01, 0x89, 0xC3, 0xF8});  // mux rate, no stuffing
}

/// MPEG-1 pack header, ISO/IEC 11172-1, 2.4.3.2, with SCR 0.
inline QByteArray Mpeg1Pack() {
  return Code(0xBA) + Bytes({0x21, 0x00, 0x01, 0x00, 0x01, 0x80, 0x1B, 0x91});
}

inline QByteArray Sequence(int width, int height, int aspectCode, int rateCode) {
  return Code(0xB3) + Bytes({width >> 4, (width & 0xF) << 4 | height >> 8, height & 0xFF, aspectCode << 4 | rateCode,
                             0x30, 0xD4, 0x23, 0x80});
}

inline QByteArray SequenceExtension() {
  return Code(0xB5) + Bytes({0x14, 0x82, 0x00, 0x01, 0x00, 0x00});
}

inline QByteArray Gop(int hours, int minutes, int seconds, int pictures, bool drop = false) {
  return Code(0xB8) + Bytes({(drop ? 0x80 : 0) | hours << 2 | minutes >> 4, (minutes & 0xF) << 4 | 0x08 | seconds >> 3,
                             (seconds & 7) << 5 | pictures >> 1, (pictures & 1) << 7});
}

inline QByteArray Pictures(int count) {
  return QByteArray(Code(0x00) + Bytes({0x00, 0x0F, 0xFF, 0xF8})).repeated(count);
}

inline QByteArray VideoPacket() {
  return Code(0xE0) + Bytes({0x07, 0xEC, 0x81, 0x00, 0x00});
}

/// The two packets of a navigation pack, shortened to their headers.
inline QByteArray Navigation() {
  return Code(0xBF) + Bytes({0x03, 0xD4, 0x00}) + Code(0xBF) + Bytes({0x03, 0xFA, 0x01});
}

inline constexpr qint64 kFirstSCR = 90000;

/// A program stream as a DVD has it: sequence header behind a navigation pack, a pack each tenth of the file, and a
/// last GOP of 25 pictures in front of the padding. It lasts `seconds` (1 to 59) by both clocks.
inline SparseFile DvdStream(qint64 size, int seconds) {
  SparseFile file(size);
  file.Put(0, Pack(kFirstSCR) + Navigation());
  file.Put(2048, Pack(kFirstSCR + 100) + VideoPacket() + Sequence(720, 576, 3, 3) + SequenceExtension() +
                     Gop(0, 0, 0, 0) + Pictures(1));
  for (int i = 1; i <= 9; ++i) file.Put(size * i / 10 + 5000, Pack(kFirstSCR + i * seconds * 9000));
  file.Put(size - 4000, Pack(kFirstSCR + seconds * 90000) + Gop(0, 0, seconds - 1, 0) + Pictures(25));
  return file;
}

}  // namespace torvane::test
