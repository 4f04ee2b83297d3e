#include "designer/button_rectangles.h"

#include <gtest/gtest.h>

#include "support/menu_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void PrintTo(const Edges& edges, std::ostream* out) {
  *out << edges.Left << ' ' << edges.Top << ' ' << edges.Right << ' ' << edges.Bottom;
}

void PrintTo(const ButtonRectangle& rectangle, std::ostream* out) {
  *out << rectangle.Key.toStdString() << " check ";
  PrintTo(rectangle.Check, out);
  *out << " written ";
  PrintTo(rectangle.Written, out);
  *out << " letterbox ";
  PrintTo(rectangle.Letterbox, out);
}

namespace {

struct ButtonCase {
  QString name;
  QString frame = u"Frame=0"_s;
  QString relSize = {};    ///< of a mask; "" for none
  QString highlight = {};  ///< of the mask
  bool clip = true;
  bool pal = true;
  QRect place = {100, 100, 80, 40};
  ButtonRectangle expected;
};

TEST(ButtonRectangles, FollowWhatLightsUp) {
  const ButtonCase cases[] = {
      {.name = u"text"_s, .expected = {u"MMB1"_s, {98, 99, 181, 141}, {99, 100, 180, 140}, {99, 147, 180, 177}}},
      {.name = u"text, NTSC"_s, .pal = false,
       .expected = {u"MMB1"_s, {98, 99, 181, 141}, {99, 100, 180, 140}, {99, 135, 180, 165}}},
      {.name = u"frame of 3 pixels; the letterbox one is a pixel less on the right and the bottom"_s, .frame = u"Frame=1"_s,
       .expected = {u"MMB1"_s, {95, 96, 183, 143}, {97, 98, 183, 143}, {97, 146, 182, 178}}},
      {.name = u"mask shown, but not lit"_s, .frame = u"Frame=1"_s, .relSize = u"200"_s, .highlight = u"0"_s,
       .expected = {u"MMB1"_s, {95, 96, 183, 143}, {97, 98, 183, 143}, {97, 146, 182, 178}}},
      {.name = u"lit mask"_s, .frame = u"Frame=1"_s, .relSize = u"200"_s, .highlight = u"1"_s,
       .expected = {u"MMB1"_s, {58, 78, 221, 161}, {59, 79, 221, 161}, {59, 131, 221, 193}}},
      {.name = u"lit mask over the edge, clipped"_s, .relSize = u"100"_s, .highlight = u"3"_s,
       .place = {-10, -20, 800, 700}, .expected = {u"MMB1"_s, {0, 0, 720, 576}, {1, 1, 720, 576}, {1, 73, 720, 504}}},
      {.name = u"lit mask over the edge"_s, .relSize = u"100"_s, .highlight = u"2"_s, .clip = false,
       .place = {-10, -20, 800, 700},
       .expected = {u"MMB1"_s, {-12, -22, 791, 681}, {-11, -21, 791, 681}, {-11, 56, 791, 583}}},
      {.name = u"lit mask without rectangle"_s, .highlight = u"1"_s, .expected = {u"MMB1"_s, {}, {}, {}}},
  };
  for (const ButtonCase& test : cases) {
    Settings settings = test::FixedSettings();
    settings.VideoNormPal = test.pal;
    settings.ClipGifMask = test.clip;
    Project project(settings);
    AddDefaultProject(project);
    project.Tree.SetCaption(u"MMHT2"_s, test.frame);
    test::AddButton(project, u"MM"_s, 1, u"Text"_s, test.place);
    if (!test.highlight.isEmpty()) test::AddMask(project, u"MMB1"_s, u"C:\\m.gif"_s, test.relSize, test.highlight);
    EXPECT_EQ(ButtonRectangles(MenuView(project.Tree, u"MM"_s), settings), std::vector{test.expected})
        << test.name.toStdString();
  }
}

TEST(ButtonRectangles, ReadTheShortKeysOfAMask) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddButton(project, u"MM"_s, 1, u"Text"_s, {100, 100, 80, 40});
  for (const QString& line : {u"Gif|Gif=mask|C:\\m.gif"_s, u"RelSize|Rel.Size=50"_s, u"XOff|X-Offset=7"_s,
                              u"YOff|Y-Offset=-3"_s, u"UseHigh|Highlight=2"_s}) {
    test::AddNode(project, u"MMB1"_s, u"MMB1" + line);
  }
  const ButtonRectangle expected{u"MMB1"_s, {125, 105, 168, 128}, {126, 106, 168, 128}, {126, 152, 168, 168}};
  EXPECT_EQ(ButtonRectangles(MenuView(project.Tree, u"MM"_s), project.Settings), std::vector{expected});
}

TEST(ButtonRectangles, LeaveOutButtonsThatAreNotOnTheDisc) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddButton(project, u"MM"_s, 1, u" "_s, {10, 10, 50, 50}, {u"NormVis=0"_s});
  test::AddButton(project, u"MM"_s, 2, u" "_s, {100, 10, 50, 50});
  test::AddButton(project, u"MM"_s, 3, u""_s, {200, 10, 50, 50}, {u"NormVis=0"_s});
  test::AddButton(project, u"MM"_s, 4, u" "_s, {300, 10, 50, 50}, {u"NormVis=0"_s});
  test::AddMask(project, u"MMB4"_s, u"C:\\m.gif"_s, u"100"_s, u"0"_s);
  test::AddButton(project, u"MM"_s, 5, u"no action"_s, {400, 10, 50, 50});
  project.Tree.Remove(u"MMB5Action"_s);

  QStringList keys;
  for (const ButtonRectangle& rectangle : ButtonRectangles(MenuView(project.Tree, u"MM"_s), project.Settings)) {
    keys << rectangle.Key;
  }
  EXPECT_EQ(keys, QStringList({u"MMB2"_s, u"MMB3"_s, u"MMB4"_s}));
}

TEST(ButtonRectangles, MustStayInTheFrameAndApart) {
  struct Case {
    std::vector<Edges> rectangles;
    bool expected;
  };
  const Case cases[] = {
      {{}, true},                    {{{0, 0, 720, 576}}, true},    {{{-1, 0, 10, 10}}, false},
      {{{0, -1, 10, 10}}, false},    {{{0, 0, 721, 10}}, false},    {{{0, 0, 10, 577}}, false},
      {{{10, 10, 10, 20}}, false},   {{{10, 20, 20, 10}}, false},   {{{}}, false},
      {{{0, 0, 10, 10}, {10, 0, 20, 10}, {0, 10, 10, 20}}, true},
      {{{0, 0, 10, 10}, {9, 9, 20, 20}}, false},
      {{{0, 0, 10, 10}, {50, 50, 60, 60}, {5, 5, 6, 6}}, false},
  };
  for (const Case& test : cases) {
    std::vector<ButtonRectangle> rectangles;
    for (const Edges& edges : test.rectangles)
      rectangles.push_back({.Key = {}, .Check = edges, .Written = {}, .Letterbox = {}});
    EXPECT_EQ(RectangleFaults(rectangles, 576).empty(), test.expected) << testing::PrintToString(test.rectangles);
  }
}

TEST(ButtonRectangles, MayTouchButNotMeet) {
  for (const auto& [left, valid] : {std::pair(182, false), std::pair(183, true)}) {
    Project project(test::FixedSettings());
    AddDefaultProject(project);
    // The first ends at 180, the second is written from one pixel left of its place.
    test::AddButton(project, u"MM"_s, 1, u"a"_s, {100, 100, 80, 40});
    test::AddButton(project, u"MM"_s, 2, u"b"_s, {left, 100, 80, 40});
    const auto rectangles = ButtonRectangles(MenuView(project.Tree, u"MM"_s), project.Settings);
    EXPECT_EQ(RectangleFaults(rectangles, 576).empty(), valid) << testing::PrintToString(rectangles);
  }
}

}  // namespace
}  // namespace torvane
