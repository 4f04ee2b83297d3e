#include "designer/edit_values.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "designer/edit_elements.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(EditValues, TakeWhatTheirClassAllows) {
  struct Case {
    QString key;
    QString value;
    bool done;
    QString caption;
    int told = 0;
  };
  const Case cases[] = {
      {u"MMHCT1"_s, u"0"_s, true, u"Transparenz=0%"_s},
      {u"MMHCT1"_s, u"99%"_s, true, u"Transparenz=99%"_s},
      {u"MMHCT1"_s, u"100"_s, false, u"Transparenz=41%"_s, 139},
      {u"MMHCT1"_s, u"-1"_s, false, u"Transparenz=41%"_s, 139},
      {u"MMHCT1"_s, u"much"_s, false, u"Transparenz=41%"_s, 139},
      {u"MM1PPause"_s, u"0"_s, true, u"Pause=0"_s},
      {u"MM1PPause"_s, u"255"_s, true, u"Pause=255"_s},
      {u"MM1PPause"_s, u"256"_s, false, u"Pause=inf"_s, 139},
      {u"MM1PPause"_s, u"inf"_s, true, u"Pause=inf"_s},
      {u"MMHC1"_s, u"1, 2,003"_s, true, u"FillColor=1,2,3"_s},
      {u"MMHC1"_s, u"1,2,256"_s, false, u"FillColor=255,0,0"_s, 139},
      {u"MMHC1"_s, u"1,2"_s, false, u"FillColor=255,0,0"_s, 139},
      {u"MMBGPath"_s, u"C:\\x.png"_s, true, u"Image=C:\\x.png"_s},
      {u"MMLP37Left"_s, u"10"_s, true, u"Left=10"_s},
      {u"MMLP37Left"_s, u"9"_s, false, u"Left=100"_s, 139},
      {u"MMLP37Left"_s, u"710"_s, true, u"Left=710"_s},
      {u"MMLP37Left"_s, u"711"_s, false, u"Left=100"_s, 139},
      {u"MMLP37Top"_s, u"566"_s, true, u"Top=566"_s},
      {u"MMLP37Top"_s, u"567"_s, false, u"Top=100"_s, 139},
      {u"MMLP37Color"_s, u"1,2,3"_s, false, u"Color=128,255,255"_s},
      {u"MML37Text"_s, u""_s, false, u"Text=abc"_s, 380},
      {u"MMB1Action"_s, u"x"_s, false, u"Action="_s, 660},
      {u"MMB1Action"_s, u"exit;"_s, true, u"Action=exit;"_s},
      {u"MMB2Action"_s, u"exit;"_s, false, u"Action=jump menu 2;"_s},
      {u"MM"_s, u"x"_s, false, u"MainMenu"_s},
  };
  for (const Case& c : cases) {
    test::EditBench bench;
    ASSERT_TRUE(AddLabel(bench.context, u"abc"_s, {.position = QPoint(100, 100)}));
    ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, {}));
    ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, u"jump menu 2;"_s, {}));
    test::AddSubMenu(bench.project);
    EXPECT_EQ(EditValue(bench.context, c.key, c.value), c.done) << c.key.toStdString() << c.value.toStdString();
    EXPECT_EQ(bench.Caption(c.key), c.caption);
    EXPECT_EQ(bench.Told(), c.told == 0 ? QStringList() : QStringList(GetMessage(c.told))) << c.key.toStdString();
  }
}

TEST(EditValues, FillAndFrameAreNeverBothOff) {
  test::EditBench bench;
  EXPECT_FALSE(ToggleValue(bench.context, u"MMHT1"_s));
  EXPECT_TRUE(ToggleValue(bench.context, u"MMHT2"_s));
  EXPECT_TRUE(EditValue(bench.context, u"MMHT1"_s, u"0"_s));
  EXPECT_FALSE(EditValue(bench.context, u"MMHT2"_s, u"0"_s));
  EXPECT_TRUE(EditValue(bench.context, u"MMHT2"_s, u"1"_s));
  EXPECT_TRUE(ToggleValue(bench.context, u"MMHT3"_s));
  EXPECT_EQ(bench.Children(u"MMHT"_s), QStringList({u"Fill=0"_s, u"Frame=1"_s, u"Rounded=0"_s}));
  EXPECT_EQ(bench.Told(), QStringList());
}

TEST(EditValues, WhatCoversTheSameRectangleMovesAlong) {
  for (const bool grouped : {true, false}) {
    Settings settings = test::FixedSettings();
    settings.AutoGroup = grouped;
    test::EditBench bench(settings);
    const ElementPlace place{.position = QPoint(100, 120), .style = ButtonStyle::Graphic};
    ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, place));
    ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, place));
    ASSERT_TRUE(EditValue(bench.context, u"MMBP1Left"_s, u"200"_s));
    EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMI1"_s), QRect(grouped ? 200 : 100, 120, 100, 80));
    EXPECT_EQ(bench.project.Tree.Find(u"MMBP1Left"_s)->Tag(), u"200");
  }
}

TEST(EditValues, ATextsSizeFollowsUnlessItIsFixed) {
  test::EditBench bench;
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, {.position = QPoint(100, 120)}));
  ASSERT_TRUE(EditValue(bench.context, u"MMB1Text"_s, u"two\nlines"_s));
  EXPECT_EQ(bench.Caption(u"MMB1Text"_s), u"Text=two\r\nlines");
  EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMB1"_s), QRect(100, 120, 45, 35));
  bench.project.Tree.SetCaption(u"MMB1FixedSize"_s, u"FixedSize=1"_s);
  ASSERT_TRUE(EditValue(bench.context, u"MMB1Text"_s, u"longer"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"Fixed size to small!"_s));
  EXPECT_EQ(RectangleOf(bench.project.Tree, u"MM"_s, u"MMB1"_s), QRect(100, 120, 45, 35));
}

}  // namespace
}  // namespace torvane
