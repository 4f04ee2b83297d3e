#include "designer/button_rectangles.h"

#include <algorithm>

#include "designer/mask_placement.h"
#include "designer/menu_frame.h"

namespace torvane {
namespace {

bool EndsInOne(const MenuView& menu, Attribute attribute) {
  return menu.Text(attribute).value_or(QString()).endsWith(u'1');
}

Edges InLetterbox(const Edges& edges, const Settings& settings) {
  return {edges.Left, LetterboxY(edges.Top, settings), edges.Right, LetterboxY(edges.Bottom, settings)};
}

ButtonRectangle OfFrame(const QRect& text, const Settings& settings) {
  const int f = FrameWidth(settings) - 1;
  const int right = text.x() + text.width() + f;
  const int bottom = text.y() + text.height() + f;
  const Edges drawn{text.x() - f, text.y() - f, right, bottom};
  return {.Key = {},
          .Check = {drawn.Left - 2, drawn.Top - 2, right + 1, bottom + 1},
          .Written = {drawn.Left, drawn.Top, right + 1, bottom + 1},
          .Letterbox = InLetterbox(drawn, settings)};
}

ButtonRectangle OfText(const QRect& text, const Settings& settings) {
  const Edges drawn{text.x(), text.y(), text.x() + text.width(), text.y() + text.height()};
  return {.Key = {},
          .Check = {drawn.Left - 1, drawn.Top - 1, drawn.Right + 1, drawn.Bottom + 1},
          .Written = drawn,
          .Letterbox = InLetterbox(drawn, settings)};
}

ButtonRectangle OfMask(const QRect& mask, const Settings& settings) {
  Edges check{mask.x() - 2, mask.y() - 2, mask.x() + mask.width() + 1, mask.y() + mask.height() + 1};
  if (settings.ClipGifMask) {
    check = {std::max(check.Left, 0), std::max(check.Top, 0), std::min(check.Right, kMenuWidth),
             std::min(check.Bottom, MenuHeight(settings))};
  }
  const Edges written{check.Left + 1, check.Top + 1, check.Right, check.Bottom};
  return {.Key = {}, .Check = check, .Written = written, .Letterbox = InLetterbox(written, settings)};
}

ButtonRectangle RectangleOf(const ButtonView& button, FrameMode frameMode, const Settings& settings) {
  if (button.UseHigh() >= 1) {
    const std::optional<MaskGeometry> mask = button.Mask();
    const std::optional<QRect> place = mask ? MaskRectangle(ElementRectangle(button.Drawing()), *mask) : std::nullopt;
    return place ? OfMask(*place, settings) : ButtonRectangle();
  }
  const QRect text = TextRectangle(button.Drawing());
  return frameMode == FrameMode::Fill ? OfText(text, settings) : OfFrame(text, settings);
}

bool IsEmpty(const Edges& edges) {
  return edges.Left >= edges.Right || edges.Top >= edges.Bottom;
}

bool IsInside(const Edges& edges, int height) {
  return edges.Left >= 0 && edges.Top >= 0 && edges.Right <= kMenuWidth && edges.Bottom <= height;
}

bool Meet(const Edges& a, const Edges& b) {
  return std::max(a.Left, b.Left) < std::min(a.Right, b.Right) && std::max(a.Top, b.Top) < std::min(a.Bottom, b.Bottom);
}

}  // namespace

FrameMode MenuFrameMode(const MenuView& menu) {
  if (!EndsInOne(menu, menu_node::HighLightFrame)) return FrameMode::Fill;
  return EndsInOne(menu, menu_node::HighLightFill) ? FrameMode::FillAndFrame : FrameMode::Frame;
}

int FrameWidth(const Settings& settings) {
  return std::clamp(settings.DefFrameWidth, 0, kMenuWidth);
}

std::vector<ButtonRectangle> ButtonRectangles(const MenuView& menu, const Settings& settings) {
  const FrameMode frameMode = MenuFrameMode(menu);
  std::vector<ButtonRectangle> rectangles;
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.IsWritten()) continue;
    rectangles.push_back(RectangleOf(button, frameMode, settings));
    rectangles.back().Key = button.Key();
  }
  return rectangles;
}

std::vector<RectangleFault> RectangleFaults(std::span<const ButtonRectangle> rectangles, int height) {
  std::vector<RectangleFault> faults;
  for (std::size_t i = 0; i < rectangles.size(); ++i)
    std::ranges::copy(FaultsOf(rectangles, i, height), std::back_inserter(faults));
  return faults;
}

std::vector<RectangleFault> FaultsOf(std::span<const ButtonRectangle> rectangles, std::size_t button, int height) {
  using enum RectangleFault::Rule;
  const Edges& edges = rectangles[button].Check;
  if (IsEmpty(edges)) return {{Empty, button, button}};
  std::vector<RectangleFault> faults;
  if (!IsInside(edges, height)) faults.push_back({Outside, button, button});
  for (std::size_t other = 0; other < button; ++other) {
    if (Meet(edges, rectangles[other].Check)) faults.push_back({TooNear, button, other});
  }
  return faults;
}

}  // namespace torvane
