#include "render/bitmap.h"

#include <gtest/gtest.h>

#include <vector>

#include "pixels.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using Pixels = std::vector<QRgb>;

/// A picture of one row.
QImage Row(const Pixels& pixels, QImage::Format format = QImage::Format_ARGB32) {
  QImage image(static_cast<int>(pixels.size()), 1, format);
  std::ranges::copy(pixels, reinterpret_cast<QRgb*>(image.scanLine(0)));
  return image;
}

/// The stored pixels of the first row.
Pixels PixelsOf(const QImage& image) {
  const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(0));
  return {line, line + image.width()};
}

std::vector<int> IndicesOf(const QImage& image) {
  std::vector<int> indices;
  for (int x = 0; x < image.width(); ++x) indices.push_back(image.pixelIndex(x, 0));
  return indices;
}

TEST(Bitmap, RecolorsPixels) {
  QImage image = Row({0xFF102030, 0xFF102031, 0x80102030, 0});
  MakeTransparent(image, 0xFF102030);
  EXPECT_EQ(PixelsOf(image), (Pixels{0, 0xFF102031, 0x80102030, 0}));

  image = Row({0x00000000, 0xFFFFFFFF, 0x80808080, 0xFF000000});
  InvertMask(image);
  EXPECT_EQ(PixelsOf(image), (Pixels{0xFFFF0000, 0x00000000, 0x80808080, 0xFF000000}));

  image = Row({0xFF010000, 0xFF000000, 0xFF00FF80, 0x40010203});
  MakeFullColor(image, 0.002);
  EXPECT_EQ(PixelsOf(image), (Pixels{0xFFFF0000, 0xFF000000, 0xFF00FFFF, 0x40FFFFFF}));
  image = Row({0xFF7F8000});
  MakeFullColor(image, 0.5);
  EXPECT_EQ(PixelsOf(image), (Pixels{0xFF00FF00}));
}

TEST(Bitmap, MakesMasks) {
  const Pixels source{0xFF123456, 0x80123456, 0x00123456, 0xFFFF0000, 0xFF00FF00, 0xFF800000, 0xFFFFFF00, 0xFF000000};
  const std::pair<MaskMode, Pixels> cases[] = {
      {MaskMode::OpaqueToWhite,
       {0xFFFFFFFF, 0x80808080, 0, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}},
      // Colour 1 is (200, 100, 0) with alpha 150, colour 2 (0, 255, 50) with alpha 254; sums stop at 255.
      {MaskMode::PlaneToColors,
       {0x3E0E3B0A, 0x3E0E3B0A, 0x3E0E3B0A, 0x96C86400, 0xFE00FF32, 0x4B643200, 0xFFC8FF32, 0}},
      {MaskMode::OpaqueToRed, {0xFFFF0000, 0x80800000, 0, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000}},
      {MaskMode::RedToShadow, {0x12000000, 0x12000000, 0x12000000, 0xFF000000, 0, 0x80000000, 0xFF000000, 0}},
  };
  for (const auto& [mode, expected] : cases) {
    QImage image = Row(source);
    MakeMask(image, mode, u"200#100#000#150", u"000#255#050#254");
    EXPECT_EQ(PixelsOf(image), expected) << static_cast<int>(mode);
  }
}

TEST(Bitmap, RecolorsPicturesOfAnyFormat) {
  QImage palette(2, 1, QImage::Format_Indexed8);
  palette.setColorTable({0x00000000, 0xFF00FF00});
  for (int x = 0; x < 2; ++x) palette.setPixel(x, 0, x);
  MakeMask(palette, MaskMode::OpaqueToRed);
  EXPECT_EQ(palette.format(), QImage::Format_ARGB32);
  EXPECT_EQ(PixelsOf(palette), (Pixels{0, 0xFFFF0000}));
}

/// A black picture of 5 by 5 with one bright pixel in the middle.
QImage Dot(QRgb dot) {
  QImage image(5, 5, QImage::Format_ARGB32);
  image.fill(qRgba(0, 0, 0, 255));
  image.setPixel(2, 2, dot);
  return image;
}

/// Red of the inner 3 by 3 pixels.
std::vector<int> InnerReds(const QImage& image) {
  std::vector<int> reds;
  for (int y = 1; y <= 3; ++y) {
    for (int x = 1; x <= 3; ++x) reds.push_back(qRed(image.pixel(x, y)));
  }
  return reds;
}

TEST(Bitmap, BlursRowsAndColumnsByTheirOwnStrength) {
  // At 100 percent the centre weighs 0.4985 and each side 0.25075, at 50 percent 0.7085 and 0.14575.
  const struct {
    int x, y;
    std::vector<int> expected;
  } cases[] = {
      {0, 0, {0, 0, 0, 0, 200, 0, 0, 0, 0}},
      {100, 0, {0, 0, 0, 50, 100, 50, 0, 0, 0}},
      {0, 100, {0, 50, 0, 0, 100, 0, 0, 50, 0}},
      {100, 50, {7, 15, 7, 35, 71, 35, 7, 15, 7}},
  };
  for (const auto& [x, y, expected] : cases) {
    QImage image = Dot(qRgb(200, 0, 0));
    Blur32HV(image, x, y);
    EXPECT_EQ(InnerReds(image), expected) << x << ' ' << y;
    EXPECT_EQ(image.pixel(2, 2) >> 24, 255U);
  }
}

TEST(Bitmap, BlurNeverFiltersTheOutermostPixelsAndKeepsEveryByteInItsRange) {
  QImage image(6, 4, QImage::Format_RGB32);
  test::ForPixels(image,
                  [&](QPoint at, QRgb) { image.setPixel(at, (at.x() + at.y()) % 2 == 0 ? 0xFFFFFFFF : 0xFF000000); });
  const QImage before = image;
  Blur32HV(image, 5000, 90);  // far beyond what a dialog allows: the weights leave 0 to 1
  test::ForPixels(image, [&](QPoint at, QRgb pixel) {
    EXPECT_EQ(qAlpha(pixel), 255);
    EXPECT_TRUE(QRect(1, 1, 4, 2).contains(at) || pixel == before.pixel(at)) << at.x() << ' ' << at.y();
  });

  for (const QSize& size : {QSize(1, 1), QSize(2, 5), QSize(5, 2)}) {
    QImage small(size, QImage::Format_ARGB32);
    small.fill(0x40302010);
    const QImage untouched = small;
    Blur32HV(small, 50, 90);
    EXPECT_EQ(small, untouched);
  }
}

TEST(Bitmap, HighlightBlurTouchesRedAlone) {
  QImage image = Dot(qRgba(200, 255, 77, 99));
  QImage all = image;
  Blur32HVHigh(image, 100, 50);
  Blur32HV(all, 100, 50);
  EXPECT_EQ(InnerReds(image), InnerReds(all));
  const QImage before = Dot(qRgba(200, 255, 77, 99));
  test::ForPixels(image, [&](QPoint at, QRgb pixel) { EXPECT_EQ(pixel & 0xFF00FFFF, before.pixel(at) & 0xFF00FFFF); });
}

TEST(Bitmap, LeavesOtherFormatsAloneWhereItSoftensOrReduces) {
  QImage image(5, 5, QImage::Format_RGB888);
  image.fill(Qt::red);
  image.setPixel(2, 2, 0xFF00FF00);
  const QImage before = image;
  Blur32HV(image, 50, 50);
  Blur32HVHigh(image, 50, 50);
  ConvertTo256Bpp(image, HighlightEdges::Smooth, HighlightFrames::None);
  EXPECT_EQ(image, before);
}

TEST(Bitmap, ReducesAPlaneToFourIndices) {
  const struct {
    HighlightEdges edges;
    HighlightFrames frames;
    Pixels pixels;
    std::vector<int> expected;
  } cases[] = {
      {HighlightEdges::Hard,
       HighlightFrames::Drawn,
       {0xFF000000, 0xFFFF0000, 0xFF00FF00, 0xFF800000, 0xFF0000FF, 0x00000000},
       {0, 1, 2, 0, 0, 0}},
      {HighlightEdges::Smooth,
       HighlightFrames::None,
       {0xFF000000, 0xFF000001, 0xFF200000, 0xFF300000, 0xFF300001, 0xFF400000, 0xFF800000, 0xFF800001, 0xFF900000,
        0xFFC00000, 0xFFC00001, 0xFFD00000, 0xFFFF0000, 0xFF00FF00, 0x80FF0000, 0x00000000},
       {0, 0, 0, 0, 3, 3, 3, 2, 2, 2, 1, 1, 1, 0, 0, 1}},
      {HighlightEdges::Smooth,
       HighlightFrames::Drawn,
       {0xFF000000, 0xFF00FF00, 0xFF00FF01, 0xFF00FE00, 0xFF010000, 0xFF400000, 0xFF400001, 0xFFA00000, 0xFFA00001,
        0xFFFF0000, 0xFFFFFF00, 0xFF20FF00},
       {0, 2, 0, 0, 0, 0, 3, 3, 1, 1, 1, 0}},
  };
  for (const auto& test : cases) {
    QImage image = Row(test.pixels);
    ConvertTo256Bpp(image, test.edges, test.frames);
    EXPECT_EQ(IndicesOf(image), test.expected);
    QList<QRgb> palette(256, 0);
    std::ranges::copy(Pixels{0xFF000000, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF}, palette.begin());
    EXPECT_EQ(image.colorTable(), palette);
  }
}

TEST(Bitmap, GivesIndicesTheirColors) {
  const struct {
    HighlightFrames frames;
    QString color1;
    Pixels expected;
  } cases[] = {
      {HighlightFrames::None, u"255#000#000#200"_s, {0x00000000, 0xC8FF0000, 0x8CFF0000, 0x3CFF0000}},
      {HighlightFrames::Drawn, u"255#000#000#200"_s, {0x00000000, 0xC8FF0000, 0x640000FF, 0x78FF0000}},
      // 0.7 and 0.3 of 5, 15 and 255 halve to the even neighbour.
      {HighlightFrames::None, u"001#002#003#005"_s, {0x00000000, 0x05010203, 0x04010203, 0x02010203}},
      {HighlightFrames::None, u"001#002#003#015"_s, {0x00000000, 0x0F010203, 0x0A010203, 0x04010203}},
      {HighlightFrames::None, u"001#002#003#255"_s, {0x00000000, 0xFF010203, 0xB2010203, 0x4C010203}},
  };
  for (const auto& test : cases) {
    QImage image = Row({0xFF000000, 0xFFFF0000});
    ConvertTo256Bpp(image, HighlightEdges::Smooth, test.frames);
    SetPNGPalette(image, test.color1, u"000#000#255#100", test.frames);
    const QList<QRgb> palette = image.colorTable();
    EXPECT_EQ(Pixels(palette.begin(), palette.begin() + 4), test.expected) << test.color1.toStdString();
    EXPECT_EQ(IndicesOf(image), (std::vector{0, 1}));
  }
}

}  // namespace
}  // namespace torvane
