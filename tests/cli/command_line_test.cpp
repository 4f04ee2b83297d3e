#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(CommandLineParser, TakesOptionsInFrontAndBehind) {
  const Result<CommandLine> line = ParseCommandLine(QProcess::splitCommand(
      u"--profile /p --set OutDir=/a=b compose x.tvn --set=TVNLogFile= MM1 -o /out --mode 2 --lang=de --assume no"_s));
  ASSERT_TRUE(line) << line.Error().toStdString();
  EXPECT_EQ(line->command, u"compose"_s);
  EXPECT_EQ(line->arguments, (QStringList{u"x.tvn"_s, u"MM1"_s}));
  EXPECT_EQ(line->profileDir, u"/p"_s);
  EXPECT_EQ(line->overrides, (QList<SettingOverride>{{u"OutDir"_s, u"/a=b"_s}, {u"TVNLogFile"_s, QString()}}));
  EXPECT_EQ(line->output, u"/out"_s);
  EXPECT_EQ(line->mode, 2);
  EXPECT_EQ(line->language, 2000);
  EXPECT_EQ(line->answers, AnswerPolicy::No);
}

TEST(CommandLineParser, RefusesWrongUsageWithAReason) {
  const std::pair<QString, QString> cases[] = {
      {u""_s, u"A command is missing."_s},
      {u"author"_s, u"There is no command \"author\"."_s},
      {u"tree"_s, u"The command is: tree P.tvn"_s},
      {u"save a b c"_s, u"The command is: save P.tvn OUT.tvn"_s},
      {u"tree a --assume maybe"_s, u"--assume takes yes, no, default, not \"maybe\"."_s},
      {u"tree a --colour x"_s, u"There is no option --colour."_s},
      {u"tree a --set"_s, u"--set needs a value."_s},
      {u"tree a --set NoSuchKey=1"_s, u"there is no setting \"NoSuchKey\""_s},
      {u"compose a MM"_s, u"The command compose needs a directory for its pictures: -o DIR"_s},
      {u"chapters a"_s, u"The command chapters needs the frame rate of the film: --fps F"_s},
      {u"chapters a --fps 0"_s, u"--fps takes a number above 0, not \"0\"."_s},
      {u"chapters a --duration=x"_s, u"--duration takes seconds, not \"x\"."_s},
      {u"chapters a --frames=default"_s, u"--frames takes yes, no, not \"default\"."_s},
      {u"save a b -o c"_s, u"The command save takes no -o."_s},
      {u"--mode 1 build a"_s, u"The command build takes no --mode."_s},
      {u"info a --fps 25"_s, u"The command info takes no --fps."_s},
      {u"tree a --frames=yes"_s, u"The command tree takes no --frames."_s},
      {u"compose a MM -o b --at 1,2"_s, u"The command compose takes no --at."_s},
  };
  for (const auto& [line, reason] : cases) {
    EXPECT_EQ(ParseCommandLine(QProcess::splitCommand(line)).Error(), reason);
  }
}

TEST(CommandLineParser, HelpShowsAnExampleOfEachCommand) {
  const QString help = HelpText({});
  for (const QString& command : u"new tree save compile build check compose run analyse chapters palette"_s.split(u' ')) {
    EXPECT_TRUE(help.contains(HelpText(command)));
    EXPECT_TRUE(HelpText(command).contains(u"Example: torvane-cli "));
  }
}

}  // namespace torvane
