#include "render/text_painter.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kLargestFont = 1638;  ///< points

QFont MakeFont(const FontRecord& record) {
  QFont font(record.Name);
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(std::max(RoundToInt(std::min(record.Size, kLargestFont) * 96 / 72), 1));
  font.setBold(record.Bold);
  font.setItalic(record.Italic);
  font.setStrikeOut(record.Strikethrough);
  font.setUnderline(record.Underline);
  // Whole grey pixels and unhinted shapes: a television has no red, green and blue stripes, and the look of a menu must
  // not depend on the desktop's settings.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  return font;
}

/// One colour over another, each component rounded to nearest. Red and blue go through the same multiplication.
QRgb Mixed(QRgb below, QRgb above, QRgb alpha) {
  constexpr QRgb kRedAndBlue = 0x00FF00FF;
  const auto mix = [alpha](QRgb low, QRgb high) {
    const QRgb sum = (high & kRedAndBlue) * alpha + (low & kRedAndBlue) * (255 - alpha) + 0x00800080;
    return ((sum + ((sum >> 8) & kRedAndBlue)) >> 8) & kRedAndBlue;
  };
  return 0xFF000000 | mix(below, above) | mix(below >> 8 & 0xFF, above >> 8 & 0xFF) << 8;
}

QImage AlphaOf(const QImage& picture) {
  QImage alpha(picture.size(), QImage::Format_Alpha8);
  for (int y = 0; y < picture.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    std::transform(from, from + picture.width(), alpha.scanLine(y),
                   [](QRgb pixel) { return static_cast<uchar>(qAlpha(pixel)); });
  }
  return alpha;
}

}  // namespace

FontRecord FontOf(const TextGeometry& geometry) {
  FontRecord font;
  if (!geometry.FontName.isEmpty()) font.Name = geometry.FontName;
  if (geometry.FontSize > 0) font.Size = geometry.FontSize;
  font.Bold = geometry.Bold;
  font.Italic = geometry.Italic;
  font.Strikethrough = geometry.Strikethru;
  font.Underline = geometry.Underline;
  return font;
}

TextPainter::TextPainter(const FontRecord& font) : font_(MakeFont(font)), metrics_(font_) {}

std::vector<TextLine> TextPainter::Lines(const QString& text, const QRect& rectangle, TextAlign align) const {
  const QStringList texts = text.split(u"\r\n"_s);
  std::vector<TextLine> lines;
  int y = rectangle.y() + 1;
  for (const QString& line : texts) {
    const int width = TextWidth(line);
    int x = rectangle.x();
    switch (align) {
      case TextAlign::Left:
        x += 2;
        break;
      case TextAlign::Right:
        x += rectangle.width() - width - (texts.size() == 1 ? 2 : 1);
        break;
      case TextAlign::Centre:
        x += RoundToInt(rectangle.width() / 2.0) - RoundToInt(width / 2.0);
        break;
    }
    lines.push_back({line, {x, y}});
    y += TextHeight();
  }
  return lines;
}

LineCoverage TextPainter::Draw(const TextLine& line, const QSize& plane) const {
  const int margin = 2 + font_.pixelSize() / 4;
  const QPoint baseline(0, metrics_.ascent());
  const QRect ink = metrics_.boundingRect(line.text)
                        .translated(baseline)
                        .united(QRect(0, 0, TextWidth(line.text), TextHeight()))
                        .adjusted(-margin, -margin, margin, margin);
  const QRect visible = QRect(QPoint(0, 0), plane)
                            .adjusted(-kMaxPrintOffset, -kMaxPrintOffset, kMaxPrintOffset, kMaxPrintOffset)
                            .translated(-line.position);
  const QRect area = ink & visible;
  if (area.isEmpty()) return {};

  QImage picture(area.size(), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setFont(font_);
  painter.setPen(Qt::white);
  painter.drawText(baseline - area.topLeft(), line.text);
  painter.end();
  return {AlphaOf(picture), area.topLeft()};
}

QSize CalculateSize(const FontRecord& font, const QString& text) {
  const TextPainter painter(font);
  const QStringList lines = text.split(u"\r\n"_s);
  int width = 0;
  for (const QString& line : lines) width = std::max(width, painter.TextWidth(line));
  return {width + 5, text.isEmpty() ? 1 : static_cast<int>(lines.size()) * painter.TextHeight() + 3};
}

void Print(QImage& plane, QPoint position, const LineCoverage& line, QRgb color) {
  const QPoint corner = position + line.offset;
  const QRect area = QRect(corner, line.alpha.size()) & plane.rect();
  const int width = area.width();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const uchar* alpha = line.alpha.constScanLine(y - corner.y()) + area.left() - corner.x();
    auto* pixels = reinterpret_cast<QRgb*>(plane.scanLine(y)) + area.left();
    for (int x = 0; x < width; ++x) {
      if (alpha[x] == 0) continue;
      pixels[x] = alpha[x] == 255 ? color : Mixed(pixels[x], color, alpha[x]);
    }
  }
}

void OutlinePrint(QImage& plane, QPoint position, const LineCoverage& line, QRgb color) {
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      if (dx != 0 || dy != 0) Print(plane, position + QPoint(dx, dy), line, color);
    }
  }
}

void BlockPrint(QImage& plane, QPoint position, QPoint way, const LineCoverage& line, QRgb color) {
  const QPoint size(std::abs(way.x()), std::abs(way.y()));
  const QPoint alongX(way.x() < 0 ? -1 : 1, 0);
  const QPoint alongY(0, way.y() < 0 ? -1 : 1);
  const bool wide = size.x() >= size.y();
  const int steps = wide ? size.x() : size.y();
  const int sideSteps = wide ? size.y() : size.x();
  int error = steps / 2;
  for (int i = 0; i <= steps; ++i) {
    Print(plane, position, line, color);
    position += wide ? alongX : alongY;
    error -= sideSteps;
    if (error < 0) {
      position += wide ? alongY : alongX;
      error += steps;
    }
  }
}

}  // namespace torvane
