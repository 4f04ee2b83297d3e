#pragma once

#include <QImage>
#include <QRect>
#include <functional>

#include "core/settings.h"

namespace torvane {

// Drawing on the planes of a menu: opaque pictures (Format_RGB32) of the menu's frame. What lies outside is cut off.

/// A plane filled with black.
QImage BlackPlane(const Settings& settings);

/// Draws a picture, stretched to the target; its transparent parts show what is below.
void DrawPicture(QImage& plane, const QRect& target, const QImage& picture);

/// The same without mixing neighbour pixels: each pixel takes the colour at its centre.
void DrawPictureHard(QImage& plane, const QRect& target, const QImage& picture);

/// On which line of a plane a line of the menu's frame lies. Whatever is drawn there keeps each of its lines: lines
/// that fall together make one.
using LineMap = std::function<int(int)>;

int SameLine(int y);

/// Fills the rectangle from (x, y) to (x + width, y + height), both corners included.
void FillRectangle(QImage& plane, const QRect& rectangle, QRgb color, const LineMap& lines = SameLine);

/// Draws `width` rectangles around each other; the innermost has the corners (x, y) and (x + width, y + height).
void DrawFrame(QImage& plane, const QRect& rectangle, int width, QRgb color, const LineMap& lines = SameLine);

/// The same with round outer corners.
void DrawRoundedFrame(QImage& plane, const QRect& rectangle, int width, QRgb color, const LineMap& lines = SameLine);

}  // namespace torvane
