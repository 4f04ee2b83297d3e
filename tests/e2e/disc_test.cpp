// Authors the sample with the real tools and plays the disc: what a viewer is promised.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <map>

#include "dvd_player.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Pointwise;

/// Buttons of the sample's menus.
constexpr int submenuButton = 3;
constexpr int backButton = 1;

struct AuthoredDisc {
  explicit AuthoredDisc(Norm norm) : workshop(norm), built(workshop.Run(u"build"_s)) {}

  Workshop workshop;
  CliResult built;
};

std::vector<std::array<int, 4>> Rectangles(const std::vector<DiscButton>& buttons) {
  std::vector<std::array<int, 4>> rectangles;
  for (const DiscButton& button : buttons) rectangles.push_back(button.edges);
  return rectangles;
}

/// Each file of VIDEO_TS with its content.
std::map<QString, QByteArray> VideoFiles(const Workshop& workshop) {
  std::map<QString, QByteArray> files;
  const QDir dir(workshop.OutDir() + u"/DVD/VIDEO_TS"_s);
  for (const QString& name : dir.entryList(QDir::Files)) files[name] = ContentOf(dir.filePath(name));
  return files;
}

void ExpectWholeFilm(const PlayedTitle& played, const ProjectText& project) {
  SCOPED_TRACE(testing::Message() << "title " << played.title);
  EXPECT_THAT(played.chapterStarts, Pointwise(testing::DoubleNear(tolerance), project.ChapterStarts(played.title)));
  EXPECT_NEAR(played.seconds, project.Seconds(played.title), tolerance);
  EXPECT_GT(played.videoBlocks, 1000);
  EXPECT_GT(played.soundBlocks, 100);
}

/// The disc of a norm, authored once for all tests of the process.
class DiscTest : public testing::TestWithParam<Norm> {
 protected:
  void SetUp() override {
    std::unique_ptr<AuthoredDisc>& disc = Discs()[GetParam()];
    if (!disc) disc = std::make_unique<AuthoredDisc>(GetParam());
    disc_ = disc.get();
    ASSERT_TRUE(Succeeded(disc_->built));
    player_ = DvdPlayer::Open(Work().OutDir() + u"/DVD"_s);
    ASSERT_TRUE(player_);
    ASSERT_EQ(player_->Settle().domain, DiscPlace::Domain::VmgmMenu) << Complaints();
  }

  static void TearDownTestSuite() { Discs().clear(); }

  static std::map<Norm, std::unique_ptr<AuthoredDisc>>& Discs() {
    static std::map<Norm, std::unique_ptr<AuthoredDisc>> discs;
    return discs;
  }

  const Workshop& Work() const { return disc_->workshop; }
  const CliResult& Built() const { return disc_->built; }
  DvdPlayer& Player() { return *player_; }
  std::string Complaints() const { return player_->Complaints().join(u'\n').toStdString(); }

 private:
  AuthoredDisc* disc_ = nullptr;
  std::unique_ptr<DvdPlayer> player_;
};

TEST_P(DiscTest, TheRunTellsWhatTheToolsToldAndLeavesTheProjectAlone) {
  EXPECT_THAT(Built().output.toStdString(), AllOf(HasSubstr("DVDAuthor::dvdauthor"), HasSubstr("Batchrun finished")));
  EXPECT_THAT(Work().Log().toStdString(), HasSubstr("dvdauthor creating table of contents"));
  EXPECT_THAT(Built().messages.toStdString(), testing::Not(HasSubstr("error:")));
  EXPECT_TRUE(Work().ProjectIsUntouched());
  EXPECT_TRUE(QDir(Work().OutDir() + u"/DVD/AUDIO_TS"_s).exists());
}

TEST_P(DiscTest, StartsInTheMainMenuWithTheButtonsOfTheSpumuxFile) {
  const std::vector<DiscButton> buttons = Player().Buttons();
  EXPECT_EQ(Rectangles(buttons), Work().SpuRectangles(u"MM"_s));
  ASSERT_EQ(buttons.size(), 3u);
  EXPECT_EQ(Player().VideoHeight(), GetParam() == Norm::Pal ? 576 : 480);
  for (int button = 1; button <= 3; ++button) {
    EXPECT_EQ(Player().LitButton(), button);
    EXPECT_TRUE(Player().IsVisibleWhenLit(button));
    Player().PressDown();
  }
}

TEST_P(DiscTest, AFilmButtonPlaysItsFilmToTheEndAndIsLitOnReturn) {
  ASSERT_EQ(Player().TitleCount(), Work().project.FilmCount());
  for (int film = 1; film <= Work().project.FilmCount(); ++film) {
    ASSERT_EQ(Player().Press(film), DiscPlace::Chapter(film, 1)) << Complaints();
    EXPECT_EQ(Player().VideoHeight(), GetParam() == Norm::Pal ? 576 : 480);
    const PlayedTitle played = Player().PlayToEnd();
    EXPECT_EQ(played.title, film);
    ExpectWholeFilm(played, Work().project);
    EXPECT_EQ(played.next, DiscPlace::Menu(1));
    ASSERT_EQ(Player().Settle(), DiscPlace::Menu(1));
    EXPECT_EQ(Player().LitButton(), film);
  }
}

TEST_P(DiscTest, TheSubmenuOpensAndItsBackButtonReturns) {
  ASSERT_EQ(Player().Press(submenuButton).domain, DiscPlace::Domain::VmgmMenu) << Complaints();
  EXPECT_EQ(Rectangles(Player().Buttons()), Work().SpuRectangles(u"MM1"_s));
  ASSERT_EQ(Player().Buttons().size(), 1u);
  EXPECT_EQ(Player().LitButton(), backButton);
  EXPECT_TRUE(Player().IsVisibleWhenLit(backButton));
  ASSERT_EQ(Player().Press(backButton).domain, DiscPlace::Domain::VmgmMenu) << Complaints();
  EXPECT_EQ(Rectangles(Player().Buttons()), Work().SpuRectangles(u"MM"_s));
}

TEST_P(DiscTest, ChaptersCanBeChosenAndTheMenuKeyLeaves) {
  for (int film = 1; film <= Work().project.FilmCount(); ++film) {
    ASSERT_EQ(Player().Press(film), DiscPlace::Chapter(film, 1)) << Complaints();
    const int count = int(Work().project.ChapterStarts(film).size());
    for (int chapter = count; chapter >= 1; --chapter) {
      ASSERT_EQ(Player().GoTo(film, chapter), DiscPlace::Chapter(film, chapter)) << Complaints();
    }
    ASSERT_EQ(Player().PressMenuKey(), DiscPlace::Menu(1)) << Complaints();
    EXPECT_EQ(Player().LitButton(), film);
  }
}

TEST_P(DiscTest, TheImageHoldsTheSameDisc) {
  const std::unique_ptr<DvdPlayer> image = DvdPlayer::Open(Work().IsoFile());
  ASSERT_TRUE(image);
  ASSERT_EQ(image->Settle().domain, DiscPlace::Domain::VmgmMenu);
  EXPECT_EQ(image->Buttons(), Player().Buttons());
  for (int film = 1; film <= Work().project.FilmCount(); ++film) {
    ASSERT_EQ(image->Press(film), DiscPlace::Chapter(film, 1));
    ExpectWholeFilm(image->PlayToEnd(), Work().project);
    ASSERT_EQ(image->Settle(), DiscPlace::Menu(1));
  }
  // The volume name stands in the primary volume descriptor, sector 16. ECMA-119, 8.4.
  QFile file(Work().IsoFile());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly) && file.seek(16 * 2048 + 40));
  EXPECT_EQ(file.read(32).trimmed(), "SAMPLE");
}

TEST_P(DiscTest, ASecondBuildReplacesTheDiscWithTheSame) {
  const std::map<QString, QByteArray> before = VideoFiles(Work());
  Workshop& workshop = Discs()[GetParam()]->workshop;
  const CliResult again = workshop.Run(u"build"_s);
  EXPECT_TRUE(Succeeded(again));
  EXPECT_THAT(again.messages.toStdString(), HasSubstr("question: The VIDEO_TS folder contains files"));
  EXPECT_TRUE(VideoFiles(Work()) == before);

  const CliResult refused = workshop.Run(u"build"_s, {}, u"no"_s);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(VideoFiles(Work()) == before);
}

INSTANTIATE_TEST_SUITE_P(Sample, DiscTest, testing::Values(Norm::Pal, Norm::Ntsc),
                         [](const auto& which) { return which.param == Norm::Pal ? "Pal" : "Ntsc"; });

TEST(WideTest, TheButtonsOfA16To9MenuWorkInBothForms) {
  Workshop workshop;
  workshop.project.SetSetting(u"MRATIO"_s, u"1"_s);
  ASSERT_TRUE(Succeeded(workshop.Run(u"build"_s)));
  const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(workshop.OutDir() + u"/DVD"_s);
  ASSERT_TRUE(player);
  ASSERT_EQ(player->Settle().domain, DiscPlace::Domain::VmgmMenu);
  for (const int group : {0, 1}) {
    SCOPED_TRACE(group == 0 ? "widescreen" : "letterbox");
    const QString file = group == 0 ? u"Spu"_s : u"SpuL"_s;
    ASSERT_EQ(player->ButtonGroups(), 2);
    EXPECT_EQ(Rectangles(player->Buttons(group)), workshop.SpuRectangles(u"MM"_s, file));
    ASSERT_EQ(player->Press(submenuButton, group).domain, DiscPlace::Domain::VmgmMenu);
    EXPECT_EQ(Rectangles(player->Buttons(group)), workshop.SpuRectangles(u"MM1"_s, file));
    ASSERT_EQ(player->Press(backButton, group).domain, DiscPlace::Domain::VmgmMenu);
    for (int film = 1; film <= workshop.project.FilmCount(); ++film) {
      ASSERT_EQ(player->Press(film, group), DiscPlace::Chapter(film, 1));
      player->PlayToEnd();
      ASSERT_EQ(player->Settle(), DiscPlace::Menu(1));
      EXPECT_EQ(player->LitButton(), film);
    }
  }
}

TEST(NoMenusTest, TheDiscPlaysTheFilmsInOrderAndStops) {
  Workshop workshop;
  workshop.project.SetSetting(u"NOMENUS"_s, u"1"_s);
  ASSERT_TRUE(Succeeded(workshop.Run(u"build"_s)));

  const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(workshop.OutDir() + u"/DVD"_s);
  ASSERT_TRUE(player);
  const int films = workshop.project.FilmCount();
  ASSERT_EQ(player->TitleCount(), films);
  for (int film = 1; film <= films; ++film) {
    ASSERT_EQ(player->Settle(), DiscPlace::Chapter(film, 1));
    const PlayedTitle played = player->PlayToEnd();
    ExpectWholeFilm(played, workshop.project);
    EXPECT_EQ(played.next, film < films ? DiscPlace::Chapter(film + 1, 1) : DiscPlace());
  }
}

struct OddNames {
  const char *test, *folder, *out, *temp, *film;
};

class OddNamesTest : public testing::TestWithParam<OddNames> {};

TEST_P(OddNamesTest, MakeTheSameDisc) {
  Workshop plain;
  ASSERT_TRUE(Succeeded(plain.Run(u"build"_s)));

  const auto [test, folder, out, temp, film] = GetParam();
  Workshop odd(Norm::Pal, QString::fromUtf8(folder), QString::fromUtf8(out), QString::fromUtf8(temp));
  const QString name = QString::fromUtf8(film);
  odd.RenameMedia(u"film1.m2v"_s, name + u".m2v"_s, u"FPV1"_s);
  odd.RenameMedia(u"film1.ac3"_s, name + u".ac3"_s, u"FP1A1"_s);
  odd.RenameMedia(u"background.png"_s, name + u".png"_s, u"MMBGPath"_s);
  odd.project.SetValue(u"MM1BGPath"_s, u"C:\\Torvane\\Sample\\"_s + name + u".png"_s);
  odd.project.SetValue(u"FP1"_s, name);
  ASSERT_TRUE(Succeeded(odd.Run(u"build"_s)));

  EXPECT_TRUE(VideoFiles(odd) == VideoFiles(plain));
  EXPECT_TRUE(odd.ProjectIsUntouched());
  EXPECT_TRUE(QFile::exists(odd.IsoFile()));
}

INSTANTIATE_TEST_SUITE_P(Names, OddNamesTest,
                         testing::Values(OddNames{"Umlauts", "Größe Äpfel", "Ausgabe Öl & mehr",
                                                  "Zwischen lager [ü] (1)", "Übung ß [2] (ä)"},
                                         OddNames{"Signs", "50% off; it's", "a,b=c", "x^y ~ {1}", "Tom & Jerry 100%"}),
                         [](const auto& which) { return which.param.test; });

}  // namespace
}  // namespace torvane::test
