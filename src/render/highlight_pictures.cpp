#include "render/highlight_pictures.h"

#include <QPainter>
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

/// Where two planes of the highlight lie over each other: the stronger level of each colour.
QImage Merged(QImage plane, const QImage& over) {
  QPainter painter(&plane);
  painter.setCompositionMode(QPainter::CompositionMode_Lighten);
  painter.drawImage(0, 0, over);
  painter.end();
  return plane.convertToFormat(QImage::Format_RGB32);
}

/// The softened highlight of the letterbox.
QImage SoftLetterbox(const MenuPlanes& planes, const MenuBlur& blur, const Settings& settings) {
  QImage letters = BlackPlane(settings);
  DrawPicture(letters, LetterboxRectangle(settings), Softened(planes.Lettering, blur));
  return Merged(letters, Softened(planes.LetterboxFrames, blur));
}

/// The same in pure colours.
QImage PureLetterbox(const MenuPlanes& planes, const Settings& settings) {
  QImage letters = BlackPlane(settings);
  DrawPictureHard(letters, LetterboxRectangle(settings), PureColors(planes.Lettering));
  return PureColors(Merged(letters, planes.LetterboxFrames));
}

void AddIndexed(std::vector<MenuPicture>& pictures, QImage plane, const HighlightStyle& style,
                const QString& suffixEnd) {
  const HighlightColors& colors = style.Colors;
  ConvertTo256Bpp(plane, HighlightEdges::Smooth, style.Frames);
  pictures.push_back({u"High" + suffixEnd, Palettized(plane, colors.HighColor1, colors.HighColor2, style.Frames)});
  pictures.push_back({u"Act" + suffixEnd, Palettized(plane, colors.ActColor1, colors.ActColor2, style.Frames)});
}

}  // namespace

std::vector<MenuPicture> SubpicturesOf(const MenuPlanes& planes, const HighlightStyle& style,
                                       const Settings& settings) {
  std::vector<MenuPicture> pictures;
  if (style.Blur.Use) {
    AddIndexed(pictures, Softened(planes.Highlight, style.Blur), style, u".png"_s);
    if (style.Wide) AddIndexed(pictures, SoftLetterbox(planes, style.Blur, settings), style, u"L.png"_s);
    return pictures;
  }
  const auto addColored = [&](const QImage& pure, const QString& suffixEnd) {
    pictures.push_back({u"High" + suffixEnd, Colored(pure, style.Colors.HighColor1, style.Colors.HighColor2)});
    pictures.push_back({u"Act" + suffixEnd, Colored(pure, style.Colors.ActColor1, style.Colors.ActColor2)});
  };
  addColored(PureColors(planes.Highlight), u".png"_s);
  if (style.Wide) addColored(PureLetterbox(planes, settings), u"L.png"_s);
  return pictures;
}

std::vector<MenuPicture> PreviewHighlightsOf(const QImage& highlight, const HighlightStyle& style) {
  const QImage plane = style.Blur.Use ? Softened(highlight, style.Blur) : PureColors(highlight);
  return {{u"High.png"_s, Colored(plane, style.Colors.HighColor1, style.Colors.HighColor2)},
          {u"Act.png"_s, Colored(plane, style.Colors.ActColor1, style.Colors.ActColor2)}};
}

}  // namespace torvane
