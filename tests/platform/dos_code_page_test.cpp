#include "platform/dos_code_page.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(DosCodePage, SevenLettersBecomeSingleBytesAndTheRestIsUtf8) {
  EXPECT_EQ(ToDosCodePage(u"aäöüÄÖÜßé€z"_s), QByteArray("a\x84\x94\x81\x8E\x99\x9A\xE1\xC3\xA9\xE2\x82\xAC") + "z");
}

TEST(DosCodePage, ReadsBackWhatItWrote) {
  for (const QString& text : {u"plain"_s, u"Über die Straße [1] – 100 %"_s, u"ßäö"_s, u"Größe"_s, u"ß"_s, u"ä"_s,
                              u"éß€ä日本"_s, u"\U0001F600ü"_s}) {
    EXPECT_EQ(FromDosCodePage(ToDosCodePage(text)), text);
  }
}

TEST(DosCodePage, ReadsPlainUtf8AndMarksStrayBytes) {
  EXPECT_EQ(FromDosCodePage("\xC3\xA4\xC3\x9F"), u"äß"_s);
  EXPECT_EQ(FromDosCodePage("a\xFF\xC3"), u"a\uFFFD\uFFFD"_s);
}

}  // namespace torvane
