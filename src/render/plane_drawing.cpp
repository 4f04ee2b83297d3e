#include "render/plane_drawing.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "designer/menu_frame.h"
#include "render/bitmap.h"

namespace torvane {
namespace {

/// A plane and where the lines of the frame lie on it.
struct Canvas {
  QImage& plane;
  const LineMap& lines;
};

/// Both corners included, in any order.
void Fill(const Canvas& canvas, QPoint a, QPoint b, QRgb color) {
  const auto [left, right] = std::minmax({a.x(), b.x()});
  const auto [top, bottom] = std::minmax({canvas.lines(a.y()), canvas.lines(b.y())});
  const QRect area = QRect(QPoint(left, top), QPoint(right, bottom)) & canvas.plane.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(canvas.plane.scanLine(y));
    std::fill(line + area.left(), line + area.right() + 1, color);
  }
}

void SetPixel(const Canvas& canvas, int x, int y, QRgb color) {
  Fill(canvas, {x, y}, {x, y}, color);
}

struct Corners {
  int left, top, right, bottom;

  explicit Corners(const QRect& rectangle)
      : left(rectangle.x()),
        top(rectangle.y()),
        right(rectangle.x() + rectangle.width()),
        bottom(rectangle.y() + rectangle.height()) {}
};

/// The four sides, each `outward` pixels farther out but no longer for it.
void DrawSides(const Canvas& canvas, const Corners& at, int outward, int longer, QRgb color) {
  const int top = at.top - outward;
  const int bottom = at.bottom + outward;
  const int left = at.left - outward;
  const int right = at.right + outward;
  Fill(canvas, {at.left - longer, top}, {at.right + longer, top}, color);
  Fill(canvas, {at.left - longer, bottom}, {at.right + longer, bottom}, color);
  Fill(canvas, {left, at.top - longer}, {left, at.bottom + longer}, color);
  Fill(canvas, {right, at.top - longer}, {right, at.bottom + longer}, color);
}

/// Calls draw(x, y, dx, dy) for each corner; dx and dy point outward.
template <class Draw>
void AtCorners(const Corners& at, Draw draw) {
  draw(at.left, at.top, -1, -1);
  draw(at.right, at.top, 1, -1);
  draw(at.left, at.bottom, -1, 1);
  draw(at.right, at.bottom, 1, 1);
}

/// Takes the corners off a frame of 2 or 3 pixels.
void BlackenCorners(const Canvas& canvas, const Corners& at, int width) {
  const int out = width - 1;
  AtCorners(at, [&](int x, int y, int dx, int dy) {
    SetPixel(canvas, x + dx * out, y + dy * out, kPlaneBlack);
    if (width < 3) return;
    SetPixel(canvas, x + dx * (out - 1), y + dy * out, kPlaneBlack);
    SetPixel(canvas, x + dx * out, y + dy * (out - 1), kPlaneBlack);
    SetPixel(canvas, x + dx * (out - 1), y + dy * (out - 1), kPlaneBlack);
  });
}

/// Quarter arcs of all radii below `width`: each pixel belongs to the radius that its distance rounds to, so that no
/// hole is left between two arcs.
void DrawArcs(const Canvas& canvas, const Corners& at, int width, QRgb color) {
  for (int b = 0; b < width; ++b) {
    int a = width - 1;
    while (std::lround(std::hypot(a, b)) >= width) --a;
    AtCorners(at, [&](int x, int y, int dx, int dy) {
      Fill(canvas, {x, y + dy * b}, {x + dx * a, y + dy * b}, color);
    });
  }
}

}  // namespace

QImage BlackPlane(const Settings& settings) {
  QImage plane(kMenuWidth, MenuHeight(settings), QImage::Format_RGB32);
  plane.fill(Qt::black);
  return plane;
}

void DrawPicture(QImage& plane, const QRect& target, const QImage& picture) {
  if (picture.isNull() || !target.isValid()) return;
  // The painter enlarges well but skips pixels where it shrinks.
  const QSize size = target.size().boundedTo(picture.size());
  const QImage fitting =
      size == picture.size() ? picture : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QPainter painter(&plane);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(target, fitting);
}

void DrawPictureHard(QImage& plane, const QRect& target, const QImage& picture) {
  const auto sourceOf = [](int position, int size, int sourceSize) {
    return static_cast<int>((2LL * position + 1) * sourceSize / (2LL * size));
  };
  const QRect area = target & plane.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(
        picture.constScanLine(sourceOf(y - target.y(), target.height(), picture.height())));
    auto* to = reinterpret_cast<QRgb*>(plane.scanLine(y));
    for (int x = area.left(); x <= area.right(); ++x) {
      to[x] = from[sourceOf(x - target.x(), target.width(), picture.width())];
    }
  }
}

int SameLine(int y) {
  return y;
}

void FillRectangle(QImage& plane, const QRect& rectangle, QRgb color, const LineMap& lines) {
  const Corners at(rectangle);
  Fill({plane, lines}, {at.left, at.top}, {at.right, at.bottom}, color);
}

void DrawFrame(QImage& plane, const QRect& rectangle, int width, QRgb color, const LineMap& lines) {
  const Corners at(rectangle);
  for (int i = 0; i < width; ++i) DrawSides({plane, lines}, at, i, i, color);
}

void DrawRoundedFrame(QImage& plane, const QRect& rectangle, int width, QRgb color, const LineMap& lines) {
  const Canvas canvas{plane, lines};
  const Corners at(rectangle);
  if (width < 4) {
    DrawFrame(plane, rectangle, width, color, lines);
    if (width > 1) BlackenCorners(canvas, at, width);
    return;
  }
  for (int i = 0; i < width; ++i) DrawSides(canvas, at, i, 0, color);
  DrawArcs(canvas, at, width, color);
}

}  // namespace torvane
