#include "run/repeat_repair.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(RepairRepeatedLines, DropsWhatTheRuleDrops) {
  const QString line20 = u"nineteen characters\r"_s;   // 20 with its CR
  const QString line21 = u"twenty characters it\r"_s;  // 21
  const QString long1 = u"INFO: frame number 00001\r"_s;
  ASSERT_EQ(line20.size(), 20);
  ASSERT_EQ(line21.size(), 21);
  const struct {
    const char* what;
    QString text, repaired;
  } cases[] = {
      {"no CR", u"same\nsame\nsame\n"_s, u"same\nsame\nsame\n"_s},
      {"empty", u""_s, u""_s},
      {"first line of 20 stays", line20 + line20 + u"end"_s, line20 + line20 + u"end"_s},
      {"first line of 21 is repaired, one character more goes", line21 + line21 + u"\nend"_s, line21 + u"end"_s},
      {"the character more may be a letter", line21 + line21 + u"end"_s, line21 + u"nd"_s},
      {"nothing behind the last repeat", line21 + line21, line21},
      {"what stands between the repeats goes too", long1 + u"other\r"_s + long1 + u"\nend"_s, long1 + u"end"_s},
      {"the case of letters is ignored", long1 + long1.toLower() + u"\nend"_s, long1 + u"end"_s},
      {"a repeat may be the end of a longer line", long1 + u">> "_s + long1 + u"\nx"_s, long1 + u"x"_s},
      {"the last of many repeats counts", long1 + long1 + long1 + long1 + u"\nx"_s, long1 + u"x"_s},
      {"later lines of any length", u"head\r\na\r\na\r\na\r\nb\r\n"_s, u"head\r\na\rb\r\n"_s},
      {"each later line in turn", u"h\rab\rab\r\ncd\rcd\r\nend"_s, u"h\rab\rcd\rend"_s},
      {"the first line is no repeat of a later one", u"h\ra\rh\rb\r"_s, u"h\ra\rh\rb\r"_s},
      {"an empty line repeats at the last CR", u"\r\rfoo\rbar"_s, u"\r\rar"_s},
      {"a last line without CR is no line", u"x\ry\ry"_s, u"x\ry\ry"_s},
      {"blank lines", u"\r\n\r\n\r\n"_s, u"\r\n\r"_s},
  };
  for (const auto& c : cases) EXPECT_EQ(RepairRepeatedLines(c.text), c.repaired) << c.what;
}

TEST(RepeatRepair, ShowsARepeatedPieceOnceUnlessItIsAPrompt) {
  const QString progress = u"INFO: frame number 00001\r"_s;
  const std::pair<QString, std::optional<QString>> steps[] = {
      {u"STAT: 5%\r"_s, u"STAT: 5%\r"_s}, {u"STAT: 5%\r"_s, std::nullopt},
      {u"STAT: 6%\r"_s, u"STAT: 6%\r"_s}, {u"STAT: 5%\r"_s, u"STAT: 5%\r"_s},
      {progress + progress, progress},    {progress, std::nullopt},  // another piece, but it shows the same
      {progress, std::nullopt},           {u"C:\\T>"_s, u"C:\\T>"_s},
      {u"C:\\T>"_s, std::nullopt},        {u"x"_s, u"x"_s},
      {u"C:\\T>"_s, u"C:\\T>"_s},
  };
  RepeatRepair repair;
  for (const auto& [chunk, shown] : steps) EXPECT_EQ(repair.Take(chunk), shown) << chunk.toStdString();
}

}  // namespace
}  // namespace torvane
