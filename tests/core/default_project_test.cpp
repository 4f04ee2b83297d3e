#include "core/default_project.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Dump(const ProjectTree& tree) {
  QString text;
  for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    for (const ProjectNode* above = node->Parent(); above; above = above->Parent()) text += u' ';
    text += node->Key() + u'|' + node->Caption() + u'|' + node->Tag() + u'|' + QString::number(node->Image()) + u'\n';
  }
  return text;
}

QStringList RootKeys(const ProjectTree& tree) {
  QStringList keys;
  for (const ProjectNode* node = tree.FirstRoot(); node; node = node->Next()) keys << node->Key();
  return keys;
}

TEST(DefaultProject, HoldsTheMainMenuWithAllDefaults) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  EXPECT_EQ(Dump(project.Tree), uR"(TS|TotalSize(MB)=1||1
MM|MainMenu||1
 MMBG|Background||7
  MMBGPath|Image=C:\App\default.jpg||3
  MMBGBlur|Blur=0||1
  MMBGBlurX|BlurX=50||1
  MMBGBlurY|BlurY=90||1
 MMH|HighLight||1
  MMHT|Type||1
   MMHT1|Fill=1||2
   MMHT2|Frame=0||2
   MMHT3|Rounded=1||2
  MMHC1|FillColor=255,0,0||4
  MMHCT1|Transparenz=41%||2
  MMHC2|FrameColor=255,0,0||4
  MMHCT2|Transparenz=0%||2
 MMA|Activated||1
  MMAC1|FillColor=0,255,0||4
  MMACT1|Transparenz=41%||2
  MMAC2|FrameColor=0,255,0||4
  MMACT2|Transparenz=0%||2
 MMB|Buttons||1
 MMI|Images||1
 MML|Labels||1
)"_s);
}

TEST(DefaultProject, FollowsTheSettings) {
  Settings settings = test::FixedSettings();
  settings.AnimatedMainMenu = settings.DefaultLoop = true;
  settings.RasterX = 8;
  settings.DefButtomType = 1;
  settings.UseIntro = true;
  settings.IntroMovie = u"C:\\v\\intro.m2v"_s;
  settings.IntroAudio = u"C:\\v\\intro.ac3"_s;
  Project project(settings);
  AddDefaultProject(project);
  EXPECT_EQ(RootKeys(project.Tree), (QStringList{u"TS"_s, u"INTRO"_s, u"MM"_s}));
  const auto caption = [&project](const QString& key) {
    const ProjectNode* node = project.Tree.Find(key);
    return node ? node->Caption() : u"(absent)"_s;
  };
  EXPECT_EQ(caption(u"INTROAudio"_s), u"C:\\v\\intro.ac3"_s);
  EXPECT_EQ(caption(u"MMBGLoop"_s), u"Loop=1"_s);
  EXPECT_EQ(caption(u"MMBGRasterX"_s), u"RasterX=8"_s);
  EXPECT_EQ(caption(u"MMBGRasterY"_s), u"(absent)"_s);
  EXPECT_EQ(caption(u"MMHT1"_s), u"Fill=0"_s);
  EXPECT_EQ(caption(u"MMHT2"_s), u"Frame=1"_s);
  EXPECT_EQ(project.Tree.Find(u"MM"_s)->LastChild()->Key(), u"MMS"_s);
}

TEST(DefaultProject, AnAdditionalMenuStandsInFrontOfTheNextFilm) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddFilm(project, 1, u"MM"_s, u"C:\\a.m2v"_s);
  AddMenuSubtree(project, {.kind = MenuKind::TitleSetRoot, .number = 1, .key = TitleSetMenuKey(1)});
  test::AddFilm(project, 2, u"MM"_s, u"C:\\b.m2v"_s);
  project.CurrentTitleSet = 1;
  AddMenuSubtree(project, {.kind = MenuKind::TitleSetSubMenu, .number = 1, .key = SubMenuKey(1)});
  project.CurrentTitleSet = 2;
  AddMenuSubtree(project, {.kind = MenuKind::TitleSetSubMenu, .number = 1, .key = SubMenuKey(2)});
  EXPECT_EQ(RootKeys(project.Tree),
            (QStringList{u"TS"_s, u"MM"_s, u"F1"_s, u"TS1"_s, u"SM1"_s, u"F2"_s, u"SM2"_s}));
  EXPECT_EQ(project.Tree.Find(u"SM2"_s)->Caption(), u"TS2SubMenu1"_s);
  EXPECT_EQ(project.Tree.Find(u"SM2"_s)->Tag(), u"TS2"_s);
  EXPECT_EQ(project.Tree.Find(u"SM1"_s)->FirstChild()->Key(), u"SM1P"_s);
}

TEST(TotalSize, AddsFilmsMenusAndOne) {
  Settings settings = test::FixedSettings();
  Project single(settings);
  test::BuildTwoFilms(single);
  CalculateTotalSize(single);
  EXPECT_EQ(single.Tree.Find(u"TS"_s)->Caption(), u"TotalSize(MB)=201"_s);

  settings.NoTitleSets = false;
  settings.AnimatedMainMenu = true;
  Project titlesets(settings);
  test::BuildTwoFilms(titlesets);
  CalculateTotalSize(titlesets);
  EXPECT_EQ(titlesets.Tree.Find(u"TS"_s)->Caption(), u"TotalSize(MB)=207"_s);
}

TEST(Transparency, ComesFromTheOpacity) {
  for (const auto& [opacity, text] : {std::pair(255, u"0%"_s), {150, u"41%"_s}, {128, u"49%"_s}, {0, u"100%"_s}}) {
    EXPECT_EQ(TransparencyText(opacity), text);
  }
}

}  // namespace
}  // namespace torvane
