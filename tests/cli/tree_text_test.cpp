#include "cli/tree_text.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(TreeText, PrintsEachNodeOnOneLine) {
  ProjectTree tree;
  tree.Add({.Key = u"a"_s, .Caption = u"x\\y\r\n\tz"_s, .Tag = u"1"_s, .Image = kHeadNode});
  tree.Add({.Key = u"b"_s, .Caption = u"B"_s}, u"a"_s, Relation::Child);
  tree.Add({.Key = u"c"_s, .Caption = u""_s}, u"b"_s, Relation::Child);
  tree.Add({.Key = u"d"_s, .Caption = u"D"_s});
  tree.Add({.Key = u"e"_s, .Caption = u"E"_s}, u"d"_s, Relation::Child);
  EXPECT_EQ(TreeText(tree), u"0\ta\t7\t1\tx\\\\y\\r\\n\\tz\n1\tb\t1\t\tB\n2\tc\t1\t\t\n0\td\t1\t\tD\n1\te\t1\t\tE\n"_s);
}

}  // namespace torvane
