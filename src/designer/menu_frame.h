#pragma once

#include <QRect>

#include "core/menu_view.h"
#include "core/settings.h"

namespace torvane {

// The frame that every menu is laid out in: 720 by MenuHeight pixels, also for a 16:9 menu.

inline constexpr int kMenuWidth = 720;

/// 576 for PAL, 480 for NTSC.
int MenuHeight(const Settings& settings);

/// Height of the bar above a 16:9 menu that is shown in letterbox: 72 for PAL, 60 for NTSC.
int LetterboxTop(const Settings& settings);

/// Height of the menu between the bars: 432 for PAL, 360 for NTSC.
int LetterboxHeight(const Settings& settings);

/// Where line `y` of the frame stands in the letterbox picture.
int LetterboxY(int y, const Settings& settings);

/// Nothing of a menu is farther from the frame than this many pixels. A damaged position is held here, so that no sum
/// of positions overflows; it lies outside the frame either way.
inline constexpr int kFarAway = 100000;

int WithinReach(int coordinate);

/// Left, Top, Width and Height of a button or label as the nodes have them.
QRect ElementRectangle(const DrawingView& drawing);

/// The area in which the text of a button or label is drawn: one pixel more to the left.
QRect TextRectangle(const DrawingView& drawing);

/// Left, Top, HSize and VSize of an image.
QRect ImageRectangle(const PictureView& image);

}  // namespace torvane
