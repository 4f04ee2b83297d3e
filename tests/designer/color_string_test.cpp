#include "designer/color_string.h"

#include <gtest/gtest.h>

#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ColorString, HasFourFieldsAtFixedPlaces) {
  struct Case {
    QString color;
    QString transparency;
    QString expected;
  };
  const Case cases[] = {
      {u"FillColor=255,0,7"_s, u"Transparenz=41%"_s, u"255#000#007#150"_s},
      {u"FillColor=1,22,128"_s, u"Transparenz=50%"_s, u"001#022#128#128"_s},
      {u"FrameColor=0,0,0"_s, u"Transparenz=0%"_s, u"000#000#000#255"_s},
      {u"FrameColor=0,0,0"_s, u"Transparenz=99%"_s, u"000#000#000#003"_s},
      {u"FillColor=9.9,300,-5"_s, u"Transparenz=200%"_s, u"009#255#000#000"_s},
      {u"FillColor="_s, u"Transparenz="_s, u"000#000#000#255"_s},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(MakeColorString(test.color, test.transparency), test.expected) << test.color.toStdString();
  }
}

TEST(ColorString, RoundsOpacitiesThatStandHalfWayToTheEvenNeighbour) {
  EXPECT_EQ(OpacityOfTransparency(10), 230);
  EXPECT_EQ(OpacityOfTransparency(30), 178);
  EXPECT_EQ(OpacityOfTransparency(70), 76);
  EXPECT_EQ(OpacityOfTransparency(90), 26);
}

TEST(ColorString, TakesWhatAMenuLacksFromTheSettings) {
  Settings settings = test::FixedSettings();
  settings.DefHighLightFrameColor = 0x030201;
  settings.DefSelectedFillTrans = 0;
  Project project(settings);
  AddDefaultProject(project);
  for (const QString& key : {u"MMHC2"_s, u"MMHCT2"_s, u"MMACT1"_s}) project.Tree.Remove(key);
  project.Tree.SetCaption(u"MMHC1"_s, u"FillColor=10,20,30"_s);
  EXPECT_EQ(ReadHighlightColors(MenuView(project.Tree, u"MM"_s), settings),
            (HighlightColors{u"010#020#030#150"_s, u"001#002#003#255"_s, u"000#255#000#000"_s, u"000#255#000#255"_s}));
}

}  // namespace
}  // namespace torvane
