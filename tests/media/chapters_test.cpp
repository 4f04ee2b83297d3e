#include "media/chapters.h"

#include <gtest/gtest.h>

#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using enum ChapterFraction;

TEST(NormalizeChapter, ReadsEveryNotation) {
  const struct {
    QString text, expected;
    ChapterFraction before, after;
  } cases[] = {
      {u"1:30"_s, u"00:01:30"_s, Unknown, Unknown},
      {u"1:30."_s, u"00:01:30"_s, Unknown, Unknown},
      {u"1:2:3.4"_s, u"01:02:03.400"_s, Unknown, Unknown},
      {u"01:00:00.123"_s, u"01:00:00.123"_s, MaybeFrames, NoFrames},
      {u"01:00:00.1234567"_s, u"01:00:00.123"_s, Unknown, Unknown},
      {u"00:10:00:12"_s, u"00:10:00.120"_s, Unknown, MaybeFrames},
      {u"00:10:00.25"_s, u"00:10:00.250"_s, Unknown, MaybeFrames},
      {u"00:20:00:40"_s, u"00:20:00.400"_s, MaybeFrames, NoFrames},
      {u"00:20:00:40"_s, u"00:20:00.400"_s, Unknown, Unknown},
      {u"00:10:00:12"_s, u"00:10:00.120"_s, NoFrames, NoFrames},
      {u"00:10:00:123"_s, u"00:10:00.123"_s, Unknown, NoFrames},
      {u"1500"_s, u"00:01:00.000"_s, MaybeFrames, NoFrames},
      {u"0"_s, u"00:00:00.000"_s, Unknown, NoFrames},
      {u"1513.9"_s, u"00:01:00.520"_s, Unknown, NoFrames},
      {u"2160000"_s, u""_s, Unknown, NoFrames},
      {u"25:00:00.12"_s, u""_s, Unknown, MaybeFrames},
      {u"00:60:00"_s, u""_s, Unknown, Unknown},
      {u"90:30"_s, u""_s, Unknown, Unknown},
      {u"1:2:3:4:5"_s, u""_s, Unknown, Unknown},
      {u"::"_s, u""_s, Unknown, Unknown},
      {u"00:00:01:2.5"_s, u""_s, Unknown, NoFrames},
      {u"00:00:01 "_s, u""_s, Unknown, Unknown},
      {u"-1:30"_s, u""_s, Unknown, Unknown},
  };
  for (const auto& [text, expected, before, after] : cases) {
    ChapterFraction fraction = before;
    EXPECT_EQ(NormalizeChapter(text, 25, fraction), expected) << text.toStdString();
    EXPECT_EQ(fraction, after) << text.toStdString();
  }
  ChapterFraction fraction = Unknown;
  EXPECT_EQ(NormalizeChapter(u"2997"_s, 29.97F, fraction), u"00:01:40.000"_s);
}

TEST(ChapterList, IsSortedAndBeginsWithZero) {
  const std::pair<QByteArray, QString> cases[] = {
      {"", u"00:00:00.000"_s},
      {"no chapters\r\n12 frames\r\n", u"00:00:00.000"_s},
      {"0,1500,3000", u"00:00:00.000,00:01:00.000,00:02:00.000"_s},
      {"00:20:00.000\n00:10:00.000\r\nx\r00:00:00", u"00:00:00,00:10:00.000,00:20:00.000"_s},
      {"1:30,bad,2:30\n7\n", u"00:00:00.000,00:01:30,00:02:30"_s},
      {"00:01:00\n00:01:00\n", u"00:00:00.000,00:01:00,00:01:00"_s},
  };
  for (const auto& [content, expected] : cases) {
    test::RecordingPrompter prompter;
    EXPECT_EQ(ParseChapterList(content, 25, prompter), expected) << content.toStdString();
    EXPECT_TRUE(prompter.boxes.empty());
  }
  EXPECT_EQ(ChapterListFromLines(u"0:10.12\r\n\r\n0:05\r\nnever"_s, 25), u"00:00:00.000,00:00:05,00:00:10.120"_s);
}

TEST(ChapterList, AsksWhetherFractionsAreFrames) {
  const QByteArray doubtful = "00:00:10.12\n00:00:20.25\n00:00:30\n00:00:40.5\n";
  test::RecordingPrompter yes({Answer::Yes});
  EXPECT_EQ(ParseChapterList(doubtful, 25, yes), u"00:00:00.000,00:00:10.480,00:00:20.999,00:00:30,00:00:40.999"_s);
  test::RecordingPrompter no({Answer::No});
  EXPECT_EQ(ParseChapterList(doubtful, 25, no), u"00:00:00.000,00:00:10.120,00:00:20.250,00:00:30,00:00:40.500"_s);
  ASSERT_EQ(no.boxes.size(), 1U);
  EXPECT_EQ(no.boxes[0],
            (Box{.kind = BoxKind::Question,
                 .buttons = BoxButtons::YesNo,
                 .text = u"The type of chapters could not be determined doubtlessly\r\nIt could be hh:mm:ss.frames or "
                         u"hh:mm:ss.hundredth!\r\n\r\nIf it is hh:mm:ss.frames, answer 'Yes' to recalculate frames to "
                         u"milliseconds\r\nRecalculate frames?"_s,
                 .preselected = Answer::Yes}));

  // Without a frame rate there is nothing to work with: entries stay as they were, frame numbers are left out.
  test::RecordingPrompter rateless({Answer::Yes});
  EXPECT_EQ(ParseChapterList("00:00:10.00\n1500\n00:00:20.00\n", 0, rateless),
            u"00:00:00.000,00:00:10.000,00:00:20.000"_s);

  test::RecordingPrompter never;
  EXPECT_EQ(ParseChapterList("00:00:10.12\n00:00:20.40\n", 25, never), u"00:00:00.000,00:00:10.120,00:00:20.400"_s);
  EXPECT_TRUE(never.boxes.empty());
}

TEST(ChapterList, IsReadFromTheEditorsFile) {
  const test::DriveC drive;
  const QString file = CelltimesFile(u"C:"_s, u"C:\\v\\My.film.m2v"_s);
  EXPECT_EQ(file, u"C:\\My.film_Celltimes.txt");
  test::RecordingPrompter prompter;
  EXPECT_FALSE(LoadChapterList(file, 25, prompter));
  ASSERT_TRUE(HostFiles::WriteAtomically(file, "0\r\n250\r\n"));
  EXPECT_EQ(*LoadChapterList(file, 25, prompter), u"00:00:00.000,00:00:10.000"_s);
  // Files that begin with a byte order mark.
  const QByteArray marked[] = {"\xEF\xBB\xBF" + QByteArray("1:30\n2:00"),
                               QByteArray(reinterpret_cast<const char*>(u"\uFEFF1:30,2:00"), 20)};
  for (const QByteArray& content : marked) {
    EXPECT_EQ(ParseChapterList(content, 25, prompter), u"00:00:00.000,00:01:30,00:02:00"_s);
  }
}

}  // namespace
}  // namespace torvane
