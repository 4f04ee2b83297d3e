#include "designer/edit_menus.h"

#include <gtest/gtest.h>

#include "designer/edit_films.h"
#include "support/edit_bench.h"
#include "support/project_state.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::Film;

TEST(EditMenus, ASubmenuHasItsListEntryButtonAndWayBack) {
  test::EditBench bench(test::TitleSetSettings());
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  ASSERT_TRUE(AddMenu(bench.context, {.buttonText = u"More"_s}, {.menu = u"MM1"_s}));
  EXPECT_EQ(bench.project.Tree.Find(u"MM"_s)->FirstChild()->Key(), u"MMM");
  EXPECT_EQ(test::DumpTree(bench.project.Tree, u"MMM"_s),
            u"MMM|SubMenus||1\n"
            " MMM1|SubMenu1 Type=SubMenu, PreviousMenu=MainMenu|MM1|1\n"
            " MMM2|SubMenu2 Type=SubMenu, PreviousMenu=MainSubMenu1|MM2|1\n"_s);
  EXPECT_EQ(test::DumpTree(bench.project.Tree, u"MM2P"_s),
            u"MM2P|Properties|jump menu 3;|1\n"
            " MM2PType|Type=SubMenu|MM1B1|1\n"
            " MM2PPause|Pause=inf||2\n"
            " MM2PPre|PreCommand=g1=1; button=1024;||1\n"
            " MM2PPost|PostCommand=||1\n"_s);
  EXPECT_EQ(bench.Captions(u"MM1B1Action MM1B0Action MM2B0Action"_s),
            QStringList({u"Action=jump menu 3;"_s, u"Action=jump menu 1;"_s, u"Action=jump menu 2;"_s}));
  EXPECT_EQ(bench.project.MainSubMenuTable[2], (MenuSlot{true, 0, u"MM2"_s, u"jump menu 3;"_s, u"MM1B1"_s}));
}

TEST(EditMenus, ATitleSetsSubmenuStandsInFrontOfTheNextFilm) {
  test::EditBench bench(test::TitleSetSettings());
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
  ASSERT_TRUE(AddMenu(bench.context, {.type = u"Audio"_s}, {.menu = u"TS2"_s}));
  ASSERT_TRUE(AddMenu(bench.context, {.type = u"Audio"_s}, {.menu = u"TS1"_s}));
  EXPECT_EQ(bench.Roots(), QStringList({u"TS"_s, u"MM"_s, u"F1"_s, u"TS1"_s, u"SM2"_s, u"F2"_s, u"TS2"_s, u"SM1"_s}));
  EXPECT_EQ(bench.Caption(u"SM2"_s), u"TS1SubMenu1");
  EXPECT_EQ(bench.project.Tree.Find(u"SM2"_s)->Tag(), u"TS1");
  EXPECT_EQ(bench.Caption(u"SM2B0Action"_s), u"Action=jump titleset 1 menu;");
  EXPECT_EQ(AvailableMenuTypes(bench.project, u"SM2"_s),
            QStringList({u"SubMenu"_s, u"Chapter(ptt)"_s, u"Subtitle"_s, u"Angle"_s}));
  EXPECT_FALSE(AddMenu(bench.context, {.type = u"Audio"_s}, {.menu = u"SM2"_s}));

  EXPECT_EQ(RebuildGotoMenu(bench.project), (std::vector<GotoEntry>{{u"MainMenu"_s, u"MM"_s, true},
                                                                    {u"TitleSet1Menu"_s, u"TS1"_s},
                                                                    {u"   TS1SubMenu1 (menu 2)"_s, u"SM2"_s},
                                                                    {u"TitleSet2Menu"_s, u"TS2"_s},
                                                                    {u"   TS2SubMenu1 (menu 2)"_s, u"SM1"_s}}));
}

TEST(EditMenus, OnlyTheLastEmptySubmenuCanBeDeleted) {
  test::EditBench bench;
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  const test::WholeProject one(bench.project);
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  EXPECT_FALSE(DeleteSubMenu(bench.context, u"MMM1"_s));
  ASSERT_TRUE(AddFilm(bench.context, Film(), {.menu = u"MM2"_s}));
  EXPECT_FALSE(DeleteSubMenu(bench.context, u"MMM2"_s));
  EXPECT_EQ(bench.Told(),
            QStringList({u"Only the last submenu can be deleted"_s,
                         u"Main sub menus can only be deleted if they are empty (contain no videos)!"_s}));
  ASSERT_TRUE(DeleteFilm(bench.context, 1));
  ASSERT_TRUE(SwitchMenu(bench.project, u"MM2"_s, bench.prompter));
  ASSERT_TRUE(DeleteSubMenu(bench.context, u"MMM2"_s));
  EXPECT_EQ(test::WholeProject(bench.project).tree, one.tree);
  EXPECT_EQ(test::WholeProject(bench.project).mainSubMenus, one.mainSubMenus);
  EXPECT_EQ(bench.project.CurrentMenuKey, u"MM");
  ASSERT_TRUE(DeleteSubMenu(bench.context, u"MMM1"_s));
  EXPECT_FALSE(bench.project.Tree.Contains(u"MMM"_s));
  EXPECT_EQ(bench.Children(u"MMB"_s), QStringList());
}

TEST(EditMenus, AreLimited) {
  test::EditBench bench;
  QString menu = u"MM"_s;
  for (int i = 1; i < kMainSubMenuSlots; ++i) {
    ASSERT_TRUE(AddMenu(bench.context, {}, {.menu = menu}));
    menu = MainSubMenuKey(i);
  }
  EXPECT_FALSE(AddMenu(bench.context, {}, {.menu = menu}));
  EXPECT_EQ(bench.Told(), QStringList(u"Only 49 additional submenus for the main menu possible!"_s));
  EXPECT_EQ(RebuildGotoMenu(bench.project).back(), (GotoEntry{u"   MainSubMenu49 (menu 50)"_s, u"MM49"_s}));

  test::EditBench titleSets(test::TitleSetSettings());
  ASSERT_TRUE(AddFilm(titleSets.context, Film(), {}));
  menu = u"TS1"_s;
  for (int i = 1; i <= 99; ++i) {
    ASSERT_TRUE(AddMenu(titleSets.context, {}, {.menu = menu}));
    menu = SubMenuKey(i);
  }
  EXPECT_FALSE(AddMenu(titleSets.context, {}, {.menu = menu}));
  EXPECT_EQ(titleSets.Told(), QStringList(u"Only 99 additional menus possible!"_s));
  const std::vector<GotoEntry> entries = RebuildGotoMenu(titleSets.project);
  EXPECT_EQ(entries.size(), 32U);
  EXPECT_EQ(entries[30].Tag, u"SM29");
  EXPECT_EQ(entries[31], (GotoEntry{u"..."_s, u"XX"_s}));
}

TEST(EditMenus, AProjectWithoutMenusShowsTheMainMenuAlone) {
  test::EditBench bench(test::TitleSetSettings());
  ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
  EXPECT_TRUE(SwitchMenu(bench.project, u"TS1"_s, bench.prompter));
  EXPECT_EQ(bench.project.CurrentTitleSet, 1);
  EXPECT_FALSE(SwitchMenu(bench.project, u"F1"_s, bench.prompter));
  bench.project.Settings.NoMenus = true;
  EXPECT_FALSE(SwitchMenu(bench.project, u"TS1"_s, bench.prompter));
  EXPECT_EQ(bench.project.CurrentMenuKey, u"MM");
  EXPECT_EQ(bench.Told(), QStringList(u"The project has no menus!"_s));
}

}  // namespace
}  // namespace torvane
