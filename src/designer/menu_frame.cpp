#include "designer/menu_frame.h"

#include <algorithm>

#include "core/text.h"

namespace torvane {

int MenuHeight(const Settings& settings) {
  return settings.VideoNormPal ? 576 : 480;
}

int LetterboxTop(const Settings& settings) {
  return MenuHeight(settings) / 8;
}

int LetterboxHeight(const Settings& settings) {
  return MenuHeight(settings) * 3 / 4;
}

int LetterboxY(int y, const Settings& settings) {
  return RoundToInt(y * 0.75 + LetterboxTop(settings));
}

int WithinReach(int coordinate) {
  return std::clamp(coordinate, -kFarAway, kFarAway);
}

QRect ElementRectangle(const DrawingView& drawing) {
  const TextGeometry geometry = drawing.Geometry();
  return {WithinReach(geometry.Left), WithinReach(geometry.Top), WithinReach(geometry.Width),
          WithinReach(geometry.Height)};
}

QRect TextRectangle(const DrawingView& drawing) {
  const QRect element = ElementRectangle(drawing);
  return {element.x() - 1, element.y(), element.width() + 1, element.height()};
}

QRect ImageRectangle(const PictureView& image) {
  return {WithinReach(image.Integer(drawing_node::Left, 0)), WithinReach(image.Integer(drawing_node::Top, 0)),
          WithinReach(image.Integer(element_node::HSize, 0)), WithinReach(image.Integer(element_node::VSize, 0))};
}

}  // namespace torvane
