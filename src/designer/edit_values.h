#pragma once

#include <vector>

#include "designer/edit_context.h"

namespace torvane {

/// Changes the value of one node, as the tree's in-place editing allows it: flags of the highlight type, transparency,
/// pause, position (with what is grouped with the element), colour ("r,g,b"), background picture, and the text and
/// action of elements. False when the value is refused, which has been shown (message 139 for a wrong number), or when
/// the node is none that can be edited in place.
bool EditValue(EditContext& context, const QString& key, const QString& value);

/// Switches "Fill=", "Frame=" or "Rounded=" over. Fill and Frame are never both off.
bool ToggleValue(EditContext& context, const QString& key);

/// Moves elements to their positions, each with what is grouped with it before any of them moves: with `AutoGroup`
/// the picture of a button that covers exactly the same rectangle, or the button of a picture.
void PlaceElements(Project& project, const QString& menu, const QStringList& elements,
                   const std::vector<QPoint>& positions);

/// Rectangle of an element from its nodes.
QRect RectangleOf(const ProjectTree& tree, const QString& menu, const QString& element);

}  // namespace torvane
