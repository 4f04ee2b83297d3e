#include "render/text_painter.h"

#include <gtest/gtest.h>

#include "pixels.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

FontRecord Font(double size, const QString& name = FontRecord().Name) {
  FontRecord font;
  font.Name = name;
  font.Size = size;
  return font;
}

QImage Plane() {
  QImage plane(300, 120, QImage::Format_RGB32);
  plane.fill(Qt::black);
  return plane;
}

/// The smallest rectangle around all pixels that are not black.
QRect Ink(const QImage& plane) {
  return test::AreaOf(plane, [](QRgb pixel) { return pixel != 0xFF000000; });
}

TEST(TextPainter, PlacesLinesByTheirAlignment) {
  const TextPainter painter(Font(12));
  const int height = painter.TextHeight();
  const QRect place(99, 50, 201, 60);
  const int one = painter.TextWidth(u"one"_s);
  const int longer = painter.TextWidth(u"longer line"_s);
  ASSERT_GT(longer, one);
  const auto half = [](int width) { return static_cast<int>(std::nearbyint(width / 2.0)); };
  const struct {
    TextAlign align;
    int one, empty, longer;
  } cases[] = {
      {TextAlign::Left, 101, 101, 101},
      {TextAlign::Right, 299 - one, 299, 299 - longer},
      {TextAlign::Centre, 199 - half(one), 199, 199 - half(longer)},  // half of 201 is 100, the even neighbour
  };
  for (const auto& c : cases) {
    EXPECT_EQ(painter.Lines(u"one\r\n\r\nlonger line"_s, place, c.align),
              (std::vector<TextLine>{{u"one"_s, {c.one, 51}},
                                     {u""_s, {c.empty, 51 + height}},
                                     {u"longer line"_s, {c.longer, 51 + 2 * height}}}));
  }
  // A single line that is aligned right stands a pixel farther left.
  EXPECT_EQ(painter.Lines(u"one"_s, place, TextAlign::Right), (std::vector<TextLine>{{u"one"_s, {298 - one, 51}}}));
}

TEST(TextPainter, SizeFollowsTheText) {
  const TextPainter painter(Font(18));
  const int height = painter.TextHeight();
  EXPECT_EQ(CalculateSize(Font(18), u""_s), QSize(5, 1));
  EXPECT_EQ(CalculateSize(Font(18), u"wide line"_s), QSize(painter.TextWidth(u"wide line"_s) + 5, height + 3));
  EXPECT_EQ(CalculateSize(Font(18), u"a\r\nwide line\r\n"_s),
            QSize(painter.TextWidth(u"wide line"_s) + 5, 3 * height + 3));
}

TEST(TextPainter, TakesSizesAsPointsAtNinetySixDots) {
  // 72 points are 96 pixels, and so high is what stands between two lines of a font, give or take its leading.
  EXPECT_NEAR(TextPainter(Font(72)).TextHeight(), 96, 20);
  EXPECT_NEAR(TextPainter(Font(9)).TextHeight(), 12, 4);
}

TEST(TextPainter, ReplacesAFontThatIsNotThere) {
  const auto width = [](const QString& family) { return TextPainter(Font(20, family)).TextWidth(u"Replacement"_s); };
  EXPECT_EQ(width(u"No Such Family 7"_s), width(u"Sans Serif"_s));
  EXPECT_EQ(width(u"Arial"_s), width(u"Liberation Sans"_s));
}

TEST(TextPainter, PrintsWithinTheLinesCellAndAsFarAsOutlinesAndBlocksSay) {
  const TextPainter painter(Font(24));
  const TextLine line{u"Hxg"_s, {40, 30}};
  const LineCoverage coverage = painter.Draw(line, Plane().size());
  const auto ink = [](const auto& print) {
    QImage plane = Plane();
    print(plane);
    return Ink(plane);
  };
  const QRect cell(40, 30, painter.TextWidth(line.text), painter.TextHeight());
  const QRect plain = ink([&](QImage& plane) { Print(plane, line.position, coverage, 0xFFFFFFFF); });
  EXPECT_TRUE(cell.contains(plain)) << plain.x() << ' ' << plain.y();
  EXPECT_GT(plain.width(), cell.width() / 2);
  EXPECT_GT(plain.height(), cell.height() / 2);
  EXPECT_EQ(ink([&](QImage& plane) { OutlinePrint(plane, line.position, coverage, 0xFFFFFFFF); }),
            plain.adjusted(-1, -1, 1, 1));
  for (const QPoint& way : {QPoint(0, 0), QPoint(7, 3), QPoint(-2, 9), QPoint(-5, -5)}) {
    EXPECT_EQ(ink([&](QImage& plane) { BlockPrint(plane, line.position, way, coverage, 0xFFFFFFFF); }),
              plain | plain.translated(way))
        << way.x() << ' ' << way.y();
  }
}

TEST(TextPainter, DrawsTheSamePixelsOnEveryPlane) {
  const TextPainter painter(Font(30));
  const TextLine line{u"Agreement"_s, {5, 10}};
  QImage red = Plane();
  QImage white = Plane();
  Print(red, line.position, painter.Draw(line, red.size()), 0xFFFF0000);
  Print(white, line.position, painter.Draw(line, white.size()), 0xFFFFFFFF);
  test::ForPixels(red, [&](QPoint at, QRgb pixel) { ASSERT_EQ(qRed(pixel), qRed(white.pixel(at))); });
}

TEST(TextPainter, CutsOffHugeAndFarTexts) {
  const TextPainter painter(Font(1e9));
  QImage plane = Plane();
  const TextLine line{QString(500, u'W'), {-20000, -1200}};
  const LineCoverage coverage = painter.Draw(line, plane.size());
  EXPECT_LE(coverage.alpha.width(), plane.width() + 2 * kMaxPrintOffset);
  Print(plane, line.position, coverage, 0xFFFFFFFF);
  EXPECT_FALSE(Ink(plane).isEmpty());
  EXPECT_TRUE(painter.Draw({u"W"_s, {100000, 0}}, plane.size()).alpha.isNull());
}

}  // namespace
}  // namespace torvane
