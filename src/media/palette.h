#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace torvane {

// A palette colour is packed Y + Cr * 256 + Cb * 65536, the bytes of a DVD colour from the low one on; an RGB colour is
// packed R + G * 256 + B * 65536. These are the only conversions between the two. Of a value, the low 24 bits count.

inline constexpr int kPaletteSize = 16;

int PaletteToRgb(int color);
int RgbToPalette(int rgb);
int RgbToPalette(int red, int green, int blue);  ///< each 0 to 255

/// "R, G, B" in decimal.
QString PaletteColorToRgbText(int color);

/// The packed colours of a list with "," between them; none of the empty text.
QList<int> PaletteColors(const QString& list);

/// The list of packed colours, with "," between them.
QString PaletteList(const QList<int>& colors);

/// True when the colour survives the way to RGB and back unchanged.
bool IsStablePaletteColor(int color);

/// The RGB colour near that of `color` from which RgbToPalette makes `color` again; nothing for one of the many that no
/// RGB colour gives, and which players show as the nearest that one does.
std::optional<int> RgbThatGives(int color);

/// The stable colour that stands for `color`, whose RGB colour is `rgb` and whose colour on the way back is `back`:
/// itself or `back` if possible, else one near it.
int StablePaletteColor(int color, int rgb, int back);

}  // namespace torvane
