#include "core/default_project.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "support/golden.h"
#include "support/project_builder.h"
#include "support/tree_dump.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QStringList RootKeys(const ProjectTree& tree) {
  QStringList keys;
  for (const ProjectNode* node = tree.FirstRoot(); node; node = node->Next()) keys << node->Key();
  return keys;
}

TEST(DefaultProject, HoldsTheMainMenuWithAllDefaults) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::ExpectGolden(test::DumpTree(project.Tree).toUtf8(), u"default_project.tree"_s);
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
  const std::pair<QString, QString> captions[] = {
      {u"INTROAudio"_s, u"C:\\v\\intro.ac3"_s}, {u"MMBGLoop"_s, u"Loop=1"_s}, {u"MMBGRasterX"_s, u"RasterX=8"_s},
      {u"MMBGRasterY"_s, u"(absent)"_s}, {u"MMHT1"_s, u"Fill=0"_s}, {u"MMHT2"_s, u"Frame=1"_s}};
  for (const auto& [key, expected] : captions) EXPECT_EQ(caption(key), expected) << key.toStdString();
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
  for (const auto& [single, caption] :
       {std::pair(true, u"TotalSize(MB)=201"_s), {false, u"TotalSize(MB)=207"_s}}) {
    Settings settings = test::FixedSettings();
    settings.NoTitleSets = single;
    settings.AnimatedMainMenu = !single;
    Project project(settings);
    test::BuildTwoFilms(project);
    CalculateTotalSize(project);
    EXPECT_EQ(project.Tree.Find(u"TS"_s)->Caption(), caption);
  }
}

}  // namespace
}  // namespace torvane
