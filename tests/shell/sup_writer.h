#pragma once

#include <QtEndian>

#include "shell/subpicture.h"

namespace torvane::test {

/// Writes subtitle streams in DVD form, the other way round than the program reads them.
class SupWriter {
 public:
  static QByteArray Unit(const Subpicture& picture) {
    QByteArray unit(4, '\0');
    const auto top = quint16(unit.size());
    unit += Field(picture, 0);
    const auto bottom = quint16(unit.size());
    unit += Field(picture, 1);
    const qsizetype commands = unit.size();
    const qsizetype stop = commands + 24 + 4;
    unit += Number(quint16(picture.start / 1024)) + Number(quint16(picture.end ? stop : commands));
    unit += QByteArray(1, picture.forced ? 0 : 1) + '\x03' + Nibbles(picture.colors) + '\x04' +
            Nibbles(picture.contrast) + '\x05' + Span(picture.area.left(), picture.area.right()) +
            Span(picture.area.top(), picture.area.bottom()) + '\x06' + Number(top) + Number(bottom) + '\xFF';
    while (unit.size() < stop) unit += '\xFF';
    if (picture.end) unit += Number(quint16(*picture.end / 1024)) + Number(quint16(stop)) + "\x02\xFF";
    qToBigEndian(quint16(unit.size()), unit.data());
    qToBigEndian(quint16(commands), unit.data() + 2);
    return unit;
  }

  static QByteArray Record(quint32 pts, const QByteArray& unit) {
    QByteArray time(8, '\0');
    qToLittleEndian(pts, time.data());
    return "SP" + time + unit;
  }

 private:
  static QByteArray Number(quint16 value) {
    QByteArray bytes(2, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
  }
  static QByteArray Nibbles(const std::array<int, 4>& values) {
    return Number(quint16(values[3] << 12 | values[2] << 8 | values[1] << 4 | values[0]));
  }
  static QByteArray Span(int from, int to) {
    return QByteArray(1, char(from >> 4)) + char((from & 15) << 4 | to >> 8) + char(to);
  }

  static QByteArray Field(const Subpicture& picture, int field) {
    QByteArray bytes;
    const int width = picture.area.width();
    for (int y = field; y < picture.area.height(); y += 2) {
      const QByteArrayView line = QByteArrayView(picture.pixels).sliced(qsizetype(y) * width, width);
      QByteArray nibbles;
      for (int x = 0; x < width;) {
        int length = 1;
        while (x + length < width && line[x + length] == line[x] && length < 255) ++length;
        const bool toEnd = x + length == width && length > 63;
        const int code = (toEnd ? 0 : length) << 2 | line[x];
        const int count = toEnd || length > 63 ? 4 : length > 15 ? 3 : length > 3 ? 2 : 1;
        for (int i = count - 1; i >= 0; --i) nibbles += char(code >> 4 * i & 15);
        x += length;
      }
      if (nibbles.size() % 2) nibbles += '\0';
      for (qsizetype i = 0; i < nibbles.size(); i += 2) bytes += char(nibbles[i] << 4 | nibbles[i + 1]);
    }
    return bytes;
  }
};

}  // namespace torvane::test
