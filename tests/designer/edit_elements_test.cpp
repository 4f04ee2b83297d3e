#include "designer/edit_elements.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "platform/host_files.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

FilmRecord FilmWith(const QString& chapters) {
  FilmRecord film = test::Film();
  film.Chapters = chapters;
  return film;
}

TEST(EditElements, HaveLimitsOfTheirKind) {
  struct Case {
    const char* name;
    std::function<bool(EditContext&)> add;
    int limit;
    QString message;
  };
  const Case cases[] = {
      {"buttons", [](EditContext& c) { return AddFreeButton(c, u"x"_s, {}, {}); }, 36,
       u"Only 36 buttons (and/or videos) possible!"_s},
      {"images", [](EditContext& c) { return AddImage(c, u"C:\\i.png"_s, {}); }, 50, u"Only(?!) 50 images possible!"_s},
      {"animations", [](EditContext& c) { return AddAnimation(c, {.video = u"C:\\v.m2v"_s}, {}); }, 50,
       u"Only(?!) 50 animations possible!"_s},
      {"labels", [](EditContext& c) { return AddLabel(c, u"x"_s, {}); }, 36, u"Only 36 free text labels possible!"_s},
  };
  for (const Case& c : cases) {
    test::EditBench bench;
    for (int i = 0; i < c.limit; ++i) ASSERT_TRUE(c.add(bench.context)) << c.name << i;
    const QString full = test::DumpTree(bench.project.Tree);
    EXPECT_FALSE(c.add(bench.context)) << c.name;
    EXPECT_EQ(bench.Told(), QStringList(c.message));
    EXPECT_EQ(test::DumpTree(bench.project.Tree), full);
    EXPECT_EQ(bench.project.History.UndoCount(), std::size_t(c.limit));
  }
}

TEST(EditElements, OnePlayAllButtonInTheMainMenu) {
  test::EditBench bench(test::TitleSetSettings());
  ASSERT_TRUE(AddFilm(bench.context, FilmWith(u"00:00:00.000"_s), {}));
  EXPECT_FALSE(AddPlayAllButton(bench.context, {.menu = u"TS1"_s}));
  EXPECT_TRUE(AddPlayAllButton(bench.context, {}));
  EXPECT_FALSE(AddPlayAllButton(bench.context, {}));
  EXPECT_EQ(bench.Told(), QStringList({u"A Play all button can only be inserted in the MainMenu"_s,
                                       u"A Play all button is already defined"_s}));
  EXPECT_EQ(bench.Captions(u"MMB2Text MMB2Action"_s), QStringList({u"Text=Play all"_s, u"Action=Play_all"_s}));
}

TEST(EditElements, ChapterButtonsFillAGridByRows) {
  Settings settings = test::TitleSetSettings();
  settings.ChapterButtonUseTime = true;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, FilmWith(u"00:00:00.000,00:05:00.000,00:10:00.000"_s), {}));
  EXPECT_FALSE(AddChapterButton(bench.context, 1, {}));
  EXPECT_FALSE(AddChapterButton(bench.context, 4, {.menu = u"TS1"_s}));
  EXPECT_FALSE(AddChapterGrid(bench.context, {}, settings.GridLayout, {.menu = u"TS1"_s}));
  EXPECT_EQ(bench.Told().mid(1), QStringList({u"No chapter selected in list window"_s, u"Nothing selected"_s}));
  ASSERT_TRUE(AddChapterGrid(bench.context, {3, 1, 2}, u"R2C2PX20PY30DX100DY50"_s, {.menu = u"TS1"_s}));
  EXPECT_EQ(bench.Children(u"TS1B"_s),
            QStringList({u"ChapterButton1"_s, u"ChapterButton2"_s, u"ChapterButton3"_s, u"BackButton"_s}));
  EXPECT_EQ(bench.Caption(u"TS1B1Text"_s), u"Text=Chapter 3 00:10:00.000");
  EXPECT_EQ(bench.Caption(u"TS1B1Action"_s), u"Action=jump title 1 chapter 3;");
  EXPECT_EQ(bench.Caption(u"TS1BP2Left"_s) + u' ' + bench.Caption(u"TS1BP2Top"_s), u"Left=120 Top=30");
  EXPECT_EQ(bench.Caption(u"TS1BP3Left"_s) + u' ' + bench.Caption(u"TS1BP3Top"_s), u"Left=20 Top=80");
  EXPECT_EQ(bench.project.History.UndoName(), u"Create layout by grid");
  ASSERT_TRUE(bench.project.History.Undo());
  EXPECT_EQ(bench.Children(u"TS1B"_s), QStringList(u"BackButton"_s));
}

TEST(EditElements, ChapterButtonsTakeThePicturesOfTheEditor) {
  const QTemporaryDir dir;
  Settings settings = test::TitleSetSettings();
  settings.OutDir = HostFiles::ToDos(dir.path());
  const QString clip = settings.OutDir + u"\\a_00_00_00.000.vob";
  const QString still = settings.OutDir + u"\\a_00_05_00.000.bmp";
  for (const QString& path : {clip, still}) ASSERT_TRUE(HostFiles::WriteAtomically(path, "x"));
  for (const bool animated : {false, true}) {
    settings.AnimatedMainMenu = animated;
    test::EditBench bench(settings);
    ASSERT_TRUE(AddFilm(bench.context, FilmWith(u"00:00:00.000,00:05:00.000,00:06:00.000"_s), {}));
    ASSERT_TRUE(AddChapterGrid(bench.context, {1, 2, 3}, u"R3C1PX20PY30DX100DY50"_s, {.menu = u"TS1"_s},
                               ChapterPicture::FromEditor));
    EXPECT_EQ(bench.Children(u"TS1B"_s).size(), 4);
    EXPECT_EQ(bench.Children(u"TS1S"_s), animated ? QStringList{u"Ani="_s + clip} : QStringList());
    EXPECT_EQ(bench.Children(u"TS1I"_s), QStringList{u"Image1"_s});
    EXPECT_EQ(bench.Caption(u"TS1I1File"_s) + bench.Caption(u"TS1I1Top"_s), still + u"Top=80");
  }
}

TEST(EditElements, AGridThatIsNoneOrPassesTheMenuIsRefused) {
  Settings settings = test::TitleSetSettings();
  settings.VideoNormPal = false;
  settings.VideoHeight = 480;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, FilmWith(u"00:00:00.000,00:05:00.000,00:06:00.000"_s), {}));
  const QString before = test::DumpTree(bench.project.Tree);
  const QString overflow = u"Overflow! Reduce number/size of elements or change the grid..."_s;
  const std::pair<QString, QString> cases[] = {
      {u"hello"_s,
       u"A grid is written like R10C1PX100PY100DX300DY64 (rows, columns, first place, distances), not \"hello\"."_s},
      {u"R0C36PX15PY460DX600DY9"_s,
       u"R=0: Must be greater than 0!\r\nC=36: Must be smaller than 36!\r\nPX=15: Must be more than 15 Pixel\r\n"
       u"PY=460: Must be less than 460 Pixel\r\nDX=600: Must be less than 600 Pixel\r\n"
       u"DY=9: Must be more than 9 Pixel"_s},
      {u"R1C3PX100PY100DX268DY50"_s, overflow},   // the third button ends at 713
      {u"R3C1PX100PY100DX100DY181"_s, overflow},  // at 481
  };
  for (const auto& [grid, told] : cases) {
    EXPECT_FALSE(AddChapterGrid(bench.context, {1, 2, 3}, grid, {.menu = u"TS1"_s})) << grid.toStdString();
    EXPECT_EQ(bench.Told(), QStringList(told));
    EXPECT_EQ(test::DumpTree(bench.project.Tree), before);
  }
  EXPECT_TRUE(AddChapterGrid(bench.context, {1, 2}, u"R1C3PX100PY100DX268DY50"_s, {.menu = u"TS1"_s}));
  EXPECT_TRUE(AddChapterGrid(bench.context, {1, 2, 3}, u"R3C1PX100PY100DX100DY180"_s, {.menu = u"TS1"_s}));
}

TEST(EditElements, AGridEndsWhereTheMenuIsFull) {
  Settings settings = test::TitleSetSettings();
  settings.DefMenuRatio = true;
  settings.Def169Mode = 1;
  test::EditBench bench(settings);
  ASSERT_TRUE(AddFilm(bench.context, FilmWith(u"00:00:00.000,00:05:00.000"_s), {}));
  const auto addGrid = [&](std::vector<int> chapters) {
    return AddChapterGrid(bench.context, chapters, u"R5C3PX20PY30DX100DY50"_s, {.menu = u"TS1"_s});
  };
  EXPECT_FALSE(addGrid({1, 3}));
  EXPECT_EQ(bench.Told(), QStringList(u"No chapter selected in list window"_s));
  EXPECT_EQ(bench.Children(u"TS1B"_s), QStringList(u"BackButton"_s));
  EXPECT_TRUE(addGrid(std::vector<int>(14, 1)));
  EXPECT_EQ(bench.Told(), QStringList(u"Only 12 buttons (and/or videos) possible!"_s));
  EXPECT_EQ(bench.Children(u"TS1B"_s).mid(10), QStringList({u"ChapterButton11"_s, u"BackButton"_s}));
  EXPECT_EQ(bench.Caption(u"TS1BP11Left"_s) + u' ' + bench.Caption(u"TS1BP11Top"_s), u"Left=120 Top=180");
  EXPECT_FALSE(addGrid({2}));
}

TEST(EditElements, MovingPutsAnElementToItsSiblingsPlace) {
  const struct {
    QString key;
    QString target;
    bool done;
    QString order;  // the numbers of the buttons
  } cases[] = {
      {u"MM1B3"_s, u"MM1B1"_s, true, u"3120"_s},  {u"MM1B1"_s, u"MM1B2"_s, true, u"2130"_s},
      {u"MM1B1"_s, u"MM1B0"_s, true, u"2310"_s},  {u"MM1B0"_s, u"MM1B1"_s, false, u"1230"_s},
      {u"MM1B1"_s, u"MMB1"_s, false, u"1230"_s},  {u"MM1B1Text"_s, u"MM1B1Action"_s, false, u"1230"_s},
  };
  for (const auto& [key, target, done, order] : cases) {
    test::EditBench bench;
    ASSERT_TRUE(AddMenu(bench.context, {}, {}));
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, {.menu = u"MM1"_s}));
    EXPECT_EQ(MoveElement(bench.context, key, target), done);
    QString numbers;
    for (const ButtonView& button : MenuView(bench.project.Tree, u"MM1"_s).Buttons()) {
      numbers += QString::number(button.Number());
    }
    EXPECT_EQ(numbers, order) << key.toStdString();
  }
}

TEST(EditElements, GroupsAreDeletedWithoutWhatBelongsToFilms) {
  const auto build = [](test::EditBench& bench) {
    FilmRecord film = FilmWith(u"00:00:00.000"_s);
    film.Animated = 1;
    EXPECT_TRUE(AddFilm(bench.context, film, {}));
    EXPECT_TRUE(AddMenu(bench.context, {}, {}));
    EXPECT_TRUE(AddFreeButton(bench.context, u"x"_s, {}, {}));
    EXPECT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, {}));
    EXPECT_TRUE(AddLabel(bench.context, u"x"_s, {}));
    EXPECT_TRUE(AddAnimation(bench.context, {.video = u"C:\\v\\b.m2v"_s}, {}));
  };
  struct Case {
    ElementGroup group;
    QList<int> left;  // buttons, images, labels, animations
  };
  for (const Case& c :
       {Case{ElementGroup::All, {2, 0, 0, 1}}, Case{ElementGroup::Animations, {3, 1, 1, 1}},
        Case{ElementGroup::Images, {3, 0, 1, 2}}, Case{ElementGroup::Labels, {3, 1, 0, 2}},
        Case{ElementGroup::ChapterButtons, {3, 1, 1, 2}}, Case{ElementGroup::FreeButtons, {2, 1, 1, 2}}}) {
    test::EditBench bench;
    build(bench);
    ASSERT_TRUE(DeleteGroup(bench.context, u"MM"_s, c.group));
    QList<int> left;
    for (const QString& group : {u"MMB"_s, u"MMI"_s, u"MML"_s, u"MMS"_s}) {
      left << int(bench.Children(group).size());
    }
    EXPECT_EQ(left, c.left);
  }
}

TEST(EditElements, TheAnimationOfAFilmStays) {
  test::EditBench bench;
  FilmRecord film = FilmWith(u"00:00:00.000"_s);
  film.Animated = 1;
  ASSERT_TRUE(AddFilm(bench.context, film, {}));
  ASSERT_TRUE(AddAnimation(bench.context, {.video = u"C:\\other.m2v"_s}, {}));
  EXPECT_FALSE(DeleteNode(bench.context, u"MMS01"_s));
  EXPECT_EQ(bench.Told(),
            QStringList(u"Animation within a FilmButton may be deleted/disabled in the Video properties"_s));
  EXPECT_TRUE(DeleteNode(bench.context, u"MMS02"_s));
  EXPECT_EQ(bench.Children(u"MMS"_s), QStringList(u"Ani=C:\\v\\a.m2v"_s));
}

TEST(EditElements, SubmenuButtonsGoWithTheirSubmenu) {
  test::EditBench bench;
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  ASSERT_TRUE(AddMenu(bench.context, {}, {.menu = u"MM1"_s}));
  ASSERT_TRUE(SwitchMenu(bench.project, u"MM1"_s, bench.prompter));
  EXPECT_FALSE(DeleteNode(bench.context, u"MM1B1"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"Submenus can only be deleted in the Project explorer. \r\n Load MainMenu to "
                                      u"delete the submenu?"_s));
  EXPECT_EQ(bench.project.CurrentMenuKey, u"MM");
  bench.Told();
  EXPECT_FALSE(DeleteNode(bench.context, u"MM1B0"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"The Back-Button cannot be deleted!"_s));
  bench.project.Tree.Remove(u"MM1B0"_s);
  EXPECT_TRUE(AddMissingBackButton(bench.context, u"MM1"_s));
  EXPECT_EQ(bench.Caption(u"MM1B0Action"_s), u"Action=jump menu 1;");
  EXPECT_FALSE(AddMissingBackButton(bench.context, u"MM1"_s));
  EXPECT_TRUE(DeleteNode(bench.context, u"MMM2"_s));
  for (const QString& key : {u"MM"_s, u"TS"_s, u"MMB"_s, u"MMBG"_s, u"MMBGPath"_s, u"nothing"_s, u""_s}) {
    EXPECT_FALSE(DeleteNode(bench.context, key)) << key.toStdString();
  }
}

}  // namespace
}  // namespace torvane
