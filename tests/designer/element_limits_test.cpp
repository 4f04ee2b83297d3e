#include "designer/element_limits.h"

#include <gtest/gtest.h>

#include "support/menu_builder.h"

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

}  // namespace
}  // namespace torvane
