#include "core/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(Text, ValReadsTheNumberAtTheStart) {
  const std::pair<QString, double> cases[] = {
      {u""_s, 0},     {u"12"_s, 12},   {u"  12 3"_s, 12}, {u"-12.50x"_s, -12.5}, {u"+7"_s, 7},        {u".5"_s, 0.5},
      {u"5."_s, 5},   {u"1.2.3"_s, 1.2}, {u"1,5"_s, 1},   {u"1e3"_s, 1},         {u"."_s, 0},         {u"-"_s, 0},
      {u"- 5"_s, 0},  {u"--5"_s, 0},   {u"&H10"_s, 0},    {u"\t5"_s, 0},         {u"٣"_s, 0},         {u"007"_s, 7},
      {QString(400, u'9'), std::numeric_limits<double>::max()}, {u"0."_s + QString(400, u'0') + u'1', 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text.toStdString();
}

TEST(Text, IntegersRoundHalvesToEvenAndStayWithin32Bits) {
  const std::pair<QString, int> cases[] = {
      {u"0.5"_s, 0},      {u"1.5"_s, 2},      {u"2.5"_s, 2},  {u"-0.5"_s, 0},
      {u"-1.5"_s, -2},    {u"2.500001"_s, 3}, {u"0.49999999999999994"_s, 0},
      {u"2147483647.9"_s, 2147483647}, {u"99999999999"_s, 2147483647}, {u"-99999999999"_s, -2147483648}};
  for (const auto& [text, value] : cases) EXPECT_EQ(ValToInt(text), value) << text.toStdString();
  EXPECT_EQ(RoundToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(Text, NumbersAreWrittenAsShortAsTheyReadBack) {
  const std::pair<QString, QString> cases[] = {
      {FormatNumberDot(29.97), u"29.97"_s},  {FormatNumberDot(29.97F), u"29.97"_s},
      {FormatNumberDot(100.0), u"100"_s},    {FormatNumberDot(-0.0), u"0"_s},
      {FormatNumberDot(1e7), u"10000000"_s}, {FormatNumberDot(0.000001), u"0.000001"_s},
      {FormatNumberDot(-2.5), u"-2.5"_s},    {FormatNumberDot(0.1 + 0.2), u"0.30000000000000004"_s}};
  for (const auto& [written, expected] : cases) EXPECT_EQ(written, expected);
}

TEST(Text, FieldsCountFromOneAndFromZero) {
  EXPECT_EQ(GetField(u"128;5.5;-6;0;"_s, 1), 128);
  EXPECT_EQ(OutlineField(u"128;5.5;-6;0;"_s, 1), 5.5);
  EXPECT_EQ(OutlineField(u"128;5.5;-6;0;"_s, 2), -6);
  EXPECT_EQ(GetField(u"128;5.5"_s, 4), 0);
  EXPECT_EQ(GetField(u"128"_s, 0), 0);
}

TEST(Text, CropValues) {
  for (const QString& good : {u"20"_s, u"-9999"_s, u"9999"_s, u"0"_s, u"16,8,-16,-8"_s, u"0,0,0,0"_s}) {
    EXPECT_TRUE(ValidCropValue(good)) << good.toStdString();
  }
  for (const QString& bad :
       {u""_s, u"-"_s, u"10000"_s, u"+5"_s, u" 5"_s, u"5.0"_s, u"1,2"_s, u"16,8,16,-8"_s, u"-1,8,-16,-8"_s,
        u"16,8,-16,-8,"_s, u"16, 8,-16,-8"_s, u"16,8,-16,-10000"_s, u"x"_s, u",,,"_s, u"99999999999999999999"_s}) {
    EXPECT_FALSE(ValidCropValue(bad)) << bad.toStdString();
  }
}

TEST(Text, LabelTextKeepsAmpersandsAndBlanksBeforeLineBreaks) {
  const QString stored = u"A & B \r\nC  \r\n&&D "_s;
  EXPECT_EQ(EscapeLabelText(stored), u"A && B  \r\nC   \r\n&&&&D "_s);
  EXPECT_EQ(UnescapeLabelText(EscapeLabelText(stored)), stored);
}

TEST(Text, OnlyBareLineFeedsAreNormalized) {
  EXPECT_EQ(NormalizeLineBreaks(u"a\nb\n"_s), u"a\r\nb\r\n"_s);
  EXPECT_EQ(NormalizeLineBreaks(u"a\r\nb\nc"_s), u"a\r\nb\nc"_s);
  EXPECT_EQ(NormalizeLineBreaks(u"a\rb"_s), u"a\rb"_s);
}

TEST(Text, SpecialCharacters) {
  EXPECT_TRUE(HasSpecialCharacters(u"C:\\Größe"));
  EXPECT_TRUE(HasSpecialCharacters(u"C:\\A&B"));
  EXPECT_FALSE(HasSpecialCharacters(u"C:\\a (1) [x]\x7F"));
  EXPECT_FALSE(HasSpecialCharacters(u""));
  EXPECT_EQ(StripSpecialChars(u"Über \t& (1)_x\x7F.ö"_s), u"ber  (1)_x\x7F.");
}

TEST(Text, Colors) {
  EXPECT_EQ(ColorToRGBString(0xC08001), u"1,128,192"_s);
  EXPECT_EQ(ColorToRGBString(-1), u"255,255,255"_s);
  EXPECT_EQ(RGBStringToColor(u"Color=1,128,192"), 0xC08001);
  EXPECT_EQ(RGBStringToColor(u"FillColor=300,-5"), 255);
  EXPECT_EQ(RGBStringToColor(u"1,2,3"), 0x030201);
  EXPECT_EQ(MakeARGB(0xC08001, 150), 0x960180C0U);
  EXPECT_EQ(RGBStringToHex(u"Color=1,128,192"), u"0180C0"_s);
}

TEST(Text, PathsAreTakenApart) {
  const struct {
    QString path;
    PathParts parts;
    QString extension;
  } cases[] = {
      {u"C:\\a.b\\film.1.Mpg"_s, {u"C:\\a.b"_s, u"film.1"_s, u".Mpg"_s}, u"MPG"_s},
      {u"C:\\a.b\\film"_s, {u"C:\\a.b"_s, u"film"_s, u""_s}, u""_s},
      {u"film.vob"_s, {u""_s, u"film"_s, u".vob"_s}, u"VOB"_s},
      {u"film."_s, {u""_s, u"film"_s, u"."_s}, u""_s},
      {u"C:\\"_s, {u"C:"_s, u""_s, u""_s}, u""_s},
      {u""_s, {u""_s, u""_s, u""_s}, u""_s},
  };
  for (const auto& [path, parts, extension] : cases) {
    EXPECT_EQ(SplitPath(path), parts) << path.toStdString();
    EXPECT_EQ(SplitFileName(path), (FileNameParts{parts.name, parts.ext})) << path.toStdString();
    EXPECT_EQ(GetExtensionUpper(path), extension) << path.toStdString();
  }
}

}  // namespace torvane
