#pragma once

#include <QString>
#include <span>
#include <vector>

#include "core/menu_view.h"
#include "core/settings.h"

namespace torvane {

/// What lights up on a menu's buttons; a mask used as highlight takes the place of both.
enum class FrameMode { Fill = 0, Frame = 1, FillAndFrame = 2 };

FrameMode MenuFrameMode(const MenuView& menu);

/// Width of a button's frame in pixels: the setting `DefFrameWidth` where it makes sense.
int FrameWidth(const Settings& settings);

/// A rectangle by its edges.
struct Edges {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  bool operator==(const Edges&) const = default;
};

/// The rectangles of a button on the disc, in pixels of the menu's frame.
struct ButtonRectangle {
  QString Key;
  Edges Check;      ///< what must not leave the frame nor meet another button; larger than what is written
  Edges Written;    ///< x0, y0, x1, y1 of the button
  Edges Letterbox;  ///< the same in the letterbox picture
  bool operator==(const ButtonRectangle&) const = default;
};

/// The rectangles of the buttons that control files have lines for, in tree order. A button that is lit by a mask
/// without rectangle has empty ones.
std::vector<ButtonRectangle> ButtonRectangles(const MenuView& menu, const Settings& settings);

/// A rule that a button's rectangle of the check breaks.
struct RectangleFault {
  enum class Rule {
    Empty,    ///< it has no area
    Outside,  ///< it leaves the frame
    TooNear   ///< it has an area in common with that of `other`; rectangles that only touch have none
  };
  Rule rule = Rule::Empty;
  std::size_t button = 0;  ///< index of the rectangle
  std::size_t other = 0;   ///< of the one in front that it meets
  bool operator==(const RectangleFault&) const = default;
};

/// All that is wrong with the rectangles of one menu of 720 by `height` pixels: nothing when they keep the rules.
std::vector<RectangleFault> RectangleFaults(std::span<const ButtonRectangle> rectangles, int height);

/// Those of one rectangle, against the frame and the rectangles in front of it.
std::vector<RectangleFault> FaultsOf(std::span<const ButtonRectangle> rectangles, std::size_t button, int height);

}  // namespace torvane
