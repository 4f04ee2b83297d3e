#pragma once

#include <QString>

#include "core/menu_view.h"
#include "core/settings.h"

namespace torvane {

/// Opacity (0 to 255) of a transparency in percent, to the nearest integer, halves to even: 150 for 41.
int OpacityOfTransparency(double percent);

/// "rrr#ggg#bbb#aaa" of a colour caption ("FillColor=255,0,0") and a transparency caption ("Transparenz=41%"): four
/// fields of three digits, which stand at fixed places.
QString MakeColorString(const QString& colorCaption, const QString& transparencyCaption);

/// The colours of a menu's subpictures as such texts: 1 is the fill, 2 the frame.
struct HighlightColors {
  QString HighColor1;
  QString HighColor2;
  QString ActColor1;
  QString ActColor2;
  bool operator==(const HighlightColors&) const = default;
};

/// A colour or transparency that the menu lacks is that of a new menu.
HighlightColors ReadHighlightColors(const MenuView& menu, const Settings& settings);

}  // namespace torvane
