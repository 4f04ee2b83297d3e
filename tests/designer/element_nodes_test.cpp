#include "designer/element_nodes.h"

#include <gtest/gtest.h>

#include "support/edit_bench.h"
#include "support/golden.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ElementNodes, ATextButtonIsAsLargeAsItsText) {
  test::EditBench bench;
  bench.project.Settings.DefTextButtonGif = {.Enabled = true, .File = u"a.gif"_s, .RelSize = 112.5, .XOffset = -2};
  bench.project.Settings.DefBOutline = u"1;2;3;1;"_s;
  AddButtonNodes(bench.project, u"MM"_s, {.text = u"One\nTwo!"_s, .action = u"exit;"_s, .position = {60, 80}},
                 test::MeasureFixed);
  test::ExpectGolden(test::DumpTree(bench.project.Tree, u"MMB1"_s).toUtf8(), u"text_button.tree"_s);
}

TEST(ElementNodes, ButtonsTakeTheLowestFreeNumberInFrontOfTheBackButton) {
  test::EditBench bench;
  const auto add = [&](ButtonKind kind) {
    return AddButtonNodes(bench.project, u"MM"_s, {.kind = kind, .text = u"x"_s}, test::MeasureFixed);
  };
  AddBackButton(bench.project, u"MM"_s, u"Back"_s, u"jump menu 1;"_s, test::MeasureFixed);
  EXPECT_EQ(add(ButtonKind::Film), 1);
  EXPECT_EQ(add(ButtonKind::Free), 2);
  EXPECT_EQ(add(ButtonKind::Film), 3);
  bench.project.Tree.Remove(u"MMB1"_s);
  EXPECT_EQ(add(ButtonKind::Film), 1);
  EXPECT_EQ(bench.Children(u"MMB"_s),
            QStringList({u"FreeButton1"_s, u"FilmButton1"_s, u"FilmButton2"_s, u"BackButton"_s}));
}

TEST(ElementNodes, TheBackButtonIsMovedInWhereItStandsTooFarOut) {
  struct Case {
    bool text;
    bool pal;
    QPoint setting;
    QPoint position;
  };
  // The text button is 37 by 19 pixels, the graphic one 100 by 50.
  const Case cases[] = {
      {true, true, {600, 500}, {600, 500}},  {true, true, {673, 547}, {673, 547}},
      {true, true, {674, 548}, {657, 537}},  {true, false, {20, 500}, {20, 441}},
      {false, true, {610, 516}, {610, 516}}, {false, true, {611, 517}, {594, 508}},
  };
  for (const Case& c : cases) {
    Settings settings = test::FixedSettings();
    settings.BackButtonIsText = c.text;
    settings.VideoNormPal = c.pal;
    settings.BackButtonXpos = c.setting.x();
    settings.BackButtonYpos = c.setting.y();
    test::EditBench bench(settings);
    AddBackButton(bench.project, u"MM"_s, u"Back"_s, {}, test::MeasureFixed);
    const TextGeometry geometry = DrawingView(bench.project.Tree, u"MMBP0"_s).Geometry();
    EXPECT_EQ(QPoint(geometry.Left, geometry.Top), c.position);
    EXPECT_EQ(geometry.Align, TextAlign::Centre);
  }
}

TEST(ElementNodes, ACombinedButtonHasItsLabelBeside) {
  struct Case {
    int side;
    QPoint graphic;
    QPoint label;
  };
  // The graphic is 100 by 80 pixels, the label 37 by 19.
  const Case cases[] = {
      {0, {100, 100}, {218, 130}}, {0, {549, 100}, {667, 130}}, {0, {550, 100}, {495, 130}},
      {1, {100, 100}, {131, 198}}, {1, {100, 443}, {131, 541}}, {1, {100, 444}, {131, 407}},
      {2, {100, 100}, {45, 130}},  {2, {70, 100}, {188, 130}},  {3, {100, 100}, {131, 63}},
      {3, {100, 52}, {131, 150}},
  };
  for (const Case& c : cases) {
    Settings settings = test::FixedSettings();
    settings.DefLabelPos = c.side;
    test::EditBench bench(settings);
    AddButtonNodes(bench.project, u"MM"_s, {.text = u"Film"_s, .position = c.graphic, .style = ButtonStyle::Combined},
                   test::MeasureFixed);
    const TextGeometry geometry = DrawingView(bench.project.Tree, u"MMLP37"_s).Geometry();
    EXPECT_EQ(QPoint(geometry.Left, geometry.Top), c.label) << c.side << ' ' << c.graphic.x();
    EXPECT_EQ(bench.Captions(u"MMB1Text MMB1FixedSize MMBP1NormVis"_s),
              QStringList({u"Text="_s, u"FixedSize=1"_s, u"NormVis=0"_s}));
  }
}

TEST(ElementNodes, LabelsImagesAndAnimations) {
  Settings settings = test::FixedSettings();
  settings.DefShadow = u"128;5;6;1;"_s;
  settings.AutoCrop = true;
  test::EditBench bench(settings);
  EXPECT_EQ(AddLabelNodes(bench.project, u"MM"_s, {.text = u"Hi"_s, .position = {1, 2}}, test::MeasureFixed), 37);
  EXPECT_EQ(bench.Children(u"MML37"_s), QStringList({u"Text=Hi"_s, u"Properties"_s}));
  EXPECT_EQ(bench.Children(u"MMLP37"_s).mid(0, 7),
            QStringList({u"Shadow=1"_s, u"Align=0"_s, u"Color=128,255,255"_s, u"Left=1"_s, u"Top=2"_s, u"Width=21"_s,
                         u"Height=19"_s}));
  AddImageNodes(bench.project, u"MM"_s, u"C:\\p.jpg"_s, {3, 4});
  test::ExpectGolden(test::DumpTree(bench.project.Tree, u"MMI1"_s).toUtf8(), u"image.tree"_s);
  AddAnimationNodes(bench.project, u"MM"_s, {.video = u"C:\\v.m2v"_s});
  AddAnimationNodes(bench.project, u"MM"_s, {.video = u"C:\\v.avi"_s, .picture = u"C:\\p.bmp"_s});
  test::ExpectGolden(test::DumpTree(bench.project.Tree, u"MMS"_s).toUtf8(), u"animations.tree"_s);
}

TEST(ElementNodes, OneButtonOfAMenuActsByItself) {
  test::EditBench bench;
  for (int i = 0; i < 2; ++i) AddButtonNodes(bench.project, u"MM"_s, {.text = u"x"_s}, test::MeasureFixed);
  const AutoActions actions{u"l"_s, u"r"_s, u"u"_s, u"d"_s};
  EXPECT_TRUE(SetAutoAction(bench.project, u"MM"_s, 1, actions));
  EXPECT_FALSE(SetAutoAction(bench.project, u"MM"_s, 2, actions));
  EXPECT_EQ(test::DumpTree(bench.project.Tree, u"MMB1AutoAction"_s),
            u"MMB1AutoAction|AutoAction=1||1\n"
            " MMB1ActionLeft|ActionLeft=l||1\n"
            " MMB1ActionRight|ActionRight=r||1\n"
            " MMB1ActionUp|ActionUp=u||1\n"
            " MMB1ActionDown|ActionDown=d||1\n"_s);
  EXPECT_EQ(bench.project.Tree.Find(u"MMB"_s)->Tag(), u"1");
  RemoveButtonNodes(bench.project, u"MM"_s, 1);
  EXPECT_EQ(bench.project.Tree.Find(u"MMB"_s)->Tag(), u"");
  EXPECT_TRUE(SetAutoAction(bench.project, u"MM"_s, 2, actions));
}

}  // namespace
}  // namespace torvane
