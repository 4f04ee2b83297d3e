#include "media/subtitle_format.h"

#include <gtest/gtest.h>

#include "core/settings.h"
#include "platform/host_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

const QString kFormat = u"CP1252/28.0/arial.ttf/center/bottom/60/61/30/31/25/23.976/720/576"_s;

TEST(SubtitleFormat, KeepsItsThirteenFields) {
  SubFormat format(kFormat);
  EXPECT_EQ(format[SubField::CharSet], u"CP1252"_s);
  EXPECT_EQ(format[SubField::RightMargin], u"61"_s);
  EXPECT_EQ(format[SubField::Height], u"576"_s);
  EXPECT_EQ(format.Text(), kFormat);
  format[SubField::BottomMargin] = u"40"_s;
  EXPECT_EQ(format.DefaultText(), u"CP1252/28.0/arial.ttf/center/bottom/60/61/30/40"_s);
  EXPECT_EQ(SubFormat(u"a/b"_s).Text(), u"a/b///////////"_s);
  EXPECT_EQ(SubFormat(kFormat + u"/more").Text(), kFormat);
}

TEST(SubtitleFormat, ANewStreamTakesTheFilmsRateAndHeight) {
  EXPECT_EQ(NewSubFormat(Settings().DefaultSubFormatStr, 29.97F, 480),
            u"ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30/29.97/29.97/720/480"_s);
}

TEST(SubtitleFormat, FieldsHaveLimits) {
  const QString margin = u"Must be more than 2 Pixel"_s;
  using enum SubField;
  const std::tuple<SubField, QString, QString> cases[] = {
      {LeftMargin, u"2"_s, margin},
      {LeftMargin, u"3"_s, {}},
      {LeftMargin, u""_s, margin},
      {RightMargin, u"720"_s, {}},
      {RightMargin, u"721"_s, u"Must be less than 720 Pixel"_s},
      {TopMargin, u"577"_s, u"Must be less than 576 Pixel"_s},
      {BottomMargin, u"x"_s, margin},
      {Width, u"1024"_s, {}},
      {Width, u"1025"_s, u"Must be less than 1024 Pixel"_s},
      {Height, u"576"_s, {}},
      {Height, u"600"_s, u"Must be less than 576 Pixel"_s},
      {FontSize, u"5.9"_s, u"Must be more than 5 Point"_s},
      {FontSize, u"6"_s, {}},
      {FontSize, u"100"_s, {}},
      {FontSize, u"100.5"_s, u"Must be less than 100 Point"_s},
      {FontFace, u""_s, {}},
  };
  for (const auto& [field, value, error] : cases) {
    SubFormat format(kFormat);
    format[field] = value;
    EXPECT_EQ(SubFieldError(format, field, 576), error) << int(field) << ' ' << value.toStdString();
  }
}

TEST(SubtitleFile, IsKnownByItsFirstBytes) {
  const test::DriveC drive;
  const std::tuple<QString, QByteArray, bool> cases[] = {
      {u"a.sup"_s, "SP\0\0"_ba, true},
      {u"b.SUP"_s, "S", false},
      {u"c.srt"_s, "1\r\n00:00:01"_ba, true},
      {u"d.srt"_s, QByteArray("ab\0\0cd", 6), false},
      {u"e.srt"_s, QByteArray("\0a\0b", 4), true},
      {u"f.srt"_s, "12345678901" + QByteArray(2, '\0'), true},
      {u"g.srt"_s, {}, true},
  };
  for (const auto& [name, content, fits] : cases) {
    const QString path = u"C:\\" + name;
    ASSERT_TRUE(HostFiles::WriteAtomically(path, content));
    EXPECT_EQ(CheckSubtitleFile(path), fits) << name.toStdString();
  }
  EXPECT_FALSE(CheckSubtitleFile(u"C:\\missing.srt"_s));
}

}  // namespace
}  // namespace torvane
