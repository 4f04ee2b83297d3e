#include "core/action_strings.h"
#include "core/engine.h"

#include <gtest/gtest.h>

#include "support/golden.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ActionStrings, FollowEngineAndLoopSyntax) {
  const ActionNumbers numbers{.place = 4, .title = 2, .titleSet = 3, .chapter = 5, .playList = 6, .menu = 7};
  QString text;
  for (int action = 0; action <= int(GeneratedAction::PreOfSubMenu); ++action) {
    Settings settings = test::FixedSettings();
    for (const auto& [engine, looping] :
         {std::pair(kEngineDvdauthor, false), {kEngineDvdauthor, true}, {kEngineMuxMan, true}}) {
      settings.Engine = engine;
      settings.LoopSyntax = looping;
      text += ActionText(GeneratedAction(action), numbers, settings) + u'\n';
    }
  }
  test::ExpectGolden(text.toUtf8(), u"generated_actions.txt"_s);
}

TEST(ActionStrings, BackToASubmenuIsTheActionThatLeadsThere) {
  Project project(test::FixedSettings());
  test::BuildTwoFilms(project);
  EXPECT_EQ(BackAction(project, u"MM1"_s), u"jump menu 2;");
  project.Settings.LoopSyntax = true;
  EXPECT_EQ(BackAction(project, u"MM1"_s), u"g1=1;jump menu 2;");
  project.MainSubMenuTable[1].Action = u"g1=1;jump menu 2;"_s;
  EXPECT_EQ(BackAction(project, u"MM1"_s), u"g1=1;jump menu 2;");
}

TEST(ActionStrings, LeadToMenus) {
  Settings settings = test::FixedSettings();
  settings.NoTitleSets = false;
  Project project(settings);
  test::BuildTwoFilms(project);
  AddMenuSubtree(project, {.kind = MenuKind::TitleSetRoot, .number = 2, .key = u"TS2"_s});
  project.CurrentTitleSet = 2;
  test::AddNode(project, u"TS2"_s, u"TS2M|SubMenus"_s);
  test::AddNode(project, u"TS2M"_s, u"TS2M1|SubMenu1 Type=Audio, PreviousMenu=TitleSet2Menu|SM4"_s);
  AddMenuSubtree(project, {.kind = MenuKind::TitleSetSubMenu, .number = 1, .key = u"SM4"_s, .type = u"Audio"_s});

  struct Case {
    int engine;
    QString menu;
    QString action;
    std::optional<ActionTarget> target;
  };
  const Case cases[] = {
      {0, u"MM"_s, u"g3=1;jump titleset 2 menu;"_s, ActionTarget{u"TS2"_s, u"TitleSet2Menu"_s}},
      {0, u"MM"_s, u"jump titleset 7 menu;"_s, ActionTarget{u""_s, u"TitleSet7Menu"_s}},
      {0, u"MM"_s, u"jump titleset 2 menu entry audio;"_s, ActionTarget{u"SM4"_s, u"TitleSet2 Submenu: Audio menu"_s}},
      {0, u"MM"_s, u"jump titleset 2 menu entry ptt;"_s, ActionTarget{u""_s, u"TitleSet2 Submenu: Chapter menu"_s}},
      {0, u"MM1"_s, u"g1=1;jump menu 1;"_s, ActionTarget{u"MM"_s, u"MainMenu"_s}},
      {0, u"MM"_s, u"jump menu 2;"_s, ActionTarget{u"MM1"_s, u"MainSubMenu1"_s}},
      {0, u"MM"_s, u"jump menu 3;"_s, ActionTarget{u""_s, u"MainSubMenu2"_s}},
      {0, u"SM4"_s, u"jump menu 1;"_s, ActionTarget{u"TS2"_s, u"TitleSet2Menu"_s}},
      {0, u"TS2"_s, u"jump menu 2;"_s, ActionTarget{u"SM4"_s, u"TS2SubMenu1"_s}},
      {0, u"TS2"_s, u"jump vmgm menu;"_s, ActionTarget{u"MM"_s, u"MainMenu"_s}},
      {0, u"TS2"_s, u"jump vmgm menu 2;"_s, ActionTarget{u"MM1"_s, u"MainSubMenu1"_s}},
      {0, u"MM"_s, u"jump title 1;"_s, std::nullopt},
      {1, u"MM"_s, u"JumpSS vts_2, vts_ttn_1 : RootMenu"_s, ActionTarget{u"TS2"_s, u"TitleSet2Menu"_s}},
      {1, u"MM"_s, u"JumpSS vts_2, vts_ttn_1 : AudioMenu"_s,
       ActionTarget{u"SM4"_s, u"TitleSet2 Submenu: Audio menu"_s}},
      {1, u"TS2"_s, u"JumpSS MainSubMenu1"_s, ActionTarget{u"MM1"_s, u"MainSubMenu1"_s}},
      {1, u"MM1"_s, u"Mov GPRM1, 0 ; LinkPGCN MainMenu"_s, ActionTarget{u"MM"_s, u"MainMenu"_s}},
      {1, u"SM4"_s, u"LinkPGCN TitleSet2Menu"_s, ActionTarget{u"TS2"_s, u"TitleSet2Menu"_s}},
      {1, u"TS2"_s, u"LinkPGCN TS2SubMenu1"_s, ActionTarget{u"SM4"_s, u"TS2SubMenu1"_s}},
      {1, u"MM"_s, u"JumpTT TitleSet1_Title1"_s, std::nullopt},
  };
  for (const Case& c : cases) {
    project.Settings.Engine = c.engine;
    EXPECT_EQ(FindActionTarget(project, c.menu, c.action), c.target) << c.action.toStdString();
  }
}

}  // namespace
}  // namespace torvane
