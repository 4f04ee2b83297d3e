#include "render/menu_encoding.h"

#include <gtest/gtest.h>

#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/menu_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class MenuEncoding : public testing::Test {
 protected:
  MenuEncoding() : project_(test::FixedSettings()) { AddDefaultProject(project_); }

  MenuView Menu() const { return {project_.Tree, u"MM"_s}; }
  void AddBackground(const QString& node) { test::AddNode(project_, u"MMBG"_s, node); }

  Project project_;
};

TEST_F(MenuEncoding, EncodesStillMenus) {
  test::ExpectGolden(StillMenuBatch1(Menu(), test::Harmless(project_.Settings)), u"still_menu_1.bat"_s);
  test::ExpectGolden(StillMenuBatch2(Menu(), test::Harmless(project_.Settings)), u"still_menu_2.bat"_s);

  // A wide NTSC menu with values of its own, and names that no batch takes as they are.
  project_.Settings.VideoNormPal = false;
  project_.Settings.DefMenuRatio = true;
  project_.Settings.NumStillFrames = 15;
  project_.Settings.TempDir = u"C:\\Müll 100%"_s;
  project_.Settings.DvdAuthorPath = u"C:\\Program Files\\ß"_s;
  AddBackground(u"MMBGQuality|Quality=4"_s);
  AddBackground(u"MMBGBitrate|Bitrate= 5000"_s);
  AddBackground(u"MMBGAudio|Audio=C:\\sound\\Я 5%.ac3"_s);
  test::ExpectGolden(StillMenuBatch1(Menu(), test::Harmless(project_.Settings)), u"wide_menu_1.bat"_s);
  test::ExpectGolden(StillMenuBatch2(Menu(), test::Harmless(project_.Settings)), u"wide_menu_2.bat"_s);
}

TEST_F(MenuEncoding, CountsFramesOfAMenuInFullLength) {
  const struct {
    QString frames;    ///< "" for no node
    QString duration;  ///< in seconds, "" for no node
    bool pal;
    int expected;
  } cases[] = {
      {u""_s, u"12.5"_s, true, 3},
      {u"Full length"_s, u""_s, true, 3},
      {u"Full length"_s, u"12.5"_s, false, 375},
      {u"Full length"_s, u"12.5"_s, true, 312},  // 312.5 halves to the even neighbour
      {u"Full length"_s, u"0.04"_s, true, 1},
      {u"Full length"_s, u"0.01"_s, true, 3},
      {u"500"_s, u"2"_s, true, 50},
  };
  project_.Settings.NumStillFrames = 3;
  for (const auto& [frames, duration, pal, expected] : cases) {
    for (const QString& key : {u"MMBGFrames"_s, u"MMBGDuration"_s}) project_.Tree.Remove(key);
    project_.Settings.VideoNormPal = pal;
    if (!frames.isEmpty()) AddBackground(u"MMBGFrames|Frames=" + frames);
    if (!duration.isEmpty()) AddBackground(u"MMBGDuration|Duration=00:00:99.00|" + duration);
    EXPECT_EQ(StillMenuFrames(Menu(), project_.Settings), expected)
        << frames.toStdString() << ' ' << duration.toStdString();
  }
}

TEST_F(MenuEncoding, InsertsNavigationIntoASingleStillFrameWithAudio) {
  project_.Settings.UseInsnavForMenus = true;
  EXPECT_FALSE(StillMenuBatch2(Menu(), test::Harmless(project_.Settings)).contains("insnav")) << "without sound";
  AddBackground(u"MMBGAudio|Audio=C:\\a.mp2"_s);
  test::ExpectGolden(StillMenuBatch2(Menu(), test::Harmless(project_.Settings)), u"menu_with_navigation.bat"_s);
  AddBackground(u"MMBGFrames|Frames=Full length"_s);
  AddBackground(u"MMBGDuration|Duration=00:00:10.00|10"_s);
  EXPECT_FALSE(StillMenuBatch2(Menu(), test::Harmless(project_.Settings)).contains("insnav")) << "many frames";
}

TEST_F(MenuEncoding, MakesTheEmptyMenu) {
  test::ExpectGolden(EmptyMenuBatch(test::Harmless(project_.Settings)), u"empty_menu.bat"_s);
  EXPECT_EQ(EmptyMenuPicture(project_.Settings).size(), QSize(720, 576));
  project_.Settings.DefMenuRatio = true;
  project_.Settings.VideoNormPal = false;
  test::ExpectGolden(EmptyMenuBatch(test::Harmless(project_.Settings)), u"empty_wide_menu.bat"_s);
  EXPECT_EQ(EmptyMenuPicture(project_.Settings).size(), QSize(720, 480));
}

}  // namespace
}  // namespace torvane
