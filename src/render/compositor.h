#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "core/menu_view.h"
#include "core/settings.h"
#include "designer/button_rectangles.h"
#include "platform/result.h"
#include "render/menu_pictures.h"

namespace torvane {

/// What a menu is drawn for.
enum class ComposeMode { Compile = 0, PicturePreview = 1, ScriptPreview = 2 };

/// A menu as pictures, and what its highlights are made of.
struct ComposedMenu {
  QString MenuKey;
  std::vector<MenuPicture> Pictures;
  std::vector<ButtonRectangle> Rectangles;
  bool ButtonsValid = true;  ///< no button leaves the frame or comes too near to another
  QStringList Errors;        ///< pictures that could not be loaded, with file and menu; the rest is drawn all the same
};

/// Draws a still menu from its nodes for dvdauthor.
///
/// The visible plane becomes the video's picture, so it takes all colours and effects; what lights up is drawn on a
/// plane of its own in two pure colours, which turn into the menu's highlight and select colours at the end. That is
/// how a text with shadow and outline over a photo gets a subpicture of four colours.
///
/// Fails for a menu that is not there, for an animated one and for another engine.
Result<ComposedMenu> ComposeMenu(const MenuView& menu, const Settings& settings, ComposeMode mode);

}  // namespace torvane
