#include "media/subtitle_format.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/settings.h"
#include "platform/host_files.h"

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
  const struct {
    SubField field;
    QString value;
    QString error;
  } cases[] = {
      {SubField::LeftMargin, u"2"_s, u"Must be more than 2 Pixel"_s},
      {SubField::LeftMargin, u"3"_s, {}},
      {SubField::LeftMargin, u""_s, u"Must be more than 2 Pixel"_s},
      {SubField::RightMargin, u"720"_s, {}},
      {SubField::RightMargin, u"721"_s, u"Must be less than 720 Pixel"_s},
      {SubField::TopMargin, u"577"_s, u"Must be less than 576 Pixel"_s},
      {SubField::BottomMargin, u"x"_s, u"Must be more than 2 Pixel"_s},
      {SubField::Width, u"1024"_s, {}},
      {SubField::Width, u"1025"_s, u"Must be less than 1024 Pixel"_s},
      {SubField::Height, u"576"_s, {}},
      {SubField::Height, u"600"_s, u"Must be less than 576 Pixel"_s},
      {SubField::FontSize, u"5.9"_s, u"Must be more than 5 Point"_s},
      {SubField::FontSize, u"6"_s, {}},
      {SubField::FontSize, u"100"_s, {}},
      {SubField::FontSize, u"100.5"_s, u"Must be less than 100 Point"_s},
      {SubField::FontFace, u""_s, {}},
  };
  for (const auto& [field, value, error] : cases) {
    SubFormat format(kFormat);
    format[field] = value;
    EXPECT_EQ(SubFieldError(format, field, 576), error) << int(field) << ' ' << value.toStdString();
  }
}

TEST(SubtitleFile, IsKnownByItsFirstBytes) {
  const QTemporaryDir dir;
  const struct {
    QString name;
    QByteArray content;
    bool fits;
  } cases[] = {
      {u"a.sup"_s, "SP\0\0"_ba, true},
      {u"b.SUP"_s, "S", false},
      {u"c.srt"_s, "1\r\n00:00:01"_ba, true},
      {u"d.srt"_s, QByteArray("ab\0\0cd", 6), false},
      {u"e.srt"_s, QByteArray("\0a\0b", 4), true},
      {u"f.srt"_s, "12345678901" + QByteArray(2, '\0'), true},
      {u"g.srt"_s, {}, true},
  };
  for (const auto& [name, content, fits] : cases) {
    const QString path = HostFiles::ToDos(dir.path()) + u'\\' + name;
    ASSERT_TRUE(HostFiles::WriteAtomically(path, content));
    EXPECT_EQ(CheckSubtitleFile(path), fits) << name.toStdString();
  }
  EXPECT_FALSE(CheckSubtitleFile(u"C:\\missing.srt"_s));
}

}  // namespace
}  // namespace torvane
