#pragma once

#include <QImage>
#include <set>

namespace torvane::test {

template <class Visit>
void ForPixels(const QImage& picture, Visit visit) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) visit(QPoint(x, y), picture.pixel(x, y));
  }
}

inline std::set<QRgb> ColorsOf(const QImage& picture) {
  std::set<QRgb> colors;
  ForPixels(picture, [&](QPoint, QRgb pixel) { colors.insert(pixel); });
  return colors;
}

/// The smallest rectangle around all pixels for which `test` is true.
template <class Test>
QRect AreaOf(const QImage& picture, Test test) {
  QRect area;
  ForPixels(picture, [&](QPoint at, QRgb pixel) {
    if (test(pixel)) area |= QRect(at, QSize(1, 1));
  });
  return area;
}

inline QRect AreaOf(const QImage& picture, QRgb color) {
  return AreaOf(picture, [color](QRgb pixel) { return pixel == color; });
}

inline int CountOf(const QImage& picture, QRgb color) {
  int count = 0;
  ForPixels(picture, [&](QPoint, QRgb pixel) { count += pixel == color ? 1 : 0; });
  return count;
}

}  // namespace torvane::test
