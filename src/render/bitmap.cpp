#include "render/bitmap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace torvane {
namespace {

bool Is32Bit(const QImage& image) {
  return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
}

/// Planes consist of long runs of one colour: what a run becomes is worked out once.
template <class Recolor>
void ForEachPixel(QImage& image, Recolor recolor) {
  image.convertTo(QImage::Format_ARGB32);
  const int width = image.width();
  QRgb last = 0;
  QRgb result = recolor(last);
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (QRgb* pixel = line; pixel != line + width; ++pixel) {
      if (*pixel != last) {
        last = *pixel;
        result = recolor(last);
      }
      *pixel = result;
    }
  }
}

/// The four fields of a subpicture colour.
struct ColorFields {
  int red, green, blue, alpha;

  explicit ColorFields(QStringView text)
      : red(Field(text, 0)), green(Field(text, 4)), blue(Field(text, 8)), alpha(Field(text, 12)) {}

  QRgb WithTenthsOfAlpha(int tenths) const {
    return qRgba(red, green, blue, static_cast<int>(std::nearbyint(alpha * tenths / 10.0)));
  }

 private:
  static int Field(QStringView text, qsizetype position) {
    if (position >= text.size()) return 0;
    return std::clamp(text.mid(position, 3).toInt(), 0, 255);
  }
};

// ---- Blur ----

struct Weights {
  double centre;
  double side;
};

Weights WeightsOf(int percent) {
  const double p = percent / 100.0;
  const double centre = 0.125 * p * p - 0.6075 * p + 0.981;
  return {centre, (1 - centre) / 2};
}

/// Adding this number pushes the fraction of a small one out of the mantissa, which rounds it to an integer, halves to
/// even. A plain loop over it runs several bytes at once, which a call of std::nearbyint does not.
constexpr double kRoundingShift = 0x1.8p52;

std::uint8_t FilteredByte(std::uint8_t centre, std::uint8_t before, std::uint8_t behind, Weights weights) {
  const double sum = centre * weights.centre + before * weights.side + behind * weights.side;
  const double rounded = (std::clamp(sum, 0.0, 255.0) + kRoundingShift) - kRoundingShift;
  return static_cast<std::uint8_t>(static_cast<std::int32_t>(rounded));
}

enum class BlurChannels { All, Red };

/// One pass over the inner bytes of all inner rows; neighbours stand `distance` bytes before and behind.
void BlurPass(const QImage& source, QImage& target, Weights weights, qsizetype distance, BlurChannels channels) {
  const qsizetype end = qsizetype{source.width()} * 4 - 4;
  for (int y = 1; y < source.height() - 1; ++y) {
    const std::uint8_t* from = source.constScanLine(y);
    std::uint8_t* to = target.scanLine(y);
    if (channels == BlurChannels::All) {
      for (qsizetype i = 4; i < end; ++i) {
        to[i] = FilteredByte(from[i], from[i - distance], from[i + distance], weights);
      }
    } else {
      for (qsizetype i = 4; i < end; i += 4) {
        auto& pixel = reinterpret_cast<QRgb*>(to)[i / 4];
        const auto red = [&](qsizetype offset) {
          return static_cast<std::uint8_t>(qRed(*reinterpret_cast<const QRgb*>(from + i + offset)));
        };
        pixel = (pixel & 0xFF00FFFF) | (QRgb{FilteredByte(red(0), red(-distance), red(distance), weights)} << 16);
      }
    }
  }
}

void Blur(QImage& image, int xPercent, int yPercent, BlurChannels channels) {
  if (!Is32Bit(image)) return;
  image.convertTo(QImage::Format_ARGB32);
  if (xPercent != 0) {
    const QImage source = image;
    BlurPass(source, image, WeightsOf(xPercent), 4, channels);
  }
  if (yPercent != 0) {
    const QImage source = image;
    BlurPass(source, image, WeightsOf(yPercent), source.bytesPerLine(), channels);
  }
}

// ---- Indices ----

constexpr std::int32_t Signed(QRgb pixel) {
  return static_cast<std::int32_t>(pixel);
}

constexpr QRgb kBlue = 0xFF0000FF;

std::uint8_t HardIndex(QRgb pixel) {
  return pixel == kPlaneRed ? 1 : pixel == kPlaneGreen ? 2 : 0;
}

std::uint8_t SmoothIndex(QRgb pixel) {
  const std::int32_t level = Signed(pixel);
  if (pixel == kPlaneBlack) return 0;
  if (level >= Signed(0xFFC00001)) return 1;
  if (level > Signed(0xFF800000)) return 2;
  return level > Signed(0xFF300000) ? 3 : 0;
}

std::uint8_t SmoothIndexBesideFrames(QRgb pixel) {
  const std::int32_t level = Signed(pixel);
  if (pixel == kPlaneGreen) return 2;
  if (level >= Signed(0xFFA00001)) return 1;
  return level > Signed(0xFF400000) ? 3 : 0;
}

}  // namespace

void MakeTransparent(QImage& image, QRgb color) {
  ForEachPixel(image, [color](QRgb pixel) { return pixel == color ? 0 : pixel; });
}

void InvertMask(QImage& image) {
  ForEachPixel(image, [](QRgb pixel) { return pixel == 0 ? kPlaneRed : pixel == 0xFFFFFFFF ? 0 : pixel; });
}

void MakeFullColor(QImage& image, double threshold) {
  ForEachPixel(image, [threshold](QRgb pixel) {
    const auto full = [threshold](int value) { return value / 255.0 > threshold ? 255 : 0; };
    return qRgba(full(qRed(pixel)), full(qGreen(pixel)), full(qBlue(pixel)), qAlpha(pixel));
  });
}

void MakeMask(QImage& image, MaskMode mode, QStringView color1, QStringView color2) {
  switch (mode) {
    case MaskMode::OpaqueToWhite:
      ForEachPixel(image, [](QRgb pixel) { return qAlpha(pixel) * 0x01010101U; });
      return;
    case MaskMode::PlaneToColors: {
      const ColorFields red(color1);
      const ColorFields green(color2);
      ForEachPixel(image, [&](QRgb pixel) {
        const auto mixed = [pixel](int ofRed, int ofGreen) {
          return std::min((qRed(pixel) * ofRed + qGreen(pixel) * ofGreen + 127) / 255, 255);
        };
        return qRgba(mixed(red.red, green.red), mixed(red.green, green.green), mixed(red.blue, green.blue),
                     mixed(red.alpha, green.alpha));
      });
      return;
    }
    case MaskMode::OpaqueToRed:
      ForEachPixel(image, [](QRgb pixel) { return qAlpha(pixel) * 0x01010000U; });
      return;
    case MaskMode::RedToShadow:
      ForEachPixel(image, [](QRgb pixel) { return static_cast<QRgb>(qRed(pixel)) << 24; });
      return;
  }
}

void Blur32HV(QImage& image, int xPercent, int yPercent) {
  Blur(image, xPercent, yPercent, BlurChannels::All);
}

void Blur32HVHigh(QImage& image, int xPercent, int yPercent) {
  Blur(image, xPercent, yPercent, BlurChannels::Red);
}

void ConvertTo256Bpp(QImage& image, HighlightEdges edges, HighlightFrames frames) {
  if (!Is32Bit(image)) return;
  const auto indexOf = edges == HighlightEdges::Hard      ? HardIndex
                       : frames == HighlightFrames::Drawn ? SmoothIndexBesideFrames
                                                          : SmoothIndex;
  QImage indexed(image.size(), QImage::Format_Indexed8);
  QList<QRgb> palette(256, 0);
  std::ranges::copy(std::array{kPlaneBlack, kPlaneRed, kPlaneGreen, kBlue}, palette.begin());
  indexed.setColorTable(palette);
  for (int y = 0; y < image.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    std::transform(from, from + image.width(), indexed.scanLine(y), indexOf);
  }
  image = indexed;
}

void SetPNGPalette(QImage& image, QStringView color1, QStringView color2, HighlightFrames frames) {
  const ColorFields first(color1);
  QList<QRgb> palette = image.colorTable();
  palette.resize(256, 0);
  palette[0] &= 0x00FFFFFF;
  palette[1] = first.WithTenthsOfAlpha(10);
  palette[2] =
      frames == HighlightFrames::Drawn ? ColorFields(color2).WithTenthsOfAlpha(10) : first.WithTenthsOfAlpha(7);
  palette[3] = first.WithTenthsOfAlpha(frames == HighlightFrames::Drawn ? 6 : 3);
  image.setColorTable(palette);
}

}  // namespace torvane
