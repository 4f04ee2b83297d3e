#include "designer/free_place.h"

#include <gtest/gtest.h>

#include "designer/button_rectangles.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/menu_frame.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::EditBench;

bool KeepsTheRules(const EditBench& bench) {
  const MenuView menu(bench.project.Tree, MainMenuKey());
  const int height = MenuHeight(bench.project.Settings);
  std::vector<QRect> areas;
  for (const ButtonView& button : menu.Buttons()) areas.push_back(ElementRectangle(button.Drawing()));
  for (const LabelView& label : menu.Labels()) areas.push_back(ElementRectangle(label.Drawing()));
  for (std::size_t i = 0; i < areas.size(); ++i) {
    if (!QRect(0, 0, kMenuWidth, height).contains(areas[i])) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (areas[i].intersects(areas[j])) return false;
    }
  }
  return RectangleFaults(ButtonRectangles(menu, bench.project.Settings), height).empty();
}

TEST(FreePlace, FilmsWithoutAPlaceMakeAMenuThatCanBeBuilt) {
  for (const bool pal : {true, false}) {
    for (const bool wide : {false, true}) {
      for (const int style : {0, 1, 2}) {
        Settings settings = test::FixedSettings();
        settings.VideoNormPal = pal;
        settings.DefMenuRatio = wide;
        settings.TextButtons = style;
        settings.ImageSizeX = 60;
        settings.ImageSizeY = 30;
        EditBench bench(settings);
        const int films = wide ? 18 : style == 1 ? 36 : 9;  // of a 16:9 menu no more are allowed
        for (int i = 1; i <= films; ++i) {
          ASSERT_TRUE(AddFilm(bench.context, test::Film(u"film_%1"_s.arg(i)), {})) << i;
        }
        EXPECT_TRUE(KeepsTheRules(bench)) << pal << wide << style;
        EXPECT_EQ(bench.Captions(u"MMBP1Left MMBP1Top MMBP2Left MMBP2Top"_s),
                  (QStringList{u"Left=100"_s, u"Top=100"_s, u"Left=100"_s, u"Top=164"_s}));
      }
    }
  }
}

TEST(FreePlace, ButtonsAvoidLabelsAndOthersWhereverTheyStand) {
  EditBench bench;
  ASSERT_TRUE(AddLabel(bench.context, u"A label"_s, {.position = QPoint(90, 90)}));
  ASSERT_TRUE(AddFreeButton(bench.context, u"one"_s, u"exit;"_s, {.position = QPoint(100, 230)}));
  // The next place of the grid would be the second, on the button.
  ASSERT_TRUE(AddFreeButton(bench.context, u"two"_s, u"exit;"_s, {}));
  EXPECT_EQ(bench.Captions(u"MMBP2Left MMBP2Top"_s), (QStringList{u"Left=100"_s, u"Top=164"_s}));
  ASSERT_TRUE(AddFreeButton(bench.context, u"three"_s, u"exit;"_s, {}));
  EXPECT_EQ(bench.Caption(u"MMBP3Top"_s), u"Top=292"_s);
  EXPECT_TRUE(KeepsTheRules(bench));
  // Pictures may lie beneath others, but not on buttons and labels.
  bench.project.Settings.ImageSizeX = bench.project.Settings.ImageSizeY = 60;
  ASSERT_TRUE(AddImage(bench.context, u"C:\\i.png"_s, {}));
  EXPECT_EQ(bench.Caption(u"MMI1Top"_s), u"Top=356"_s);
}

TEST(FreePlace, BehindTheGridTheRasterOfTheMenuIsSearched) {
  EditBench bench;
  bench.project.Settings.GridLayout = u"R1C1PX100PY100DX0DY0"_s;
  ASSERT_TRUE(AddFreeButton(bench.context, u"one"_s, u"exit;"_s, {}));
  ASSERT_TRUE(AddFreeButton(bench.context, u"two"_s, u"exit;"_s, {}));
  EXPECT_EQ(bench.Captions(u"MMBP2Left MMBP2Top"_s), (QStringList{u"Left=16"_s, u"Top=16"_s}));
  test::AddNode(bench.project, u"MMBG"_s, u"MMBGRasterX|RasterX=50"_s);
  ASSERT_TRUE(AddFreeButton(bench.context, u"three"_s, u"exit;"_s, {}));
  EXPECT_EQ(bench.Captions(u"MMBP3Left MMBP3Top"_s), (QStringList{u"Left=50"_s, u"Top=16"_s}));
}

TEST(FreePlace, AFullMenuRefusesAndStaysAsItWas) {
  EditBench bench;
  bench.project.Settings.ImageSizeX = 700;
  bench.project.Settings.ImageSizeY = 560;
  const ElementPlace graphic{.style = ButtonStyle::Graphic};
  bench.project.Settings.GridLayout = u"R1C1PX4PY4DX0DY0"_s;
  ASSERT_TRUE(AddFreeButton(bench.context, {}, u"exit;"_s, graphic));
  const QString before = test::DumpTree(bench.project.Tree);
  const QString full =
      u"Menu MainMenu (MM) has no free place for the new element. Please give it one, or move or delete "
      u"others first."_s;
  EXPECT_FALSE(AddFreeButton(bench.context, u"x"_s, u"exit;"_s, {}));
  EXPECT_FALSE(AddLabel(bench.context, u"a label"_s, {}));
  EXPECT_FALSE(AddImage(bench.context, u"C:\\i.png"_s, {}));
  EXPECT_FALSE(AddFilm(bench.context, test::Film(), {}));
  EXPECT_EQ(bench.Told(), QStringList(4, full));
  EXPECT_EQ(test::DumpTree(bench.project.Tree), before);
  EXPECT_TRUE(AddFreeButton(bench.context, u"x"_s, u"exit;"_s, {.position = QPoint(5, 5)}));
}

TEST(FreePlace, TheTextOfAFilmButtonIsFittedIntoTheFrame) {
  // Eight pixels a character: seventy-six of them fit behind the grid's left edge.
  const QString word = u"abcdefghi"_s;
  const struct {
    QString name;
    std::optional<QPoint> at;
    QString text;
  } cases[] = {
      {QStringList(7, word).join(u'_'), {}, QStringList(7, word).join(u' ')},
      {QStringList(8, word).join(u'_'), {}, QStringList(7, word).join(u' ') + u"\r\n" + word},
      {QString(90, u'x'), {}, QString(75, u'x') + u'\u2026'},
      {u"ab_cd"_s, QPoint(690, 50), u"ab\r\ncd"_s},
  };
  for (const auto& [name, at, text] : cases) {
    EditBench bench;
    ASSERT_TRUE(AddFilm(bench.context, test::Film(name), {.position = at}));
    EXPECT_EQ(bench.Caption(u"MMB1Text"_s), u"Text=" + text);
    EXPECT_EQ(bench.Told().size(), text.contains(u'\r') || text.contains(u'\u2026') ? 1 : 0);
    EXPECT_TRUE(KeepsTheRules(bench)) << name.toStdString();
  }
  EditBench bench;
  ASSERT_TRUE(AddFilm(bench.context, test::Film(QStringList(40, word).join(u'_')), {}));
  EXPECT_EQ(bench.Caption(u"MMB1Text"_s).count(u"\r\n"), 2);
  EXPECT_TRUE(bench.Caption(u"MMB1Text"_s).endsWith(u'\u2026'));
  EXPECT_TRUE(KeepsTheRules(bench));
}

}  // namespace
}  // namespace torvane
