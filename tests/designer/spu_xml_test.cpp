#include "designer/spu_xml.h"

#include <gtest/gtest.h>

#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/menu_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QByteArray SpuOf(const Project& project, SpuFile file) {
  const MenuView menu(project.Tree, u"MM"_s);
  return SpuXmlText(menu, ButtonRectangles(menu, project.Settings), file, test::Harmless(project.Settings));
}

TEST(SpuXml, NamesPicturesButtonsAndAreas) {
  Settings settings = test::FixedSettings();
  settings.TempDir = u"C:\\Größe"_s;
  Project project(settings);
  AddDefaultProject(project);
  test::AddButton(project, u"MM"_s, 1, u"First"_s, {100, 100, 80, 40});
  test::AddButton(project, u"MM"_s, 2, u" "_s, {300, 100, 80, 40}, {u"NormVis=0"_s});
  test::AddButton(project, u"MM"_s, 12, u"Last"_s, {100, 200, 80, 40});
  test::ExpectGolden(SpuOf(project, SpuFile::Frame), u"two_buttons.xml"_s);
  test::ExpectGolden(SpuOf(project, SpuFile::Letterbox), u"two_buttons_letterbox.xml"_s);
}

TEST(SpuXml, GivesASwitchedMenuItsFourActions) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddButton(project, u"MM"_s, 1, u"First"_s, {100, 100, 80, 40});
  test::AddButton(project, u"MM"_s, 2, u"Second"_s, {300, 100, 80, 40});
  project.Tree.SetTag(u"MMB"_s, u"1"_s);
  const QByteArray unswitched = SpuOf(project, SpuFile::Frame);
  EXPECT_FALSE(unswitched.contains("ction")) << unswitched.toStdString();

  test::AddNode(project, u"MMB2"_s, u"MMB2AutoAction|AutoAction=1"_s);
  test::AddNode(project, u"MMB2AutoAction"_s, u"MMB2ActionLeft|ActionLeft=jump title 1;"_s);
  test::ExpectGolden(SpuOf(project, SpuFile::Frame), u"switched_menu.xml"_s);

  project.Tree.Remove(u"MMB2Action"_s);
  EXPECT_FALSE(SpuOf(project, SpuFile::Frame).contains("ction")) << "its button is not on the disc";
}

TEST(SpuXml, DelaysTheButtonsOfAnAnimatedMenuOnly) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddNode(project, u"MMBG"_s, u"MMBGDelay|HighlightDelay=00:00:02.50|2.5"_s);
  EXPECT_TRUE(SpuOf(project, SpuFile::Frame).contains("<spu start=\"00:00:00.0\""));
  project.Settings.AnimatedMainMenu = true;
  EXPECT_TRUE(SpuOf(project, SpuFile::Frame).contains("<spu start=\"00:00:00.0\"")) << "nothing moves in it";
  test::AddNode(project, u"MMBG"_s, u"MMBGAni|Animation=C:\\a.mpg"_s);
  EXPECT_TRUE(SpuOf(project, SpuFile::Frame).contains("<spu start=\"00:00:02.50\""));
}

}  // namespace
}  // namespace torvane
