#include "render/highlight_pictures.h"

#include <algorithm>

#include "designer/menu_frame.h"
#include "render/plane_drawing.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Anything above black counts as drawn.
constexpr double kAnyLevel = 0.002;

QRect LetterboxRectangle(const Settings& settings) {
  return {0, LetterboxTop(settings), kMenuWidth, LetterboxHeight(settings)};
}

/// The plane in pure red, pure green and black. Where smooth edges mix the two, red counts, which is drawn over green;
/// white is the edge of an inverted mask.
QImage PureColors(const QImage& highlight) {
  QImage pure = highlight;
  MakeFullColor(pure, kAnyLevel);
  for (int y = 0; y < pure.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(pure.scanLine(y));
    std::replace_if(
        line, line + pure.width(), [](QRgb pixel) { return qRed(pixel) != 0; }, kPlaneRed);
  }
  return pure;
}

QImage Colored(QImage plane, const QString& color1, const QString& color2) {
  MakeMask(plane, MaskMode::PlaneToColors, color1, color2);
  return plane;
}

QImage Palettized(QImage indexed, const QString& color1, const QString& color2, HighlightFrames frames) {
  SetPNGPalette(indexed, color1, color2, frames);
  return indexed;
}

QImage Softened(QImage plane, const MenuBlur& blur) {
  Blur32HVHigh(plane, blur.X, blur.Y);
  return plane;
}

/// A softened plane as it lies in the letterbox. Mixing the lines of a frame would take its exact green.
QImage InLetterbox(const QImage& soft, HighlightFrames frames, const Settings& settings) {
  QImage plane = BlackPlane(settings);
  if (frames == HighlightFrames::Drawn) {
    DrawPictureHard(plane, LetterboxRectangle(settings), soft);
  } else {
    DrawPicture(plane, LetterboxRectangle(settings), soft);
  }
  return plane;
}

/// A coloured picture as it lies in the letterbox, transparent around it.
QImage ColoredInLetterbox(const QImage& colored, const Settings& settings) {
  QImage picture(colored.size(), QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  DrawPictureHard(picture, LetterboxRectangle(settings), colored);
  return picture;
}

void AddIndexed(std::vector<MenuPicture>& pictures, QImage plane, const HighlightStyle& style,
                const QString& suffixEnd) {
  const HighlightColors& colors = style.Colors;
  ConvertTo256Bpp(plane, HighlightEdges::Smooth, style.Frames);
  pictures.push_back({u"High" + suffixEnd, Palettized(plane, colors.HighColor1, colors.HighColor2, style.Frames)});
  pictures.push_back({u"Act" + suffixEnd, Palettized(plane, colors.ActColor1, colors.ActColor2, style.Frames)});
}

}  // namespace

std::vector<MenuPicture> SubpicturesOf(const QImage& highlight, const HighlightStyle& style, const Settings& settings) {
  std::vector<MenuPicture> pictures;
  if (style.Blur.Use) {
    const QImage soft = Softened(highlight, style.Blur);
    AddIndexed(pictures, soft, style, u".png"_s);
    if (style.Wide) AddIndexed(pictures, InLetterbox(soft, style.Frames, settings), style, u"L.png"_s);
    return pictures;
  }
  const QImage pure = PureColors(highlight);
  pictures.push_back({u"High.png"_s, Colored(pure, style.Colors.HighColor1, style.Colors.HighColor2)});
  pictures.push_back({u"Act.png"_s, Colored(pure, style.Colors.ActColor1, style.Colors.ActColor2)});
  if (style.Wide) {
    const QImage high = ColoredInLetterbox(pictures[0].Image, settings);
    const QImage act = ColoredInLetterbox(pictures[1].Image, settings);
    pictures.push_back({u"HighL.png"_s, high});
    pictures.push_back({u"ActL.png"_s, act});
  }
  return pictures;
}

std::vector<MenuPicture> PreviewHighlightsOf(const QImage& highlight, const HighlightStyle& style) {
  const QImage plane = style.Blur.Use ? Softened(highlight, style.Blur) : PureColors(highlight);
  return {{u"High.png"_s, Colored(plane, style.Colors.HighColor1, style.Colors.HighColor2)},
          {u"Act.png"_s, Colored(plane, style.Colors.ActColor1, style.Colors.ActColor2)}};
}

}  // namespace torvane
