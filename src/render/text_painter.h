#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <vector>

#include "core/font_string.h"
#include "core/menu_view.h"

namespace torvane {

/// The font of a button or label. Damaged values take those of the default font.
FontRecord FontOf(const TextGeometry& geometry);

/// Where a line of a text is printed: the upper left corner of its first character's cell.
struct TextLine {
  QString text;
  QPoint position;
  bool operator==(const TextLine&) const = default;
};

/// A line of text as the share of each pixel that it covers. Made once and printed on every plane, so that the planes
/// agree to the pixel.
struct LineCoverage {
  QImage alpha;   ///< Format_Alpha8; null for a line without ink
  QPoint offset;  ///< of the image's corner from the line's position
};

/// Sets and measures text as the menu pictures need it: sizes are points at 96 dots an inch, measures whole pixels. A
/// family that is not installed is replaced by a sans serif one.
class TextPainter {
 public:
  explicit TextPainter(const FontRecord& font);

  int TextWidth(const QString& line) const { return metrics_.horizontalAdvance(line); }
  int TextHeight() const { return metrics_.height(); }  ///< of one line

  /// The text's lines (split at CR LF) in a text rectangle. A line that is aligned right ends one pixel in front of the
  /// rectangle's right edge; a text of a single one stands one pixel farther left.
  std::vector<TextLine> Lines(const QString& text, const QRect& rectangle, TextAlign align) const;

  /// Draws a line so far as it can be seen on a plane of this size when it is printed up to kMaxPrintOffset pixels from
  /// its position.
  LineCoverage Draw(const TextLine& line, const QSize& plane) const;

 private:
  QFont font_;
  QFontMetrics metrics_;
};

/// Size of a button or label that follows its text: the widest line and 5 pixels, all lines and 3 pixels; an empty
/// text is 5 by 1.
QSize CalculateSize(const FontRecord& font, const QString& text);

/// Shadows and block edges stand at most this many pixels from their text.
inline constexpr int kMaxPrintOffset = 720;

/// Prints a line on an opaque plane (Format_RGB32).
void Print(QImage& plane, QPoint position, const LineCoverage& line, QRgb color);

/// Prints it at the eight neighbour positions.
void OutlinePrint(QImage& plane, QPoint position, const LineCoverage& line, QRgb color);

/// Prints it at each step of a straight way from `position` to `position` + `way`, which gives a solid edge.
void BlockPrint(QImage& plane, QPoint position, QPoint way, const LineCoverage& line, QRgb color);

}  // namespace torvane
