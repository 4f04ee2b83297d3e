#pragma once

#include <QRect>
#include <optional>

#include "core/menu_view.h"

namespace torvane {

/// Where the mask of an element stands: `RelSize` percent of the element's size, centred on it and moved by the
/// offsets. Nothing for a mask without `RelSize`.
std::optional<QRect> MaskRectangle(const QRect& element, const MaskGeometry& mask);

}  // namespace torvane
