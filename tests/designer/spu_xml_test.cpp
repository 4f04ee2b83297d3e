#include "designer/spu_xml.h"

#include <gtest/gtest.h>

#include "support/menu_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QByteArray SpuOf(const Project& project, SpuFile file) {
  const MenuView menu(project.Tree, u"MM"_s);
  return SpuXmlText(menu, project.Settings, ButtonRectangles(menu, project.Settings), file);
}

TEST(SpuXml, NamesPicturesButtonsAndAreas) {
  Settings settings = test::FixedSettings();
  settings.TempDir = u"C:\\Größe"_s;
  Project project(settings);
  AddDefaultProject(project);
  test::AddButton(project, u"MM"_s, 1, u"First"_s, {100, 100, 80, 40});
  test::AddButton(project, u"MM"_s, 2, u" "_s, {300, 100, 80, 40}, {u"NormVis=0"_s});
  test::AddButton(project, u"MM"_s, 12, u"Last"_s, {100, 200, 80, 40});
  EXPECT_EQ(SpuOf(project, SpuFile::Frame), test::WithCrLf(R"(<subpictures>
  <stream>
    <spu start="00:00:00.0"
         highlight="C:\Größe\MMHigh.png"
         select="C:\Größe\MMAct.png"
         force="yes"
         autoorder="rows">
   <button name="MMB1" x0="99" y0="100" x1="180" y1="140"/>
   <button name="MMB12" x0="99" y0="200" x1="180" y1="240"/>
    </spu>
  </stream>
</subpictures>
)"));
  EXPECT_EQ(SpuOf(project, SpuFile::Letterbox), test::WithCrLf(R"(<subpictures>
  <stream>
    <spu start="00:00:00.0"
         highlight="C:\Größe\MMHighL.png"
         select="C:\Größe\MMActL.png"
         force="yes"
         autoorder="rows">
   <button name="MMB1" x0="99" y0="147" x1="180" y1="177"/>
   <button name="MMB12" x0="99" y0="222" x1="180" y1="252"/>
    </spu>
  </stream>
</subpictures>
)"));
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
  EXPECT_EQ(SpuOf(project, SpuFile::Frame), test::WithCrLf(R"(<subpictures>
  <stream>
    <spu start="00:00:00.0"
         highlight="C:\T\MMHigh.png"
         select="C:\T\MMAct.png"
         force="yes"
         autoorder="rows">
   <button name="MMB1" x0="99" y0="100" x1="180" y1="140"/>
   <button name="MMB2" x0="299" y0="100" x1="380" y1="140"  left="Actionleft" right="Actionright" up="Actionup" down="Actiondown"/>
     <action name="Actionleft"/>
     <action name="Actionright"/>
     <action name="Actionup"/>
     <action name="Actiondown"/>
    </spu>
  </stream>
</subpictures>
)"));

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
