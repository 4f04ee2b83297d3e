#pragma once

#include <QImage>

#include "core/menu_view.h"
#include "core/settings.h"

namespace torvane {

/// Darkens a menu's visible plane where its labels throw a shadow. All shadows lie below all labels.
void DrawLabelShadows(QImage& visible, const MenuView& menu, const Settings& settings);

/// Prints the labels of a menu with their block edges and outlines.
void DrawLabels(QImage& visible, const MenuView& menu, const Settings& settings);

/// A colour with its HSV value multiplied by `factor`, components cut to integers.
QRgb WithValue(QRgb color, double factor);

}  // namespace torvane
