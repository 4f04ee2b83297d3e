#include "cli/command_line.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(CommandLineParser, TakesOptionsInFrontAndBehind) {
  const Result<CommandLine> line =
      ParseCommandLine({u"--profile"_s, u"/p"_s, u"--set"_s, u"OutDir=/a=b"_s, u"compose"_s, u"x.tvn"_s, u"--set=ISO_Name="_s,
                        u"MM1"_s, u"-o"_s, u"/out"_s, u"--mode"_s, u"2"_s, u"--lang=de"_s, u"--assume"_s, u"no"_s});
  ASSERT_TRUE(line) << line.Error().toStdString();
  EXPECT_EQ(line->command, u"compose"_s);
  EXPECT_EQ(line->arguments, (QStringList{u"x.tvn"_s, u"MM1"_s}));
  EXPECT_EQ(line->profileDir, u"/p"_s);
  EXPECT_EQ(line->overrides, (QList<SettingOverride>{{u"OutDir"_s, u"/a=b"_s}, {u"ISO_Name"_s, QString()}}));
  EXPECT_EQ(line->output, u"/out"_s);
  EXPECT_EQ(line->mode, 2);
  EXPECT_EQ(line->language, 2000);
  EXPECT_EQ(line->answers, AnswerPolicy::No);
}

TEST(CommandLineParser, RefusesWrongUsageWithAReason) {
  const std::pair<QStringList, QString> cases[] = {
      {{}, u"A command is missing."_s},
      {{u"author"_s}, u"There is no command \"author\"."_s},
      {{u"tree"_s}, u"The command is: tree P.tvn"_s},
      {{u"save"_s, u"a"_s, u"b"_s, u"c"_s}, u"The command is: save P.tvn OUT.tvn"_s},
      {{u"tree"_s, u"a"_s, u"--assume"_s, u"maybe"_s}, u"--assume takes yes, no, default, not \"maybe\"."_s},
      {{u"tree"_s, u"a"_s, u"--colour"_s, u"x"_s}, u"There is no option --colour."_s},
      {{u"tree"_s, u"a"_s, u"--set"_s}, u"--set needs a value."_s},
      {{u"compose"_s, u"a"_s, u"MM"_s}, u"The command compose needs a directory for its pictures: -o DIR"_s},
      {{u"chapters"_s, u"a"_s}, u"The command chapters needs the frame rate of the film: --fps F"_s},
      {{u"chapters"_s, u"a"_s, u"--fps"_s, u"0"_s}, u"--fps takes a number above 0, not \"0\"."_s},
      {{u"chapters"_s, u"a"_s, u"--duration=x"_s}, u"--duration takes seconds, not \"x\"."_s},
      {{u"chapters"_s, u"a"_s, u"--frames=default"_s}, u"--frames takes yes, no, not \"default\"."_s},
  };
  for (const auto& [arguments, reason] : cases) {
    const Result<CommandLine> line = ParseCommandLine(arguments);
    EXPECT_FALSE(line);
    EXPECT_EQ(line.Error(), reason);
  }
  EXPECT_FALSE(ParseCommandLine({u"tree"_s, u"a"_s, u"--set"_s, u"NoSuchKey=1"_s}));
}

TEST(CommandLineParser, HelpShowsAnExampleOfEachCommand) {
  const QString help = HelpText({});
  for (const QString& command : {u"new"_s, u"tree"_s, u"save"_s, u"compile"_s, u"build"_s, u"check"_s, u"compose"_s, u"run"_s,
                                 u"analyse"_s, u"chapters"_s, u"palette"_s}) {
    EXPECT_TRUE(help.contains(HelpText(command)));
    EXPECT_TRUE(HelpText(command).contains(u"Example: torvane-cli "));
  }
}

}  // namespace torvane
