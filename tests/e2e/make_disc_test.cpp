// The command of the README that a newcomer types first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include "dvd_player.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::string_literals;

namespace torvane::test {
namespace {

using testing::HasSubstr;

CliResult MakeDisc(const QStringList& arguments, const QString& directory) {
  return RunProgram(QStringLiteral(TORVANE_SOURCE_DIR "/make-disc"), arguments, directory);
}

TEST(MakeDiscTest, MakesTheSampleTwiceInARow) {
  const QTemporaryDir dir;
  for (const char* round : {"first", "second"}) {
    SCOPED_TRACE(round);
    const CliResult made = MakeDisc({u"--out"_s, u"my disc"_s}, dir.path());
    ASSERT_TRUE(Succeeded(made));
    const QString videoTs = dir.path() + u"/my disc/DVD/VIDEO_TS"_s;
    for (const std::string& words :
         {videoTs.toStdString(), "  title 1: First_film, 00:00:24.00, 3 chapters: 00:00:00.000 00:00:07.200 "s,
          "  title 2: Second_film, 00:00:28.00, 4 chapters: 00:00:00.000 00:00:05.040 "s, "  2 menus\n"s}) {
      EXPECT_THAT(made.Words(), HasSubstr(words));
    }
    for (const QString& place : {u"/my disc/DVD"_s, u"/my disc/SAMPLE.ISO"_s}) {
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
  ASSERT_TRUE(Succeeded(workshop.Run(u"tree"_s)));
  const CliResult made = MakeDisc({u"--out=made"_s, u"sample.tvn"_s}, workshop.Dir());
  ASSERT_TRUE(Succeeded(made));
  EXPECT_THAT(made.Words(), testing::Not(HasSubstr("menus\n")));
  EXPECT_TRUE(QFile::exists(workshop.Dir() + u"/made/DVD/VIDEO_TS/VTS_01_1.VOB"_s));

  workshop.ReplaceMedia(u"film1.m2v"_s, "no film\n");
  const CliResult failed = MakeDisc({u"--out=made"_s, u"sample.tvn"_s}, workshop.Dir());
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_THAT(failed.Words(), HasSubstr("film1.m2v is a text; the film of a disc is MPEG-2 video"));
  EXPECT_THAT(failed.Words(), HasSubstr("make-disc: the disc was not made\n"));

  EXPECT_EQ(MakeDisc({u"missing.tvn"_s}, workshop.Dir()).exitCode, 1);
  EXPECT_EQ(MakeDisc({u"--fast"_s}, workshop.Dir()).exitCode, 2);
  EXPECT_EQ(MakeDisc({u"sample.tvn"_s, u"film2.m2v"_s}, workshop.Dir()).exitCode, 2);
}

TEST(MakeDiscTest, MakesADiscOfFilms) {
  const Workshop workshop(Norm::Ntsc);
  for (const QString& ending : {u"m2v"_s, u"ac3"_s}) {
    ASSERT_TRUE(QDir(workshop.Dir()).rename(u"film1."_s + ending, u"the sea."_s + ending));
  }
  const CliResult made = MakeDisc({u"the sea.m2v"_s, u"film2.m2v"_s, u"--out=made"_s}, workshop.Dir());
  ASSERT_TRUE(Succeeded(made));
  EXPECT_THAT(made.Words(), HasSubstr("  title 2: film2, 00:00:2"));
  EXPECT_THAT(made.Words(), HasSubstr("  1 menu\n"));
  const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(workshop.Dir() + u"/made/THE_SEA.ISO"_s);
  ASSERT_TRUE(player);
  ASSERT_EQ(player->Settle().domain, DiscPlace::Domain::VmgmMenu);
  EXPECT_EQ(player->Press(2), DiscPlace::Chapter(2, 1));

  const CliResult refused = MakeDisc({u"background.png"_s, u"--out=made"_s}, workshop.Dir());
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.Words(), HasSubstr("background.png"));
  EXPECT_THAT(refused.Words(), HasSubstr("make-disc: the disc was not made\n"));
}

}  // namespace
}  // namespace torvane::test
