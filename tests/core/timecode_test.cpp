#include "core/timecode.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(Timecode, WhatUsersWriteBecomesOneForm) {
  const std::pair<QString, QString> cases[] = {
      {u"01:02:03.456"_s, u"01:02:03.456"_s}, {u"1:2:3"_s, u"01:02:03.000"_s},   {u"1:30"_s, u"00:01:30.000"_s},
      {u"1:30.5"_s, u"00:01:30.500"_s},       {u"1:30.05"_s, u"00:01:30.050"_s}, {u"1:30."_s, u"00:01:30.000"_s},
      {u"00:00:01.23456"_s, u"00:00:01.234"_s}, {u"3725.5"_s, u"01:02:05.500"_s}, {u"59.9996"_s, u"00:01:00.000"_s},
      {u"0"_s, u"00:00:00.000"_s},            {u""_s, u"00:00:00:000"_s}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(NormalizeTimecode(text), expected) << text.toStdString();
  for (const QString& bad : {u"1:2:3:4"_s, u"1.5:30"_s, u"1h"_s, u"1!30"_s, u"-5"_s}) {
    EXPECT_EQ(NormalizeTimecode(bad), QString()) << bad.toStdString();
  }
}

TEST(Timecode, ChaptersByCount) {
  EXPECT_EQ(ChapterListByCount(3, 100), u"00:00:00\r\n00:00:33\r\n00:01:06"_s);
  for (const auto& [count, duration] : {std::pair(1, 100), {0, 100}, {100, 9000}, {50, 0}}) {
    EXPECT_EQ(ChapterListByCount(count, duration), u"00:00:00"_s) << count;
  }
  const QStringList dense = ChapterListByCount(50, 30.5).split(u"\r\n"_s);
  EXPECT_EQ(dense.size(), 30);
  EXPECT_EQ(dense.last(), u"00:00:29"_s);
  EXPECT_EQ(ChapterListByCount(99, 99).split(u"\r\n"_s).last(), u"00:01:38"_s);
}

TEST(Timecode, ChaptersByMinutesStayBelowAHundred) {
  EXPECT_EQ(ChapterListByMinutes(10, 1801.5), u"00:00:00\r\n00:10:00\r\n00:20:00\r\n00:30:00"_s);
  EXPECT_EQ(ChapterListByMinutes(10, 1801), u"00:00:00\r\n00:10:00\r\n00:20:00"_s);
  EXPECT_EQ(ChapterListByMinutes(0, 1801), u"00:00:00"_s);
  EXPECT_EQ(ChapterListByMinutes(100, 90000), u"00:00:00"_s);
  EXPECT_EQ(ChapterListByMinutes(5, 0), u"00:00:00"_s);
  const struct {
    int minutes;
    double duration;
    int chapters;
    QString second;
  } cases[] = {
      {1, 99 * 60, 99, u"00:01:00"_s},    // the limit is not touched
      {1, 100 * 60, 50, u"00:02:00"_s},   // 100 chapters would be one too many
      {1, 250 * 60, 84, u"00:03:00"_s},   // Int(250 / 100) + 1
      {1, 99.5 * 60, 50, u"00:02:00"_s},  // the raised number must really give fewer
      {60, 30000, 9, u"01:00:00"_s},
  };
  for (const auto& [minutes, duration, chapters, second] : cases) {
    const QStringList list = ChapterListByMinutes(minutes, duration).split(u"\r\n"_s);
    EXPECT_EQ(list.size(), chapters) << duration;
    EXPECT_EQ(list.value(1), second) << duration;
  }
}

TEST(Timecode, DatesCarryFullSeconds) {
  EXPECT_EQ(FormatDateTimecode(0.5, 3), u"12:00:00.000"_s);
  EXPECT_EQ(FormatDateTimecode(3661.25 / 86400, 3), u"01:01:01.250"_s);
  EXPECT_EQ(FormatDateTimecode(3661.25 / 86400, 2), u"01:01:01.25"_s);
  EXPECT_EQ(FormatDateTimecode(59.9996 / 86400, 3), u"00:01:00.000"_s);
  EXPECT_EQ(FormatDateTimecode(59.996 / 86400, 2), u"00:01:00.00"_s);
  EXPECT_EQ(FormatDateTimecode(-1, 3), u"00:00:00.000"_s);
}

TEST(Timecode, ChapterTimesOfNtscFilmsAreAdjusted) {
  EXPECT_EQ(AdjustChapterTime(u"00:10:00.000"_s), u"00:10:01.202"_s);
  EXPECT_EQ(AdjustChapterTime(u"00:00:00"_s), u"00:00:00.000"_s);
  EXPECT_EQ(AdjustChapterTime(u"00:59:52.809"_s), u"01:00:00.005"_s);
  EXPECT_EQ(AdjustChapterTime(u"soon"_s), u"soon"_s);
  EXPECT_EQ(ConvertChapterList(u"00:00:00.000,00:10:00\r\n\r\nx\n00:20:00.5,"_s),
            u"00:00:00.000,00:10:01.202,00:20:02.905"_s);
}

}  // namespace torvane
