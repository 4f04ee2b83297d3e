#pragma once

#include <QImage>
#include <QStringView>

namespace torvane {

// The pixel algorithms behind the menu pictures. A menu's highlight is drawn on a plane that knows two colours only,
// pure red and pure green; here such a plane becomes what a DVD subpicture can carry: four colours at most.
//
inline constexpr QRgb kPlaneBlack = 0xFF000000;
inline constexpr QRgb kPlaneRed = 0xFFFF0000;
inline constexpr QRgb kPlaneGreen = 0xFF00FF00;

// Colours of a subpicture are texts "rrr#ggg#bbb#aaa", four fields of three digits. A field that is missing is 0.

// ---- Recolouring. The picture may have any format, the result has Format_ARGB32. ----

/// Makes all pixels of exactly this colour transparent.
void MakeTransparent(QImage& image, QRgb color);

/// Turns fully transparent pixels (0x00000000) into opaque red, opaque white ones into transparent ones, and leaves the
/// others: the reverse of a mask that MakeMask made of a picture's opaque area.
void InvertMask(QImage& image);

/// Makes each of red, green and blue full where it is above `threshold` (0 to 1) and 0 elsewhere. Alpha stays.
void MakeFullColor(QImage& image, double threshold);

enum class MaskMode {
  OpaqueToWhite = 0,  ///< grey of the pixel's alpha, with that alpha
  PlaneToColors = 1,  ///< red becomes colour 1, green colour 2, black transparent
  OpaqueToRed = 2,    ///< red of the pixel's alpha, with that alpha
  RedToShadow = 3,    ///< black, the red level as alpha
};

void MakeMask(QImage& image, MaskMode mode, QStringView color1 = {}, QStringView color2 = {});

// ---- Softening. Formats other than Format_RGB32 and Format_ARGB32 stay as they are; the result has Format_ARGB32.
// ----

/// Three-tap blur along the rows and then along the columns; strengths are percent, 0 leaves that direction out. The
/// outermost pixels are not filtered.
void Blur32HV(QImage& image, int xPercent, int yPercent);

/// The same for red alone, so that text gets soft edges while a green frame keeps its exact colour.
void Blur32HVHigh(QImage& image, int xPercent, int yPercent);

// ---- Reduction to an indexed picture ----

enum class HighlightEdges {
  Hard,    ///< pure colours only
  Smooth,  ///< levels of red become up to three indices
};

enum class HighlightFrames { None, Drawn };

/// Turns an opaque 32-bit plane into an indexed picture (Format_Indexed8) of the indices 0 black, 1 red, 2 green and 3
/// blue. With smooth edges 2 and 3 stand for weaker red; where frames are drawn 2 stays theirs. A picture of another
/// format stays as it is.
void ConvertTo256Bpp(QImage& image, HighlightEdges edges, HighlightFrames frames);

/// Gives such an indexed picture its real colours: index 0 becomes transparent, 1 colour 1, and 2 and 3 colour 1 with
/// less opacity; where frames are drawn 2 is colour 2.
void SetPNGPalette(QImage& image, QStringView color1, QStringView color2, HighlightFrames frames);

}  // namespace torvane
