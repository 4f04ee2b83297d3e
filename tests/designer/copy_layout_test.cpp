#include "designer/copy_layout.h"

#include <gtest/gtest.h>

#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/edit_values.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr CopyFlags kEverything{.Animations = true, .BackButton = true, .Background = true, .Buttons = true,
                                .HighLight = true,  .Images = true,     .Labels = true};

using test::Film;

TEST(CopyLayout, BringsElementsButNeitherFilmsNorMenus) {
  test::EditBench bench;
  ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  ASSERT_TRUE(AddFreeButton(bench.context, u"x"_s, u"exit;"_s, {.menu = u"MM1"_s}));
  ASSERT_TRUE(AddLabel(bench.context, u"Hi"_s, {}));
  ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, {}));
  ASSERT_TRUE(EditValue(bench.context, u"MMHC1"_s, u"1,2,3"_s));
  ASSERT_TRUE(CopyMenuLayout(bench.context, u"MM1"_s, u"MM"_s, kEverything));
  EXPECT_EQ(bench.Children(u"MM1B"_s),
            QStringList({u"FreeButton1"_s, u"FreeButton2"_s, u"FreeButton3"_s, u"BackButton"_s}));
  EXPECT_EQ(bench.Caption(u"MM1B36Action"_s), u"Action=g1=1;jump title 1;");
  EXPECT_EQ(bench.project.Tree.Find(u"MM1B36"_s)->Tag(), u"36");
  EXPECT_EQ(bench.project.Tree.Find(u"MM1B36"_s)->LastChild()->Key(), u"MM1BP36");
  EXPECT_EQ(bench.Captions(u"MM1BP36Left MM1B35Action MM1B0Action MM1HC1 MM1I1File MM1L37Text"_s),
            QStringList({u"Left=100"_s, u"Action=jump menu 2;"_s, u"Action=jump menu 1;"_s, u"FillColor=1,2,3"_s,
                         u"C:\\i.png"_s, u"Text=Hi"_s}));

  ASSERT_TRUE(CopyMenuLayout(bench.context, u"MM1"_s, u"MM"_s, {.Images = true, .Labels = true}));
  EXPECT_EQ(bench.Children(u"MM1I"_s), QStringList({u"Image1"_s, u"Image2"_s}));
  EXPECT_EQ(bench.Captions(u"MM1L38Text MM1LP38Height"_s), QStringList({u"Text=Hi"_s, u"Height=19"_s}));
}

TEST(CopyLayout, ThePostActionStaysUnlessItIsWanted) {
  struct Case {
    QString source;
    QString target;
    bool wanted;
    QString result;
  };
  const Case cases[] = {
      {u"PostAction=s;"_s, u"PostAction=t;"_s, false, u"PostAction=t;"_s},
      {u"PostAction=s;"_s, u"PostAction=t;"_s, true, u"PostAction=s;"_s},
      {u"PostAction=s;"_s, u""_s, false, u"(none)"_s},
      {u""_s, u"PostAction=t;"_s, false, u"PostAction=t;"_s},
      {u""_s, u"PostAction=t;"_s, true, u"(none)"_s},
  };
  for (const Case& c : cases) {
    test::EditBench bench(test::TitleSetSettings());
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
    if (!c.source.isEmpty()) test::AddNode(bench.project, u"TS1BG"_s, u"TS1BGPostAction|" + c.source);
    if (!c.target.isEmpty()) test::AddNode(bench.project, u"TS2BG"_s, u"TS2BGPostAction|" + c.target);
    bench.project.Tree.SetCaption(u"TS1BGPath"_s, u"Image=C:\\s.jpg"_s);
    ASSERT_TRUE(CopyMenuLayout(bench.context, u"TS2"_s, u"TS1"_s, {.Background = true, .PostAction = c.wanted}));
    EXPECT_EQ(bench.Caption(u"TS2BGPath"_s), u"Image=C:\\s.jpg");
    EXPECT_EQ(bench.Caption(u"TS2BGPostAction"_s), c.result);
  }
}

TEST(CopyLayout, TheAspectStays) {
  for (const QString& target : {u""_s, u"16:9=0"_s}) {
    test::EditBench bench(test::TitleSetSettings());
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
    test::AddNode(bench.project, u"TS1BG"_s, u"TS1BG16:9|16:9=1"_s);
    if (!target.isEmpty()) test::AddNode(bench.project, u"TS2BG"_s, u"TS2BG16:9|" + target);
    ASSERT_TRUE(CopyMenuLayout(bench.context, u"TS2"_s, u"TS1"_s, {.Background = true}));
    EXPECT_EQ(bench.Caption(u"TS2BG16:9"_s), target.isEmpty() ? u"(none)"_s : target);
  }
}

TEST(CopyLayout, StaysWithinAFamilyOfMenus) {
  test::EditBench bench(test::TitleSetSettings());
  ASSERT_TRUE(AddFilm(bench.context, Film(), {}));
  EXPECT_FALSE(CopyMenuLayout(bench.context, u"TS1"_s, u"MM"_s, kEverything));
  EXPECT_TRUE(bench.Told().value(0).startsWith(u"No suitable menu to copy from.\r\n"));
  ASSERT_TRUE(AddMenu(bench.context, {}, {.menu = u"TS1"_s}));
  EXPECT_FALSE(CopyMenuLayout(bench.context, u"TS1"_s, u"MM"_s, kEverything));
  EXPECT_EQ(bench.Told(), QStringList(u"Select a 'From menu'"_s));
  EXPECT_EQ(LayoutSources(bench.project, u"TS1"_s), QStringList(u"SM1"_s));
  EXPECT_FALSE(CopyMenuLayout(bench.context, u"SM1"_s, u"TS1"_s, {}));
  bench.project.Settings.NoTitleSets = true;
  EXPECT_EQ(LayoutSources(bench.project, u"TS1"_s), QStringList());
}

TEST(CopyLayout, ThatDoesNotFitChangesNothing) {
  test::EditBench bench;
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  for (int i = 0; i < 60; ++i) ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, {.menu = i % 2 ? u"MM1"_s : u"MM"_s}));
  const QString before = test::DumpTree(bench.project.Tree);
  EXPECT_FALSE(CopyMenuLayout(bench.context, u"MM1"_s, u"MM"_s, kEverything));
  EXPECT_EQ(bench.Told(), QStringList(u"Only(?!) 50 images possible!"_s));
  EXPECT_EQ(test::DumpTree(bench.project.Tree), before);
}

}  // namespace
}  // namespace torvane
