#pragma once

#include <QImage>
#include <vector>

#include "core/settings.h"
#include "designer/color_string.h"
#include "render/bitmap.h"
#include "render/menu_buttons.h"
#include "render/menu_pictures.h"

namespace torvane {

/// How a menu is softened, in percent.
struct MenuBlur {
  bool Use = false;
  int X = 0;
  int Y = 0;
};

/// How the highlight plane of a menu becomes pictures.
struct HighlightStyle {
  HighlightColors Colors;
  MenuBlur Blur;
  HighlightFrames Frames = HighlightFrames::None;
  bool Wide = false;  ///< letterbox pictures as well
};

/// The subpictures of a menu for spumux: "High.png" and "Act.png", and for a 16:9 menu "HighL.png" and "ActL.png". Each
/// has at most four colours, the transparent one included.
std::vector<MenuPicture> SubpicturesOf(const MenuPlanes& planes, const HighlightStyle& style, const Settings& settings);

/// The highlights as a preview shows them over the menu: "High.png" and "Act.png" in any number of colours.
std::vector<MenuPicture> PreviewHighlightsOf(const QImage& highlight, const HighlightStyle& style);

}  // namespace torvane
