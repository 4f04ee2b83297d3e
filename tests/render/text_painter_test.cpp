#include "render/text_painter.h"

#include <gtest/gtest.h>

#include <QFontInfo>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

FontRecord Arial(double size) {
  FontRecord font;
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
  QRect ink;
  for (int y = 0; y < plane.height(); ++y) {
    for (int x = 0; x < plane.width(); ++x) {
      if (plane.pixel(x, y) != 0xFF000000) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

TEST(TextPainter, PlacesLinesByTheirAlignment) {
  const TextPainter painter(Arial(12));
  const int height = painter.TextHeight();
  const QRect place(99, 50, 201, 60);
  const QString text = u"one\r\n\r\nlonger line"_s;
  const int one = painter.TextWidth(u"one"_s);
  const int longer = painter.TextWidth(u"longer line"_s);
  ASSERT_GT(longer, one);
  const auto half = [](int width) { return static_cast<int>(std::nearbyint(width / 2.0)); };

  EXPECT_EQ(painter.Lines(text, place, TextAlign::Left),
            (std::vector<TextLine>{
                {u"one"_s, {101, 51}}, {u""_s, {101, 51 + height}}, {u"longer line"_s, {101, 51 + 2 * height}}}));
  EXPECT_EQ(painter.Lines(text, place, TextAlign::Right),
            (std::vector<TextLine>{{u"one"_s, {299 - one, 51}},
                                   {u""_s, {299, 51 + height}},
                                   {u"longer line"_s, {299 - longer, 51 + 2 * height}}}));
  // Half of 201 is 100: halves go to the even neighbour.
  EXPECT_EQ(painter.Lines(text, place, TextAlign::Centre),
            (std::vector<TextLine>{{u"one"_s, {199 - half(one), 51}},
                                   {u""_s, {199, 51 + height}},
                                   {u"longer line"_s, {199 - half(longer), 51 + 2 * height}}}));
  // A single line that is aligned right stands a pixel farther left.
  EXPECT_EQ(painter.Lines(u"one"_s, place, TextAlign::Right), (std::vector<TextLine>{{u"one"_s, {298 - one, 51}}}));
}

TEST(TextPainter, SizeFollowsTheText) {
  const TextPainter painter(Arial(18));
  const int height = painter.TextHeight();
  EXPECT_EQ(CalculateSize(Arial(18), u""_s), QSize(5, 1));
  EXPECT_EQ(CalculateSize(Arial(18), u"wide line"_s), QSize(painter.TextWidth(u"wide line"_s) + 5, height + 3));
  EXPECT_EQ(CalculateSize(Arial(18), u"a\r\nwide line\r\n"_s),
            QSize(painter.TextWidth(u"wide line"_s) + 5, 3 * height + 3));
}

TEST(TextPainter, TakesSizesAsPointsAtNinetySixDots) {
  // 72 points are 96 pixels, and so high is what stands between two lines of a font, give or take its leading.
  EXPECT_NEAR(TextPainter(Arial(72)).TextHeight(), 96, 20);
  EXPECT_NEAR(TextPainter(Arial(9)).TextHeight(), 12, 4);
}

TEST(TextPainter, ReplacesAFontThatIsNotThere) {
  FontRecord missing = Arial(20);
  missing.Name = u"No Such Family 7"_s;
  FontRecord sans = Arial(20);
  sans.Name = u"Sans Serif"_s;
  EXPECT_EQ(TextPainter(missing).TextWidth(u"Replacement"_s), TextPainter(sans).TextWidth(u"Replacement"_s));
  FontRecord liberation = Arial(20);
  liberation.Name = u"Liberation Sans"_s;
  EXPECT_EQ(TextPainter(Arial(20)).TextWidth(u"Replacement"_s), TextPainter(liberation).TextWidth(u"Replacement"_s));
}

TEST(TextPainter, ReadsDamagedFontsAsTheDefault) {
  TextGeometry geometry;
  EXPECT_EQ(FontOf(geometry), FontRecord());
  geometry.FontName = u"Courier New"_s;
  geometry.FontSize = 9.75;
  geometry.Bold = geometry.Strikethru = true;
  EXPECT_EQ(FontOf(geometry), (FontRecord{u"Courier New"_s, 9.75, true, false, true, false}));
}

TEST(TextPainter, PrintsWithinTheLinesCell) {
  const TextPainter painter(Arial(24));
  const TextLine line{u"Hxg"_s, {40, 30}};
  QImage plane = Plane();
  Print(plane, line.position, painter.Draw(line, plane.size()), 0xFFFFFFFF);
  const QRect cell(40, 30, painter.TextWidth(line.text), painter.TextHeight());
  const QRect ink = Ink(plane);
  EXPECT_TRUE(cell.contains(ink)) << ink.x() << ' ' << ink.y() << ' ' << ink.width() << ' ' << ink.height();
  EXPECT_GT(ink.width(), cell.width() / 2);
  EXPECT_GT(ink.height(), cell.height() / 2);
}

TEST(TextPainter, OutlinesAndBlocksReachAsFarAsTheySay) {
  const TextPainter painter(Arial(24));
  const TextLine line{u"Hxg"_s, {40, 30}};
  const LineCoverage coverage = painter.Draw(line, Plane().size());
  const auto ink = [](const auto& print) {
    QImage plane = Plane();
    print(plane);
    return Ink(plane);
  };
  const QRect plain = ink([&](QImage& plane) { Print(plane, line.position, coverage, 0xFFFFFFFF); });
  EXPECT_EQ(ink([&](QImage& plane) { OutlinePrint(plane, line.position, coverage, 0xFFFFFFFF); }),
            plain.adjusted(-1, -1, 1, 1));
  struct Case {
    QPoint way;
    QRect expected;
  };
  const Case cases[] = {
      {{0, 0}, plain},
      {{7, 3}, plain.adjusted(0, 0, 7, 3)},
      {{-2, 9}, plain.adjusted(-2, 0, 0, 9)},
      {{-5, -5}, plain.adjusted(-5, -5, 0, 0)},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(ink([&](QImage& plane) { BlockPrint(plane, line.position, test.way, coverage, 0xFFFFFFFF); }),
              test.expected)
        << test.way.x() << ' ' << test.way.y();
  }
}

TEST(TextPainter, DrawsTheSamePixelsOnEveryPlane) {
  const TextPainter painter(Arial(30));
  const TextLine line{u"Agreement"_s, {5, 10}};
  QImage red = Plane();
  QImage white = Plane();
  Print(red, line.position, painter.Draw(line, red.size()), 0xFFFF0000);
  Print(white, line.position, painter.Draw(line, white.size()), 0xFFFFFFFF);
  for (int y = 0; y < red.height(); ++y) {
    for (int x = 0; x < red.width(); ++x) ASSERT_EQ(qRed(red.pixel(x, y)), qRed(white.pixel(x, y)));
  }
}

TEST(TextPainter, CutsOffHugeAndFarTexts) {
  FontRecord huge = Arial(1e9);
  const TextPainter painter(huge);
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
