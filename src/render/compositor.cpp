#include "render/compositor.h"

#include <optional>

#include "core/engine.h"
#include "designer/color_string.h"
#include "designer/mask_placement.h"
#include "designer/menu_frame.h"
#include "render/highlight_pictures.h"
#include "render/menu_buttons.h"
#include "render/menu_labels.h"
#include "render/picture_loader.h"
#include "render/plane_drawing.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool IsMenu(const QString& key) {
  return IsMainMenuFamily(key) || IsTitleSetMenu(key) || IsSubMenu(key);
}

MenuBlur ReadBlur(const MenuView& menu, const Settings& settings) {
  using namespace menu_node;
  return {.Use = menu.Integer(BackgroundBlur, settings.UseBlur ? 1 : 0) == 1,
          .X = menu.Integer(BackgroundBlurX, settings.BlurX),
          .Y = menu.Integer(BackgroundBlurY, settings.BlurY)};
}

void DrawBackground(QImage& visible, const MenuView& menu, PictureLoader& pictures) {
  const QString path = menu.Text(menu_node::BackgroundPath).value_or(QString());
  DrawPicture(visible, visible.rect(), pictures.Load(path));
}

/// Images, each with its mask over it.
void DrawImages(QImage& visible, const MenuView& menu, PictureLoader& pictures) {
  for (const PictureView& image : menu.Images()) {
    const QRect place = ImageRectangle(image);
    DrawPicture(visible, place, pictures.Load(image.Text(element_node::File).value_or(QString())));
    const std::optional<MaskGeometry> mask = image.Mask();
    const std::optional<QRect> maskPlace = mask ? MaskRectangle(place, *mask) : std::nullopt;
    if (maskPlace) DrawPicture(visible, *maskPlace, pictures.Load(mask->Path));
  }
}

}  // namespace

Result<ComposedMenu> ComposeMenu(const MenuView& menu, const Settings& settings, ComposeMode mode) {
  if (!menu.Exists() || !IsMenu(menu.Key()))
    return Failure{u"There is no menu \"" + menu.Key() + u"\" in this project."};
  const QString name = menu.Name() + u" (" + menu.Key() + u')';
  if (settings.Engine != kEngineDvdauthor) {
    return Failure{u"Menu " + name + u": menus can be drawn for dvdauthor only; choose it as engine."_s};
  }
  if (menu.IsAnimated(settings)) {
    return Failure{u"Menu " + name + u": animated menus cannot be drawn yet; take its animations or transition away."};
  }

  PictureLoader pictures(menu);
  MenuPlanes planes{.Visible = BlackPlane(settings), .Highlight = BlackPlane(settings)};
  if (mode == ComposeMode::Compile && menu.IsWide(settings)) {
    planes.Lettering = BlackPlane(settings);
    planes.LetterboxFrames = BlackPlane(settings);
  }
  DrawBackground(planes.Visible, menu, pictures);
  DrawImages(planes.Visible, menu, pictures);
  DrawLabelShadows(planes.Visible, menu, settings);
  DrawLabels(planes.Visible, menu, settings);
  const HighlightFrames frames = DrawButtons(planes, menu, settings, pictures);
  const HighlightStyle style{.Colors = ReadHighlightColors(menu, settings),
                             .Blur = ReadBlur(menu, settings),
                             .Frames = frames,
                             .Wide = menu.IsWide(settings)};
  if (style.Blur.Use) Blur32HV(planes.Visible, style.Blur.X, style.Blur.Y);
  planes.Visible.convertTo(QImage::Format_RGB32);

  ComposedMenu composed;
  composed.MenuKey = menu.Key();
  composed.Rectangles = ButtonRectangles(menu, settings);
  composed.ButtonsValid = RectangleFaults(composed.Rectangles, MenuHeight(settings)).empty();
  composed.Errors = pictures.Errors();
  switch (mode) {
    case ComposeMode::Compile:
      composed.Pictures = SubpicturesOf(planes, style, settings);
      composed.Pictures.push_back({u"Backg.png"_s, planes.Visible});
      break;
    case ComposeMode::PicturePreview:
      composed.Pictures = PreviewHighlightsOf(planes.Highlight, style);
      composed.Pictures.push_back({u"Preview.png"_s, planes.Visible});
      break;
    case ComposeMode::ScriptPreview:
      composed.Pictures.push_back({u"Backg.png"_s, planes.Visible});
      break;
  }
  return composed;
}

}  // namespace torvane
