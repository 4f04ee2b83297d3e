#include "core/messages.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QStringList>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class Messages : public testing::Test {
 protected:
  ~Messages() override { SetLanguage(kEnglish); }

  static QString In(int language, int n) {
    SetLanguage(language);
    return GetMessage(n);
  }
};

/// What a translation must keep: the placeholders, the blanks at both ends, the marks of access keys and the word that
/// makes a batch line a remark.
QString Skeleton(const QString& text) {
  static const QRegularExpression placeholder(u"\\|\\d"_s);
  static const QRegularExpression edges(u"^( *).*?( *)$"_s);
  QStringList marks;
  for (const QRegularExpressionMatch& match : placeholder.globalMatch(text)) marks += match.captured();
  marks.sort();
  const QRegularExpressionMatch blanks = edges.match(text);
  return u"'%1' %2 '%3' &:%4 REM:%5"_s.arg(blanks.captured(1), marks.join(u','), blanks.captured(2))
      .arg(text.count(u'&'))
      .arg(text.startsWith(u"REM "_s));
}

TEST_F(Messages, PairsReplaceTheirMarksInOrder) {
  EXPECT_EQ(GetMessage(132, {{u"|1", u"36"_s}}), u"Only 36 buttons (and/or videos) possible!"_s);
  EXPECT_EQ(GetMessage(596, {{u"|1", u"X"_s}}), u"X is running. Please close X to return to Torvane"_s);
  EXPECT_EQ(GetMessage(417, {{u"|1", u"a|2"_s}, {u"|2", u"b"_s}}), u"ab not found in b !"_s);
  EXPECT_EQ(GetMessage(417, {{u"|2", u"b"_s}, {u"|1", u"a|2"_s}}), u"a|2 not found in b !"_s);
  EXPECT_EQ(GetMessage(417, {{u"", u"x"_s}}), u"|1 not found in |2 !"_s);
  EXPECT_EQ(GetMessage(51), u"Menu   "_s);
  EXPECT_EQ(GetMessage(203), u"Always use Output directory\\temp"_s);
  for (const int unused : {-1, 0, 9, 56, 865, 1010}) EXPECT_EQ(GetMessage(unused), QString());
}

TEST_F(Messages, BothLanguagesSayTheSame) {
  EXPECT_EQ(MessageNumbers(kEnglish).size(), 705);
  EXPECT_EQ(MessageNumbers(kEnglish), MessageNumbers(kGerman));
  for (const int n : MessageNumbers(kEnglish)) {
    const QString german = In(kGerman, n);
    EXPECT_FALSE(german.isEmpty()) << n;
    EXPECT_EQ(Skeleton(german), Skeleton(In(kEnglish, n))) << n << " " << german.toStdString();
  }
}

TEST_F(Messages, TheLanguageIsReadAtEachLookup) {
  EXPECT_EQ(In(kGerman, 12), u"Abbrechen"_s);
  EXPECT_EQ(YesNoText(true), u"Ja"_s);
  EXPECT_EQ(In(kEnglish, 12), u"Cancel"_s);
  EXPECT_EQ(YesNoText(false), u"No"_s);
  EXPECT_EQ(In(77, 12), u"Cancel"_s) << "any other base is English";
}

}  // namespace
}  // namespace torvane
