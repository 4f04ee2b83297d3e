#include "render/menu_buttons.h"

#include <optional>
#include <vector>

#include "core/text.h"
#include "designer/button_rectangles.h"
#include "designer/mask_placement.h"
#include "designer/menu_frame.h"
#include "render/plane_drawing.h"
#include "render/text_painter.h"

namespace torvane {
namespace {

constexpr int kOpaque = 255;

/// Highlight modes of a mask.
constexpr int kMaskNotLit = 0;
constexpr int kMaskInverted = 2;
constexpr int kMaskOnlyLit = 3;

class ButtonDrawing {
 public:
  ButtonDrawing(const ButtonView& button, FrameMode frameMode, bool rounded, const Settings& settings)
      : button_(button),
        settings_(settings),
        frameMode_(frameMode),
        rounded_(rounded),
        highMode_(button.UseHigh()),
        geometry_(button.Drawing().Geometry()),
        text_(TextRectangle(button.Drawing())) {}

  void Draw(MenuPlanes& planes, PictureLoader& pictures) {
    if (highMode_ >= kMaskNotLit) LoadMask(pictures);
    const bool selectable = button_.IsWritten();
    if (selectable) {
      if (LitByMask()) {
        const QImage lit = LitMask();
        ForLettering(planes, [&](QImage& plane) { DrawPicture(plane, maskPlace_, lit); });
      } else {
        DrawFrames(planes.Highlight, SameLine);
        if (!planes.LetterboxFrames.isNull()) {
          DrawFrames(planes.LetterboxFrames, [this](int y) { return LetterboxY(y, settings_); });
        }
      }
    }
    if (highMode_ >= kMaskNotLit && highMode_ != kMaskOnlyLit) DrawPicture(planes.Visible, maskPlace_, mask_);
    DrawText(planes, selectable);
  }

  bool HasFrame() const {
    return button_.IsWritten() && !LitByMask() && frameMode_ != FrameMode::Fill && FrameWidth(settings_) > 0;
  }

 private:
  bool LitByMask() const { return highMode_ > kMaskNotLit; }

  /// Calls draw(plane) for the planes that texts and masks light up on.
  template <class Draw>
  static void ForLettering(MenuPlanes& planes, Draw draw) {
    draw(planes.Highlight);
    if (!planes.Lettering.isNull()) draw(planes.Lettering);
  }

  void LoadMask(PictureLoader& pictures) {
    const std::optional<MaskGeometry> mask = button_.Mask();
    const std::optional<QRect> place = mask ? MaskRectangle(ElementRectangle(button_.Drawing()), *mask) : std::nullopt;
    if (!place) return;
    maskPlace_ = *place;
    mask_ = pictures.Load(mask->Path);
  }

  QImage LitMask() const {
    QImage lit = mask_;
    if (highMode_ == kMaskInverted) {
      MakeMask(lit, MaskMode::OpaqueToWhite);
      InvertMask(lit);
    } else {
      MakeMask(lit, MaskMode::OpaqueToRed);
    }
    return lit;
  }

  void DrawFrames(QImage& plane, const LineMap& lines) const {
    if (HasFrame()) {
      const int width = FrameWidth(settings_);
      rounded_ ? DrawRoundedFrame(plane, text_, width, kPlaneGreen, lines)
               : DrawFrame(plane, text_, width, kPlaneGreen, lines);
    }
    // An invisible button: nothing shows, and its area lights up.
    if (button_.Caption().isEmpty() && !button_.NormVis()) FillRectangle(plane, text_, kPlaneRed, lines);
  }

  void DrawText(MenuPlanes& planes, bool selectable) const {
    const TextPainter painter(FontOf(geometry_));
    const std::optional<QString> outline = button_.Drawing().OutlineCaption();
    const QRgb color = MakeARGB(RGBStringToColor(button_.Drawing().ColorCaption()), kOpaque);
    for (const TextLine& line : painter.Lines(button_.Caption(), text_, geometry_.Align)) {
      const LineCoverage coverage = painter.Draw(line, planes.Visible.size());
      if (selectable) {
        ForLettering(planes,
                     [&](QImage& plane) { PrintHighlight(plane, line.position, coverage, outline.has_value()); });
      }
      if (!button_.NormVis()) continue;
      if (outline) {
        OutlinePrint(planes.Visible, line.position, coverage, MakeARGB(RGBStringToColor(*outline), kOpaque));
      }
      Print(planes.Visible, line.position, coverage, color);
    }
  }

  void PrintHighlight(QImage& highlight, QPoint position, const LineCoverage& line, bool outlined) const {
    if (!LitByMask()) {
      if (frameMode_ != FrameMode::Frame) Print(highlight, position, line, kPlaneRed);
    } else if (settings_.ExclTextFromGifMask) {
      if (outlined) OutlinePrint(highlight, position, line, kPlaneBlack);
      Print(highlight, position, line, kPlaneBlack);
    }
  }

  const ButtonView& button_;
  const Settings& settings_;
  FrameMode frameMode_;
  bool rounded_;
  int highMode_;
  TextGeometry geometry_;
  QRect text_;
  QImage mask_;
  QRect maskPlace_;
};

}  // namespace

HighlightFrames DrawButtons(MenuPlanes& planes, const MenuView& menu, const Settings& settings,
                            PictureLoader& pictures) {
  const FrameMode frameMode = MenuFrameMode(menu);
  const bool rounded = menu.Text(menu_node::HighLightRounded).value_or(QString()).endsWith(u'1');
  HighlightFrames frames = HighlightFrames::None;
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.ExistsOnDisc()) continue;
    ButtonDrawing drawing(button, frameMode, rounded, settings);
    drawing.Draw(planes, pictures);
    if (drawing.HasFrame()) frames = HighlightFrames::Drawn;
  }
  return frames;
}

}  // namespace torvane
