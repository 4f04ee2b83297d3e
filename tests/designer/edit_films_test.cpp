#include "designer/edit_films.h"

#include <gtest/gtest.h>

#include "designer/copy_layout.h"
#include "designer/edit_elements.h"
#include "designer/edit_menus.h"
#include "support/edit_bench.h"
#include "support/project_state.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

FilmRecord Film(const QString& name) {
  FilmRecord film = test::Film(name);
  film.FPS = 25;
  film.TotalSize = 100;
  return film;
}

TEST(EditFilms, EachFilmOfATitleSetProjectHasItsMenu) {
  test::EditBench bench(test::TitleSetSettings());
  for (const QString& name : {u"a_b"_s, u"c"_s, u"d"_s}) EXPECT_TRUE(AddFilm(bench.context, Film(name), {}));
  EXPECT_EQ(bench.Roots(), QStringList({u"TS"_s, u"MM"_s, u"F1"_s, u"TS1"_s, u"F2"_s, u"TS2"_s, u"F3"_s, u"TS3"_s}));
  EXPECT_EQ(bench.Children(u"MMB"_s), QStringList({u"FilmButton1"_s, u"FilmButton2"_s, u"FilmButton3"_s}));
  EXPECT_EQ(bench.Captions(u"MMB1Text MMB2Action TS2 TS2B0Action"_s),
            QStringList({u"Text=a b"_s, u"Action=jump titleset 2 menu;"_s, u"TitleSet2Menu"_s,
                         u"Action=jump vmgm menu;"_s}));
  EXPECT_EQ(bench.project.Tree.Find(u"F2"_s)->Tag(), u"MM");
  EXPECT_EQ(bench.project.Tree.Find(u"FP2"_s)->Tag(), u"2");
  EXPECT_EQ(bench.project.FilmCount, 3);
  EXPECT_EQ(bench.project.TitleSetCount, 3);
  // Three films, and 200 KB for each menu.
  EXPECT_EQ(bench.Caption(u"TS"_s), u"TotalSize(MB)=302");
  EXPECT_EQ(bench.Told(), QStringList());
}

TEST(EditFilms, AFilmInASubmenuLeadsBackThere) {
  test::EditBench bench(test::TitleSetSettings());
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {.menu = u"MM1"_s}));
  EXPECT_EQ(bench.Caption(u"TS1B0Action"_s), u"Action=jump vmgm menu 2;");
  EXPECT_EQ(bench.project.Tree.Find(u"FPAni1"_s)->Tag(), u"MM1");
  EXPECT_EQ(bench.Children(u"MM1B"_s), QStringList({u"FilmButton1"_s, u"BackButton"_s}));
}

TEST(EditFilms, PlacesOfFilmButtonsAreBroughtAlong) {
  test::EditBench bench;
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, u"exit;"_s, {}));
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  ASSERT_TRUE(AddFilm(bench.context, Film(u"b"_s), {}));
  EXPECT_EQ(bench.Caption(u"MMB2Action"_s), u"Action=g1=2;jump title 1;");
  EXPECT_EQ(bench.Caption(u"MMB3Action"_s), u"Action=g1=3;jump title 2;");
  EXPECT_EQ(bench.project.ProjectFps, 25);

  bench.project.Tree.SetCaption(u"MMB3Action"_s, u"Action=g1=9;jump title 2;"_s);  // the user's own
  ASSERT_TRUE(MoveElement(bench.context, u"MMB1"_s, u"MMB2"_s));
  EXPECT_EQ(bench.Children(u"MMB"_s), QStringList({u"FilmButton1"_s, u"FreeButton1"_s, u"FilmButton2"_s}));
  EXPECT_EQ(bench.Caption(u"MMB2Action"_s), u"Action=g1=1;jump title 1;");
  EXPECT_EQ(bench.Caption(u"MMB3Action"_s), u"Action=g1=9;jump title 2;");
}

TEST(EditFilms, OnlyTheLastFilmGoesWithAllThatBelongsToIt) {
  Settings settings = test::TitleSetSettings();
  settings.Engine = 1;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  const test::WholeProject before(bench.project);
  FilmRecord film = Film(u"b"_s);
  film.Animated = 1;
  ASSERT_TRUE(AddFilm(bench.context, film, {}));
  ASSERT_TRUE(AddPlayList(bench.context, {.Film = 2, .List = u"01"_s}, {}));
  ASSERT_TRUE(AddMenu(bench.context, {}, {.menu = u"TS2"_s}));
  EXPECT_EQ(bench.Children(u"MMS"_s), QStringList(u"Ani=C:\\v\\b.m2v"_s));
  EXPECT_EQ(bench.Caption(u"MMB3Action"_s), u"Action=JumpTT TitleSet2_Title1_PL1");
  EXPECT_EQ(bench.Caption(u"MMB3Text"_s), u"Text=Playlist 1");
  EXPECT_EQ(bench.project.Tree.Find(u"MMB3Text"_s)->Tag(), u"02 01");
  EXPECT_TRUE(bench.project.SubMenuTable[1].Used);

  EXPECT_FALSE(DeleteFilm(bench.context, 1));
  EXPECT_EQ(bench.Told(), QStringList(u"Only the last video can be deleted"_s));
  EXPECT_TRUE(DeleteNode(bench.context, u"MMB2"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"Associated submenus are deleted too. \r\n Delete?\r\nb"_s));
  bench.project.Tree.Remove(u"MMS"_s);  // the group that the animation brought
  EXPECT_EQ(test::WholeProject(bench.project).tree, before.tree);
  EXPECT_EQ(test::WholeProject(bench.project).subMenus, before.subMenus);
  EXPECT_EQ(bench.project.FilmCount, 1);
}

TEST(EditFilms, APlaylistGoesWithItsButtonWhenItIsTheLast) {
  Settings settings;
  settings.Engine = 1;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  ASSERT_TRUE(AddPlayList(bench.context, {.Film = 1, .List = u"01"_s}, {}));
  ASSERT_TRUE(AddPlayList(bench.context, {.Film = 1, .List = u"01"_s}, {}));
  ASSERT_TRUE(DeleteNode(bench.context, u"MMB2"_s));
  EXPECT_EQ(bench.Children(u"FP1P"_s), QStringList({u"PlayList1"_s, u"PlayList2"_s}));
  // The ordinals of a kind are given anew when a button comes, not when one goes.
  EXPECT_EQ(bench.Children(u"MMB"_s), QStringList({u"FilmButton1"_s, u"PlayListButton2"_s}));
  ASSERT_TRUE(DeleteNode(bench.context, u"MMB3"_s));
  EXPECT_EQ(bench.Children(u"FP1P"_s), QStringList(u"PlayList1"_s));
}

TEST(EditFilms, APlaylistStaysWhileACopiedButtonLeadsToIt) {
  Settings settings;
  settings.Engine = 1;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  ASSERT_TRUE(AddPlayList(bench.context, {.Film = 1, .List = u"01"_s}, {}));
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  ASSERT_TRUE(CopyMenuLayout(bench.context, u"MM1"_s, u"MM"_s, {.Buttons = true}));
  ASSERT_EQ(bench.Children(u"MM1B"_s).filter(u"PlayList"_s).size(), 1);
  ASSERT_TRUE(DeleteNode(bench.context, u"MM1B35"_s));
  EXPECT_EQ(bench.Children(u"FP1P"_s), QStringList(u"PlayList1"_s));
  ASSERT_TRUE(DeleteNode(bench.context, u"MMB2"_s));
  EXPECT_FALSE(bench.project.Tree.Contains(u"FP1P"_s));
}

TEST(EditFilms, AnAnimatedFilmTakesItsAnimationAlong) {
  test::EditBench bench;
  ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  FilmRecord film = ReadFilmNodes(bench.project.Tree, 1);
  film.Animated = 1;
  ASSERT_TRUE(EditFilm(bench.context, 1, film));
  EXPECT_EQ(bench.Children(u"MMS"_s), QStringList(u"Ani=C:\\v\\a.m2v"_s));
  film.Animated = 2;
  film.VideoFile = u"C:\\v\\z.m2v"_s;
  ASSERT_TRUE(EditFilm(bench.context, 1, film));
  EXPECT_EQ(bench.Children(u"MMS"_s), QStringList(u"Ani=C:\\v\\z.m2v"_s));
  film.Animated = 0;
  ASSERT_TRUE(EditFilm(bench.context, 1, film));
  EXPECT_EQ(bench.Children(u"MMS"_s), QStringList());
}

TEST(EditFilms, AudioTitleSetsNeedTitleSets) {
  AudioTitleStore store;
  store.Name = u"Songs"_s;
  store.Titles.resize(2);
  test::EditBench single;
  EXPECT_FALSE(AddAudioTitleSet(single.context, store, {}));
  EXPECT_EQ(single.Told(), QStringList(u"Audiotitlesets may only be created if 'Use Titlesets' is enabled!"_s));
  Settings settings = test::TitleSetSettings();
  settings.NoShowTitleSetMenu = true;
  settings.LoopSyntax = true;
  test::EditBench bench(settings);
  EXPECT_TRUE(AddAudioTitleSet(bench.context, store, {}));
  EXPECT_EQ(bench.Caption(u"MMB1Action"_s), u"Action=jump titleset 1 menu;");
  EXPECT_EQ(bench.Caption(u"TS1B0Action"_s), u"Action=g1=1; g3=1;jump vmgm menu;");
  store.Titles.resize(97);
  EXPECT_FALSE(EditAudioTitleSet(bench.context, 1, store));
  EXPECT_EQ(bench.Told(), QStringList(u"Only 96 Audio titles allowed"_s));
}

TEST(EditFilms, TitlesOfAnAudioTitleSetHaveTheirOwnJumps) {
  test::EditBench bench(test::TitleSetSettings());
  AudioTitleStore store;
  store.Titles.resize(3);
  ASSERT_TRUE(AddAudioTitleSet(bench.context, store, {}));
  ASSERT_TRUE(AddChapterButton(bench.context, 3, {.menu = u"TS1"_s}));
  EXPECT_EQ(bench.Children(u"TS1B"_s), QStringList({u"TitleButton1"_s, u"BackButton"_s}));
  EXPECT_EQ(bench.Caption(u"TS1B1Action"_s), u"Action=jump title 3;");
  store.AudioTSLayoutType = u"1"_s;
  ASSERT_TRUE(EditAudioTitleSet(bench.context, 1, store));
  ASSERT_TRUE(AddChapterButton(bench.context, 3, {.menu = u"TS1"_s}));
  EXPECT_EQ(bench.Caption(u"TS1B2Action"_s), u"Action=jump title 1 chapter 3;");
}

TEST(EditFilms, StopAtTheirLimits) {
  test::EditBench bench(test::TitleSetSettings());
  EXPECT_FALSE(AddFilm(bench.context, Film(u"a"_s), {.menu = u"TS1"_s}));
  EXPECT_TRUE(bench.Told().value(0).startsWith(u"Videos can only be inserted in main menu(s)! \r\n"));
  for (int i = 0; i < 36; ++i) ASSERT_TRUE(AddFilm(bench.context, Film(u"a"_s), {}));
  EXPECT_FALSE(AddFilm(bench.context, Film(u"a"_s), {}));
  EXPECT_EQ(bench.Told(), QStringList(u"Only 36 buttons (and/or videos) possible!"_s));
  for (const QString& menu : {u"MM1"_s, u"MM2"_s}) {
    ASSERT_TRUE(bench.project.Tree.Remove(u"MMB36"_s));
    ASSERT_TRUE(AddMenu(bench.context, {}, {}));
    while (bench.project.FilmCount < kMaxFilms && AddFilm(bench.context, Film(u"a"_s), {.menu = menu})) {
    }
  }
  EXPECT_EQ(bench.project.FilmCount, kMaxFilms);
  bench.Told();
  EXPECT_FALSE(AddFilm(bench.context, Film(u"a"_s), {.menu = u"MM2"_s}));
  EXPECT_EQ(bench.Told(), QStringList(u"Only(?!) 98 Films possible!"_s));
}

}  // namespace
}  // namespace torvane
