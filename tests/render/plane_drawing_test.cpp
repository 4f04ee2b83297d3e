#include "render/plane_drawing.h"

#include <gtest/gtest.h>

#include "pixels.h"
#include "render/bitmap.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QImage Plane(int width, int height) {
  QImage plane(width, height, QImage::Format_RGB32);
  plane.fill(Qt::black);
  return plane;
}

/// The plane as text: "#" for green, "r" for red, "." for black.
std::string Sketch(const QImage& plane) {
  std::string text = "\n";
  test::ForPixels(plane, [&](QPoint at, QRgb pixel) {
    text += pixel == kPlaneGreen ? '#' : pixel == kPlaneRed ? 'r' : pixel == kPlaneBlack ? '.' : '?';
    if (at.x() == plane.width() - 1) text += '\n';
  });
  return text;
}

TEST(PlaneDrawing, FramesGrowOutwardAndEndOnBothCorners) {
  QImage plane = Plane(13, 8);
  DrawFrame(plane, {3, 3, 6, 2}, 2, kPlaneGreen);
  EXPECT_EQ(Sketch(plane), R"(
.............
.............
..#########..
..#########..
..##.....##..
..#########..
..#########..
.............
)");
}

TEST(PlaneDrawing, RoundedFramesLoseTheirOuterCorners) {
  QImage plane = Plane(85, 11);
  for (int width = 0; width <= 4; ++width) DrawRoundedFrame(plane, {17 * width + 4, 4, 8, 2}, width, kPlaneGreen);
  EXPECT_EQ(Sketch(plane), R"(
.....................................................................................
.......................................................................###########...
.......................................................#########......#############..
......................................#########........#########.....###############.
.....................#########.......###########.....#############...###############.
.....................#.......#.......##.......##.....###.......###...####.......####.
.....................#########.......###########.....#############...###############.
......................................#########........#########.....###############.
.......................................................#########......#############..
.......................................................................###########...
.....................................................................................
)");
}

TEST(PlaneDrawing, CutsOffWhatLiesOutside) {
  QImage plane = Plane(5, 4);
  DrawRoundedFrame(plane, {-3, 1, 5, 900}, 2, kPlaneGreen);
  FillRectangle(plane, {4, -10, 1000000, 11}, kPlaneRed);
  EXPECT_EQ(Sketch(plane), R"(
###.r
####r
..##.
..##.
)");
}

TEST(PlaneDrawing, StretchesPicturesAndKeepsWhatShowsThroughThem) {
  QImage picture(4, 2, QImage::Format_ARGB32);
  picture.fill(kPlaneRed);
  for (int y = 0; y < 2; ++y) picture.setPixel(3, y, 0);
  QImage plane = Plane(8, 4);
  plane.fill(kPlaneGreen);
  DrawPicture(plane, {1, 1, 4, 2}, picture);
  EXPECT_EQ(Sketch(plane), R"(
########
#rrr####
#rrr####
########
)");

  for (const QSize& size : {QSize(720, 576), QSize(100, 700), QSize(1600, 1200), QSize(3, 3)}) {
    QImage uniform(size, QImage::Format_ARGB32);
    uniform.fill(0xFF204060);
    QImage frame = BlackPlane(test::FixedSettings());
    DrawPicture(frame, {0, 100, 720, 300}, uniform);
    EXPECT_EQ(frame.pixel(0, 99), 0xFF000000);
    EXPECT_EQ(frame.pixel(0, 100), 0xFF204060);
    EXPECT_EQ(frame.pixel(719, 399), 0xFF204060);
    EXPECT_EQ(frame.pixel(719, 400), 0xFF000000);
  }
}

TEST(PlaneDrawing, MixesHalfTransparentPictures) {
  QImage picture(1, 1, QImage::Format_ARGB32);
  picture.fill(0x80000000);
  QImage plane = Plane(1, 1);
  plane.fill(0xFFC86432);
  DrawPicture(plane, {0, 0, 1, 1}, picture);
  EXPECT_NEAR(qRed(plane.pixel(0, 0)), 100, 1);
  EXPECT_NEAR(qGreen(plane.pixel(0, 0)), 50, 1);
  EXPECT_NEAR(qBlue(plane.pixel(0, 0)), 25, 1);
}

TEST(PlaneDrawing, HardStretchingMakesNoNewColors) {
  QImage picture(1, 8, QImage::Format_ARGB32);
  for (int y = 0; y < 8; ++y) picture.setPixel(0, y, 0x01010101U * static_cast<unsigned>(y));
  QImage plane(1, 8, QImage::Format_ARGB32);
  plane.fill(0xFFFFFFFF);
  DrawPictureHard(plane, {0, 1, 1, 6}, picture);
  std::vector<QRgb> column;
  for (int y = 0; y < 8; ++y) column.push_back(plane.pixel(0, y));
  // Centres of the six lines lie in lines 0, 2, 3, 4, 6 and 7 of the picture.
  EXPECT_EQ(column,
            (std::vector<QRgb>{0xFFFFFFFF, 0, 0x02020202, 0x03030303, 0x04040404, 0x06060606, 0x07070707, 0xFFFFFFFF}));
}

}  // namespace
}  // namespace torvane
