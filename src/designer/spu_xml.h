#pragma once

#include <QByteArray>
#include <span>

#include "core/line_values.h"
#include "core/menu_view.h"
#include "designer/button_rectangles.h"

namespace torvane {

/// Which picture of the menu a subpicture lies over: the frame itself, or the letterbox of a 16:9 menu.
enum class SpuFile { Frame, Letterbox };

/// The control file by which spumux puts a menu's highlights into its video, UTF-8 with CR LF: "Spu.xml" or
/// "SpuL.xml". `rectangles` are those of `ButtonRectangles`.
QByteArray SpuXmlText(const MenuView& menu, std::span<const ButtonRectangle> rectangles, SpuFile file,
                      LineValues& values);

}  // namespace torvane
