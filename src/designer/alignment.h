#pragma once

#include <QRect>
#include <QSize>
#include <vector>

#include "designer/edit_context.h"
#include "platform/result.h"

namespace torvane {

enum class Alignment { Left, Right, Top, Bottom, HCenter, VCenter, HPage, VPage };
enum class Distribution { Horizontal, Vertical, HorizontalPage, VerticalPage };

// Arithmetic over the rectangles of selected elements, in pixels. Each result is rounded once from its exact place,
// halves to even.

std::vector<QRect> AlignRectangles(std::vector<QRect> rectangles, Alignment alignment, const QSize& page);

/// Equal gaps between the elements in the order of their positions: between the first and the last, or over the page.
/// Fails when there are fewer than 3 (page: none) or no room for gaps.
Result<std::vector<QRect>> DistributeRectangles(std::vector<QRect> rectangles, Distribution distribution,
                                                const QSize& page);

/// Aligns or distributes elements of a menu, given by their keys, with what is grouped with them.
bool AlignElements(EditContext& context, const QString& menu, const QStringList& elements, Alignment alignment);
bool DistributeElements(EditContext& context, const QString& menu, const QStringList& elements,
                        Distribution distribution);

}  // namespace torvane
