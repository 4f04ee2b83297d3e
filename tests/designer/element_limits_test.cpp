#include "designer/element_limits.h"

#include <gtest/gtest.h>

#include "support/menu_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ElementLimits, DependOnHowTheMenuIsShown) {
  struct Case {
    QString menu;
    QString aspectNode;  ///< of the titleset's menu; "" for none
    bool defMenuRatio;
    int def169Mode;
    int expected;
  };
  const Case cases[] = {
      {u"MM"_s, u""_s, false, 1, 36},        {u"MM"_s, u""_s, true, 0, 18},
      {u"MM"_s, u""_s, true, 1, 12},         {u"MM"_s, u""_s, true, 2, 18},
      {u"TS1"_s, u"16:9=1"_s, false, 1, 12}, {u"TS1"_s, u"16:9=0"_s, true, 1, 36},
      {u"SM1"_s, u"16:9=1"_s, false, 2, 18}, {u"SM1"_s, u""_s, true, 0, 18},
  };
  for (const Case& test : cases) {
    Settings settings = test::FixedSettings();
    settings.DefMenuRatio = test.defMenuRatio;
    settings.Def169Mode = test.def169Mode;
    Project project(settings);
    AddDefaultProject(project);
    AddMenuSubtree(project, {.kind = MenuKind::TitleSetRoot, .number = 1, .key = u"TS1"_s});
    project.Tree.Add({.Key = u"SM1"_s, .Caption = u"TS1SubMenu1"_s});
    if (!test.aspectNode.isEmpty()) test::SetNode(project, u"TS1BG"_s, u"TS1BG16:9|" + test.aspectNode);
    EXPECT_EQ(ButtonLimit(MenuView(project.Tree, test.menu), settings), test.expected)
        << test.menu.toStdString() << ' ' << test.aspectNode.toStdString();
  }
}

TEST(ElementLimits, LetTheLastOneInAndTellWhyNoOtherFollows) {
  Settings settings = test::FixedSettings();
  settings.DefMenuRatio = true;
  settings.Def169Mode = 1;
  Project project(settings);
  AddDefaultProject(project);
  test::SetNode(project, u"MM"_s, u"MMS|Animations"_s);
  const MenuView menu(project.Tree, u"MM"_s);
  test::RecordingPrompter prompter;
  const auto fill = [&](const QString& group, int count) {
    for (int i = 1; i <= count; ++i) test::AddNode(project, group, group + QString::number(i) + u"|x");
  };
  const auto checkAll = [&] {
    return std::vector{CheckButtonLimit(menu, settings, prompter), CheckImageLimit(menu, prompter),
                       CheckAnimLimit(menu, prompter), CheckLabelLimit(menu, prompter)};
  };

  fill(u"MMB"_s, 11);
  fill(u"MMI"_s, 49);
  fill(u"MMS"_s, 49);
  fill(u"MML"_s, 35);
  EXPECT_EQ(checkAll(), std::vector(4, true));
  EXPECT_TRUE(prompter.boxes.empty());

  for (const QString& group : {u"MMB"_s, u"MMI"_s, u"MMS"_s, u"MML"_s}) test::AddNode(project, group, group + u"99|x");
  EXPECT_EQ(checkAll(), std::vector(4, false));
  const std::vector<Box> expected{{.text = u"Only 12 buttons (and/or videos) possible!"_s},
                                  {.text = u"Only(?!) 50 images possible!"_s},
                                  {.text = u"Only(?!) 50 animations possible!"_s},
                                  {.text = u"Only 36 free text labels possible!"_s}};
  EXPECT_EQ(prompter.boxes, expected);
}

}  // namespace
}  // namespace torvane
