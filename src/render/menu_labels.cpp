#include "render/menu_labels.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/text.h"
#include "designer/menu_frame.h"
#include "render/bitmap.h"
#include "render/plane_drawing.h"
#include "render/text_painter.h"

namespace torvane {
namespace {

constexpr int kOpaque = 255;

int FieldAsInt(const QString& list, int field) {
  return RoundToInt(GetField(list, field));
}

/// Fields `first` and the next one as an offset.
QPoint FieldsAsOffset(const QString& list, int first) {
  const auto within = [](int value) { return std::clamp(value, -kMaxPrintOffset + 1, kMaxPrintOffset - 1); };
  return {within(FieldAsInt(list, first)), within(FieldAsInt(list, first + 1))};
}

std::optional<QRgb> OutlineColor(const DrawingView& drawing) {
  const std::optional<QString> caption = drawing.OutlineCaption();
  if (!caption) return std::nullopt;
  return MakeARGB(RGBStringToColor(*caption), kOpaque);
}

/// Calls print(position, coverage) for each line of a label.
template <class PrintLine>
void ForEachLine(const LabelView& label, const QImage& plane, PrintLine printLine) {
  const TextGeometry geometry = label.Drawing().Geometry();
  const TextPainter painter(FontOf(geometry));
  for (const TextLine& line : painter.Lines(label.Caption(), TextRectangle(label.Drawing()), geometry.Align)) {
    printLine(line.position, painter.Draw(line, plane.size()));
  }
}

int ClipByte(double thousandths) {
  return std::clamp(static_cast<int>(thousandths / 1000), 0, 255);
}

}  // namespace

QRgb WithValue(QRgb color, double factor) {
  // Value is the largest component, and with hue and saturation kept the others stay in proportion to it.
  const auto scaled = [factor](int component) { return ClipByte(std::nearbyint(component * factor * 1000)); };
  return qRgb(scaled(qRed(color)), scaled(qGreen(color)), scaled(qBlue(color)));
}

void DrawLabelShadows(QImage& visible, const MenuView& menu, const Settings& settings) {
  const QRgb level = qRgb(std::clamp(FieldAsInt(settings.DefShadow, 1), 0, 255), 0, 0);
  const QPoint offset = FieldsAsOffset(settings.DefShadow, 2);
  std::optional<QImage> shadow;
  for (const LabelView& label : menu.Labels()) {
    if (!label.Drawing().Flag(drawing_node::Shadow)) continue;
    if (!shadow) shadow = BlackPlane(settings);
    const bool outlined = OutlineColor(label.Drawing()).has_value();
    ForEachLine(label, *shadow, [&](QPoint position, const LineCoverage& line) {
      if (outlined) OutlinePrint(*shadow, position + offset, line, level);
      Print(*shadow, position + offset, line, level);
    });
  }
  if (!shadow) return;
  MakeMask(*shadow, MaskMode::RedToShadow);
  DrawPicture(visible, visible.rect(), *shadow);
}

void DrawLabels(QImage& visible, const MenuView& menu, const Settings& settings) {
  const double blockFactor = 1 - GetField(settings.DefBlock, 1) / 255;
  const QPoint blockWay = FieldsAsOffset(settings.DefBlock, 2);
  for (const LabelView& label : menu.Labels()) {
    const DrawingView& drawing = label.Drawing();
    const QRgb color = MakeARGB(RGBStringToColor(drawing.ColorCaption()), kOpaque);
    const std::optional<QRgb> outline = OutlineColor(drawing);
    const bool block = drawing.Flag(drawing_node::Block);
    ForEachLine(label, visible, [&](QPoint position, const LineCoverage& line) {
      if (block) BlockPrint(visible, position, blockWay, line, outline.value_or(WithValue(color, blockFactor)));
      if (outline) OutlinePrint(visible, position, line, *outline);
      Print(visible, position, line, color);
    });
  }
}

}  // namespace torvane
