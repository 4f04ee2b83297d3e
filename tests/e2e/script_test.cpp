// The example script makes a disc of nothing but media files, with the commands that the README names.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dvd_player.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using Domain = DiscPlace::Domain;

TEST(ScriptTest, MakesADiscWhoseButtonsLeadWhereTheySay) {
  const QTemporaryDir dir;
  const CliResult made = RunProgram(QStringLiteral(TORVANE_SAMPLES_DIR "/make-disc-by-script.sh"), {u"my island"_s},
                                    dir.path(), {u"TORVANE_CLI"_s, QStringLiteral(TORVANE_BIN_DIR "/torvane-cli")});
  ASSERT_TRUE(Succeeded(made));
  EXPECT_THAT(made.Words(), testing::HasSubstr("Findings: none\n"));
  EXPECT_THAT(made.Words(), testing::Not(testing::ContainsRegex("warning|error:")));

  const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(dir.path() + u"/my island/DVD"_s);
  ASSERT_TRUE(player);
  enum { film1 = 1, film2, more };
  ASSERT_EQ(player->Settle().domain, Domain::VmgmMenu) << player->Complaints().join(u'\n').toStdString();
  ASSERT_EQ(player->Buttons().size(), 3U);
  const struct {
    int film;
    int chapters;
    double lastSeconds;  // of the last chapter
  } films[] = {{film1, 3, 24 - 15.6}, {film2, 4, 28 - 21.8}};
  for (const auto& [film, chapters, lastSeconds] : films) {
    SCOPED_TRACE(film);
    ASSERT_EQ(player->Press(film).domain, Domain::TitlesetMenu);
    ASSERT_EQ(int(player->Buttons().size()), chapters + 1);
    EXPECT_EQ(player->Press(chapters), DiscPlace::Chapter(film, chapters));
    const PlayedTitle played = player->PlayToEnd();
    EXPECT_NEAR(played.seconds, lastSeconds, tolerance);
    EXPECT_GT(played.soundBlocks, 10);
    ASSERT_EQ(player->Settle(), DiscPlace::Menu(1));
    ASSERT_EQ(player->Press(film).domain, Domain::TitlesetMenu);
    ASSERT_EQ(player->Press(chapters + 1), DiscPlace::Menu(1));  // back
  }
  ASSERT_EQ(player->Press(more), DiscPlace::Menu(2));
  ASSERT_EQ(player->Buttons().size(), 2U);
  ASSERT_EQ(player->Press(2), DiscPlace::Menu(1));
  ASSERT_EQ(player->Press(more), DiscPlace::Menu(2));
  EXPECT_EQ(player->Press(1).domain, Domain::Stopped);
}

}  // namespace
}  // namespace torvane::test
