#pragma once

#include <QImage>

#include "core/menu_view.h"
#include "core/settings.h"
#include "render/bitmap.h"
#include "render/picture_loader.h"

namespace torvane {

/// The planes that a menu's buttons are drawn on: opaque pictures of the menu's frame.
struct MenuPlanes {
  QImage Visible;    ///< what the viewer sees while nothing is selected
  QImage Highlight;  ///< what lights up, on black: text, fills and masks in pure red, frames in pure green
  /// For the letterbox, null where there is none. Frames and fills are drawn at their own size there, since a frame's
  /// line would vanish when it is squeezed.
  QImage Lettering = {};        ///< the highlight without frames and fills, in the menu's frame
  QImage LetterboxFrames = {};  ///< frames and fills as they lie in the letterbox
};

/// Draws a menu's buttons on both planes and tells whether one of them has a frame. A button that does not exist on
/// the disc draws nothing; one without an action cannot be selected, so that it has no highlight.
HighlightFrames DrawButtons(MenuPlanes& planes, const MenuView& menu, const Settings& settings,
                            PictureLoader& pictures);

}  // namespace torvane
