// The command of the README that a newcomer types first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include "dvd_player.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::HasSubstr;

struct CommandResult {
  int exitCode = -1;
  std::string words;
};

CommandResult MakeDisc(const QStringList& arguments, const QString& directory) {
  QProcess command;
  command.setProcessChannelMode(QProcess::MergedChannels);
  command.setStandardInputFile(QProcess::nullDevice());
  command.setWorkingDirectory(directory);
  command.start(QStringLiteral(TORVANE_SOURCE_DIR "/make-disc"), arguments);
  EXPECT_TRUE(command.waitForFinished(500'000));
  return {command.exitCode(), command.readAll().toStdString()};
}

TEST(MakeDiscTest, MakesTheSampleTwiceInARow) {
  const QTemporaryDir dir;
  for (const char* round : {"first", "second"}) {
    SCOPED_TRACE(round);
    const CommandResult made = MakeDisc({u"--out"_s, u"my disc"_s}, dir.path());
    ASSERT_EQ(made.exitCode, 0) << made.words;
    EXPECT_THAT(made.words, HasSubstr(QString(dir.path() + u"/my disc/DVD/VIDEO_TS"_s).toStdString()));
    EXPECT_THAT(made.words, HasSubstr("  title 1: First_film, 00:00:24.00, 3 chapters: 00:00:00.000 00:00:07.200 "));
    EXPECT_THAT(made.words, HasSubstr("  title 2: Second_film, 00:00:28.00, 4 chapters: 00:00:00.000 00:00:05.040 "));
    EXPECT_THAT(made.words, HasSubstr("  2 menus\n"));
    for (const QString& place : {u"/my disc/DVD"_s, u"/my disc/sample.ISO"_s}) {
      const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(dir.path() + place);
      ASSERT_TRUE(player) << place.toStdString();
      ASSERT_EQ(player->Settle().domain, DiscPlace::Domain::VmgmMenu);
      EXPECT_EQ(player->Press(2), DiscPlace::Chapter(2, 1));
    }
  }
}

TEST(MakeDiscTest, TakesAProjectAndTellsWhatIsWrongWithIt) {
  Workshop workshop;
  workshop.project.SetSetting(u"NOMENUS"_s, u"1"_s);
  ASSERT_EQ(workshop.Run(u"tree"_s).exitCode, 0);
  const CommandResult made = MakeDisc({u"--out=made"_s, u"sample.tvn"_s}, workshop.Dir());
  ASSERT_EQ(made.exitCode, 0) << made.words;
  EXPECT_THAT(made.words, testing::Not(HasSubstr("menus\n")));
  EXPECT_TRUE(QFile::exists(workshop.Dir() + u"/made/DVD/VIDEO_TS/VTS_01_1.VOB"_s));

  workshop.ReplaceMedia(u"film1.m2v"_s, "no film\n");
  const CommandResult failed = MakeDisc({u"--out=made"_s, u"sample.tvn"_s}, workshop.Dir());
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_THAT(failed.words, HasSubstr("film1.m2v unrecogniseable!"));
  EXPECT_THAT(failed.words, HasSubstr("make-disc: the disc was not made\n"));

  EXPECT_EQ(MakeDisc({u"missing.tvn"_s}, workshop.Dir()).exitCode, 1);
  EXPECT_EQ(MakeDisc({u"--fast"_s}, workshop.Dir()).exitCode, 2);
}

}  // namespace
}  // namespace torvane::test
