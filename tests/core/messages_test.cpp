#include "core/messages.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(Messages, PairsReplaceTheirMarksInOrder) {
  EXPECT_EQ(GetMessage(132, {{u"|1", u"36"_s}}), u"Only 36 buttons (and/or videos) possible!"_s);
  EXPECT_EQ(GetMessage(596, {{u"|1", u"X"_s}}), u"X is running. Please close X to return to Torvane"_s);
  EXPECT_EQ(GetMessage(417, {{u"|1", u"a|2"_s}, {u"|2", u"b"_s}}), u"ab not found in b !"_s);
  EXPECT_EQ(GetMessage(417), u"|1 not found in |2 !"_s);
  EXPECT_EQ(GetMessage(51), u"Menu   "_s);
  EXPECT_EQ(GetMessage(865), QString());
}

}  // namespace torvane
