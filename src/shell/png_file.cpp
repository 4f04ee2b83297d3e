#include "shell/png_file.h"

#include <QtEndian>
#include <array>

namespace torvane {
namespace {

std::array<quint32, 256> CrcTable() {
  std::array<quint32, 256> table{};
  for (quint32 i = 0; i < table.size(); ++i) {
    quint32 value = i;
    for (int bit = 0; bit < 8; ++bit) value = value & 1 ? 0xEDB88320 ^ value >> 1 : value >> 1;
    table[i] = value;
  }
  return table;
}

QByteArray BigEndian(quint32 value) {
  QByteArray bytes(4, '\0');
  qToBigEndian(value, bytes.data());
  return bytes;
}

QByteArray Chunk(const QByteArray& name, const QByteArray& data) {
  static const std::array<quint32, 256> kTable = CrcTable();
  const QByteArray body = name + data;
  quint32 crc = 0xFFFFFFFF;
  for (const char byte : body) crc = kTable[(crc ^ quint8(byte)) & 255] ^ crc >> 8;
  return BigEndian(quint32(data.size())) + body + BigEndian(~crc);
}

}  // namespace

QByteArray PngFile(QSize size, const QByteArray& pixels, const QList<quint32>& palette) {
  constexpr char kBitDepth = 8;
  constexpr char kIndexed = 3;
  QByteArray header = BigEndian(quint32(size.width())) + BigEndian(quint32(size.height()));
  header += QByteArray(1, kBitDepth) + QByteArray(1, kIndexed) + QByteArray(3, '\0');
  QByteArray colors;
  QByteArray alpha;
  for (const quint32 color : palette) {
    colors += BigEndian(color).sliced(1);
    alpha += char(color >> 24);
  }
  QByteArray lines;
  lines.reserve(qsizetype(size.width() + 1) * size.height());
  for (int y = 0; y < size.height(); ++y) {
    lines += '\0';  // no filter
    lines += QByteArrayView(pixels).sliced(qsizetype(y) * size.width(), size.width());
  }
  // qCompress puts the length in front.
  return QByteArray("\x89PNG\r\n\x1A\n", 8) + Chunk("IHDR", header) + Chunk("PLTE", colors) + Chunk("tRNS", alpha) +
         Chunk("IDAT", qCompress(lines).sliced(4)) + Chunk("IEND", {});
}

}  // namespace torvane
