#pragma once

#include <QByteArray>
#include <QImage>

#include "core/line_values.h"
#include "core/menu_view.h"

namespace torvane {

// The batches that turn a still menu's pictures into video for dvdauthor. The files that they name lie in `TempDir` and
// begin with the menu's key.

/// "Brun1.bat": encodes the menu's picture.
QByteArray StillMenuBatch1(const MenuView& menu, LineValues& values);

/// "Brun2.bat": multiplexes the video, with its audio when it has one, and adds the subpictures.
QByteArray StillMenuBatch2(const MenuView& menu, LineValues& values);

/// "EBrun1.bat": makes a menu that nobody sees, for program chains that need one, of "EmptyBackg.jpg".
QByteArray EmptyMenuBatch(LineValues& values);

/// The black picture "EmptyBackg.jpg" of that menu, to be saved with quality 100.
QImage EmptyMenuPicture(const Settings& settings);

/// Frames of a still menu's video. A menu that is encoded in full length has its duration, any other the setting
/// `NumStillFrames`.
int StillMenuFrames(const MenuView& menu, const Settings& settings);

}  // namespace torvane
