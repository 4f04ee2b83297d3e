#include "media/palette.h"

#include <QStringList>
#include <algorithm>
#include <cstdlib>

#include "core/text.h"

namespace torvane {
namespace {

constexpr int kColorBits = 0xFFFFFF;

struct Bytes {
  int low = 0;
  int middle = 0;
  int high = 0;
};

Bytes BytesOf(int color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}

int Packed(int low, int middle, int high) {
  return low + middle * 256 + high * 65536;
}

/// The whole part of a thousandth, rounded down.
int Thousandth(int value) {
  return (value - (value < 0 ? 999 : 0)) / 1000;
}

int Clamped(int value) {
  return std::clamp(value, 0, 255);
}

int Nudged(int byte) {
  if (byte < 10) return byte + 1;
  if (byte > 250) return byte - 1;
  return byte;
}

/// Searches RGB colours in growing cubes around one. Every cube of a few steps holds a stable colour, so that this
/// ends soon; the last cube is the whole of the colours, and black is stable.
int NearestStable(const Bytes& rgb) {
  for (int radius = 1; radius <= 255; ++radius) {
    for (int r = -radius; r <= radius; ++r) {
      for (int g = -radius; g <= radius; ++g) {
        const bool isFace = std::abs(r) == radius || std::abs(g) == radius;
        for (int b = -radius; b <= radius; b += isFace ? 1 : 2 * radius) {
          const int color = RgbToPalette(Clamped(rgb.low + r), Clamped(rgb.middle + g), Clamped(rgb.high + b));
          if (IsStablePaletteColor(color)) return color;
        }
      }
    }
  }
  return RgbToPalette(0);
}

}  // namespace

int PaletteToRgb(int color) {
  const auto [y, cr, cb] = BytesOf(color);
  const int t = (y - 16) * 1164 + 500;
  const int red = Thousandth(t + (cr - 128) * 1596);
  const int green = Thousandth(t - (cr - 128) * 813 - (cb - 128) * 391);
  const int blue = Thousandth(t + (cb - 128) * 2018);
  return Packed(Clamped(red), Clamped(green), Clamped(blue));
}

int RgbToPalette(int rgb) {
  const auto [red, green, blue] = BytesOf(rgb);
  return RgbToPalette(red, green, blue);
}

int RgbToPalette(int red, int green, int blue) {
  const int y = Thousandth(257 * red + 504 * green + 98 * blue + 16500);
  const int cr = Thousandth(439 * red - 368 * green - 71 * blue + 128500);
  const int cb = Thousandth(-148 * red - 291 * green + 439 * blue + 128500);
  return Packed(y, cr, cb);
}

QString PaletteColorToRgbText(int color) {
  const auto [red, green, blue] = BytesOf(PaletteToRgb(color));
  return QString::number(red) + u", " + QString::number(green) + u", " + QString::number(blue);
}

QList<int> PaletteColors(const QString& list) {
  QList<int> colors;
  if (list.isEmpty()) return colors;
  for (const QString& color : list.split(u',')) colors << (ValToInt(color) & kColorBits);
  return colors;
}

QString PaletteList(const QList<int>& colors) {
  QStringList list;
  for (const int color : colors) list << QString::number(color);
  return list.join(u',');
}

bool IsStablePaletteColor(int color) {
  return RgbToPalette(PaletteToRgb(color)) == (color & kColorBits);
}

std::optional<int> RgbThatGives(int color) {
  constexpr int kReach = 3;  // what rounding down three times can be off
  const auto [red, green, blue] = BytesOf(PaletteToRgb(color));
  std::optional<int> found;
  int distance = 3 * kReach + 1;
  for (int r = -kReach; r <= kReach; ++r) {
    for (int g = -kReach; g <= kReach; ++g) {
      for (int b = -kReach; b <= kReach; ++b) {
        const int rgb = Packed(Clamped(red + r), Clamped(green + g), Clamped(blue + b));
        const int away = std::abs(r) + std::abs(g) + std::abs(b);
        if (away >= distance || RgbToPalette(rgb) != (color & kColorBits)) continue;
        found = rgb;
        distance = away;
      }
    }
  }
  return found;
}

int StablePaletteColor(int color, int rgb, int back) {
  if (color == back) return color;
  if (IsStablePaletteColor(back)) return back;
  Bytes bytes = BytesOf(rgb);
  for (;;) {
    const Bytes next{Nudged(bytes.low), Nudged(bytes.middle), Nudged(bytes.high)};
    if (next.low == bytes.low && next.middle == bytes.middle && next.high == bytes.high) return NearestStable(bytes);
    bytes = next;
    const int candidate = RgbToPalette(bytes.low, bytes.middle, bytes.high);
    if (IsStablePaletteColor(candidate)) return candidate;
  }
}

}  // namespace torvane
