#include "designer/alignment.h"

#include <gtest/gtest.h>

#include "designer/edit_elements.h"
#include "designer/edit_values.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QSize kPage(720, 576);

TEST(Alignment, PlacesEachRectangleFromItsExactPlace) {
  const std::vector<QRect> boxes{{10, 20, 31, 10}, {50, 5, 20, 16}, {93, 40, 7, 9}};
  struct Case {
    Alignment alignment;
    QList<int> starts;  // left edges, or top edges
  };
  const Case cases[] = {
      {Alignment::Left, {10, 10, 10}},     {Alignment::Right, {69, 80, 93}},    {Alignment::Top, {5, 5, 5}},
      {Alignment::Bottom, {39, 33, 40}},   {Alignment::HCenter, {40, 45, 52}},  // middle 55
      {Alignment::VCenter, {22, 19, 22}},                                       // middle 27
      {Alignment::HPage, {344, 350, 356}}, {Alignment::VPage, {283, 280, 284}},
  };
  for (const Case& c : cases) {
    const std::vector<QRect> placed = AlignRectangles(boxes, c.alignment, kPage);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      const bool horizontal = c.alignment == Alignment::Left || c.alignment == Alignment::Right ||
                              c.alignment == Alignment::HCenter || c.alignment == Alignment::HPage;
      QRect expected = boxes[i];
      if (horizontal) {
        expected.moveLeft(c.starts[qsizetype(i)]);
      } else {
        expected.moveTop(c.starts[qsizetype(i)]);
      }
      EXPECT_EQ(placed[i], expected) << int(c.alignment) << ' ' << i;
    }
  }
}

TEST(Alignment, DistributesWithoutCollectingRoundingErrors) {
  // Gap 10 / 4 = 2.5; the exact places are 0, 12.5, 25, 37.5, 50.
  const std::vector<QRect> boxes{{50, 0, 10, 1}, {0, 0, 10, 1}, {3, 0, 10, 1}, {2, 0, 10, 1}, {1, 0, 10, 1}};
  const auto placed = DistributeRectangles(boxes, Distribution::Horizontal, kPage);
  ASSERT_TRUE(placed);
  EXPECT_EQ(*placed,
            (std::vector<QRect>{{50, 0, 10, 1}, {0, 0, 10, 1}, {38, 0, 10, 1}, {25, 0, 10, 1}, {12, 0, 10, 1}}));

  // Gap (576 - 100 - 32) / 3 = 148.
  const auto page = DistributeRectangles({{5, 300, 10, 60}, {5, 1, 10, 40}}, Distribution::VerticalPage, kPage);
  ASSERT_TRUE(page);
  EXPECT_EQ(*page, (std::vector<QRect>{{5, 352, 10, 60}, {5, 164, 10, 40}}));
}

TEST(Alignment, TellsWhatCannotBeDistributed) {
  EXPECT_EQ(DistributeRectangles({{0, 0, 10, 10}, {50, 0, 10, 10}}, Distribution::Horizontal, kPage).Error(),
            u"Error: 3 or more objects necessary");
  EXPECT_EQ(
      DistributeRectangles({{0, 0, 30, 1}, {10, 0, 30, 1}, {40, 0, 40, 1}}, Distribution::Horizontal, kPage).Error(),
      u"Error: Not enough space between objects");
  EXPECT_TRUE(DistributeRectangles({{0, 0, 688, 1}}, Distribution::HorizontalPage, kPage));
  EXPECT_EQ(DistributeRectangles({{0, 0, 689, 1}}, Distribution::HorizontalPage, kPage).Error(),
            u"Error: Not enough space between objects");
}

TEST(Alignment, KeepsGroupedElementsTogether) {
  test::EditBench bench;
  const auto place = [](int x, int y) { return ElementPlace{.position = QPoint(x, y), .style = ButtonStyle::Graphic}; };
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, place(100, 100)));
  ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, place(100, 100)));
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, place(60, 300)));
  ASSERT_TRUE(AlignElements(bench.context, u"MM"_s, {u"MMB1"_s, u"MMB2"_s}, Alignment::Left));
  EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMI1"_s), QRect(60, 100, 100, 80));
  EXPECT_FALSE(DistributeElements(bench.context, u"MM"_s, {u"MMB1"_s, u"MMB2"_s}, Distribution::Vertical));
  EXPECT_EQ(bench.Told(), QStringList(u"Error: 3 or more objects necessary"_s));
  EXPECT_FALSE(AlignElements(bench.context, u"MM"_s, {u"MMB1"_s, u"MMBG"_s}, Alignment::Left));
}

TEST(Alignment, GroupsNothingThatMeetsOnTheWay) {
  test::EditBench bench;
  const auto place = [](int x) { return ElementPlace{.position = QPoint(x, 50), .style = ButtonStyle::Graphic}; };
  ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, place(20)));
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, place(179)));
  // Gap (720 - 200 - 32) / 3: the picture comes to where the button still stands.
  ASSERT_TRUE(DistributeElements(bench.context, u"MM"_s, {u"MMI1"_s, u"MMB1"_s}, Distribution::HorizontalPage));
  EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMI1"_s), QRect(179, 50, 100, 80));
  EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMB1"_s), QRect(441, 50, 100, 80));
}

}  // namespace
}  // namespace torvane
