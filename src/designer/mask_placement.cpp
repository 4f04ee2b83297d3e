#include "designer/mask_placement.h"

#include <cmath>

#include "core/text.h"
#include "designer/menu_frame.h"

namespace torvane {
namespace {

int Size(int elementSize, double percent) {
  return WithinReach(RoundToInt(std::floor(elementSize * percent / 100)));
}

int Position(int elementPosition, int elementSize, int maskSize, double offset) {
  return WithinReach(RoundToInt(elementPosition + (elementSize - maskSize) / 2.0 + offset));
}

}  // namespace

std::optional<QRect> MaskRectangle(const QRect& element, const MaskGeometry& mask) {
  if (!mask.HasRelSize) return std::nullopt;
  const int width = Size(element.width(), mask.RelSize);
  const int height = Size(element.height(), mask.RelSize);
  return QRect(Position(element.x(), element.width(), width, mask.XOffset),
               Position(element.y(), element.height(), height, mask.YOffset), width, height);
}

}  // namespace torvane
