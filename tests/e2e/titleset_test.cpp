// Authors discs with a titleset for each film: menus of titlesets, chains through all films, and titlesets of sound
// files that play under pictures.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <cmath>

#include "core/play_list.h"
#include "core/project_file.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/element_nodes.h"
#include "dvd_player.h"
#include "platform/host_files.h"
#include "support/edit_bench.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using Domain = DiscPlace::Domain;

/// A project that is made by the program's own editing operations in a workshop's folder.
class TitlesetDisc {
 public:
  /// An intro, if the settings want one, is the first film of the sample.
  explicit TitlesetDisc(const Settings& settings = TitleSetSettings())
      : workshop(settings.VideoNormPal ? Norm::Pal : Norm::Ntsc), bench(WithIntro(settings)) {
    bench.project.Settings.TextButtons = 1;
  }

  QString PathOf(const QString& name) const { return HostFiles::FromUser(workshop.Dir() + u'/' + name); }

  /// A film of one second that needs no preparation.
  void AddShortFilm() {
    const QString file = workshop.Dir() + u"/short.mpg"_s;
    if (!QFile::exists(file)) {
      Ffmpeg(
          u"-f lavfi -i testsrc2=size=352x288:rate=25:duration=1 -f lavfi -i sine=sample_rate=48000:duration=1 "
          u"-target pal-dvd"_s,
          file);
    }
    const int number = bench.project.FilmCount;
    FilmRecord film{.Name = u"short%1"_s.arg(number + 1), .VideoFile = HostFiles::FromUser(file)};
    film.FilmMux = 0;
    ASSERT_TRUE(AddFilm(bench.context, film, {.position = QPoint(20 + number % 6 * 110, 20 + number / 6 * 40)}));
  }

  void AddSampleFilm(int number, const QPoint& position) {
    const QString stem = u"film%1"_s.arg(number);
    const ProjectText& sample = workshop.project;
    FilmRecord film{.Name = stem, .VideoFile = PathOf(stem + u".m2v"), .SizeMB = 10};
    film.FPS = sample.Value(u"FPVFps1"_s).toDouble();
    film.ResH = 720;
    film.ResV = sample.Value(u"FPVResV1"_s).toInt();
    film.Audio[0] = PathOf(stem + u".ac3");
    film.Chapters = sample.Value(u"FPCH%1"_s.arg(number));
    ASSERT_TRUE(AddFilm(bench.context, film, {.position = position}));
  }

  /// Makes a sound file of that many seconds for each track; the ending says of which kind.
  void AddSongs(const std::vector<double>& seconds, const QString& ending, const QString& layoutType,
                const QPoint& position) {
    AudioTitleStore store{.Name = u"Songs"_s, .Titles = {}, .AudioTSLayoutType = layoutType};
    for (std::size_t i = 0; i < seconds.size(); ++i) {
      const QString file = u"track%1."_s.arg(i + 1) + ending;
      MakeSound(workshop.Dir() + u'/' + file, 300 + 50 * int(i), seconds[i]);
      store.Titles.push_back({PathOf(file), u"Artist %1"_s.arg(i + 1), u"The album"_s,
                              QString(u"Song number "_s + QString(5, QChar(u'1' + char16_t(i)))),
                              PathOf(u"background.png"_s), 0});
      trackSeconds.push_back(double(QFileInfo(workshop.Dir() + u'/' + file).size()) * 8 / 192000);
    }
    store.Layout = {.Author = {.Font = {.Size = 24}, .Color = 0xFFFFFF, .XPos = 60, .YPos = 100},
                    .Album = {.Font = {.Size = 20}, .Color = 0xFFFF80, .XPos = 60, .YPos = 250},
                    .Title = {.Font = {.Size = 28, .Bold = true}, .Color = 0x80FFFF, .XPos = 60, .YPos = 400}};
    ASSERT_TRUE(AddAudioTitleSet(bench.context, store, {.position = position}));
  }

  /// Compiles and authors the project, and opens the disc.
  void Build() {
    for (const ProjectNode* root = bench.project.Tree.FirstRoot(); root; root = root->Next()) {
      const QString path = root->Key() + u"BGPath";
      if (bench.project.Tree.Contains(path))
        bench.project.Tree.SetCaption(path, u"Image="_s + PathOf(u"background.png"_s));
    }
    const Result<QByteArray> text = ProjectFileText(bench.project);
    ASSERT_TRUE(text);
    workshop.project = ProjectText(*text);
    const CliResult info = workshop.Run(u"info"_s);
    EXPECT_TRUE(info.output.endsWith("Findings: none\n")) << info.output.toStdString();
    EXPECT_TRUE(Succeeded(workshop.Run(u"check"_s)));
    ASSERT_TRUE(Succeeded(workshop.Run(u"build"_s)));
    player = DvdPlayer::Open(workshop.OutDir() + u"/DVD"_s);
    ASSERT_TRUE(player);
  }

  std::string Complaints() const { return player->Complaints().join(u'\n').toStdString(); }

  Settings WithIntro(Settings settings) const {
    settings.IntroMovie = PathOf(u"film1.m2v"_s);
    settings.IntroAudio = PathOf(u"film1.ac3"_s);
    return settings;
  }

  Workshop workshop;
  EditBench bench;
  std::vector<double> trackSeconds;  ///< as the bit rate tells them
  std::unique_ptr<DvdPlayer> player;
};

/// The first picture of a program stream as the brightness of its pixels.
QImage FirstPicture(const QByteArray& stream) {
  QProcess ffmpeg;
  ffmpeg.startCommand(
      u"ffmpeg -v error -f mpeg -i - -frames:v 1 -f rawvideo -pix_fmt gray -vf scale=in_range=tv:out_range=pc -"_s);
  ffmpeg.write(stream);
  ffmpeg.closeWriteChannel();
  EXPECT_TRUE(ffmpeg.waitForFinished());
  const QByteArray pixels = ffmpeg.readAllStandardOutput();
  return QImage(reinterpret_cast<const uchar*>(pixels.constData()), 720, int(pixels.size() / 720), 720,
                QImage::Format_Grayscale8)
      .copy();
}

/// Mean distance of the brightness of two pictures, 0 to 255.
double Distance(const QImage& a, const QImage& b) {
  if (a.size() != b.size() || a.isNull()) return 255;
  double sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
  }
  return sum / (a.width() * a.height());
}

/// The picture found shows the slide of its track, and not that of another one.
void ExpectSlide(const TitlesetDisc& disc, int film, int track, const QByteArray& stream) {
  const QImage found = FirstPicture(stream);
  const auto slide = [&](int number) {
    return QImage(disc.workshop.TempDir() + u"/FPA%1#%2.png"_s.arg(film).arg(number, 2, 10, QChar(u'0')));
  };
  const double own = Distance(found, slide(track));
  EXPECT_LT(own, 3) << "track " << track;
  for (int other = 1; other <= int(disc.trackSeconds.size()); ++other) {
    if (other == track) continue;
    EXPECT_GT(Distance(found, slide(other)), own * 1.2) << "track " << track << " beside " << other;
  }
}

TEST(TitlesetDiscTest, EveryButtonLeadsWhereItSays) {
  TitlesetDisc disc;
  EditBench& bench = disc.bench;
  bench.project.Settings.PostGoMain = true;
  disc.AddSampleFilm(1, {60, 60});
  disc.AddSampleFilm(2, {60, 120});
  AddPlayListNode(bench.project.Tree, {.Film = 1, .Number = 1, .List = u"02, 01"_s});
  ASSERT_TRUE(AddMenu(bench.context, {.buttonText = u"More"_s}, {.position = QPoint(60, 180)}));
  ASSERT_TRUE(AddPlayAllButton(bench.context, {.position = QPoint(60, 240)}));
  // The first film has a menu of its own with its chapters, and behind it one for its sound.
  for (const int chapter : {1, 2, 3}) {
    ASSERT_TRUE(AddChapterButton(bench.context, chapter, {.menu = u"TS1"_s, .position = QPoint(60, 60 * chapter)}));
  }
  ASSERT_TRUE(AddMenu(bench.context, {.type = u"Audio"_s}, {.menu = u"TS1"_s, .position = QPoint(60, 300)}));
  ASSERT_TRUE(AddFreeButton(bench.context, u"Sound 1"_s, u"audio=0;jump title 1 chapter 2;"_s,
                            {.menu = u"SM1"_s, .position = QPoint(60, 60)}));
  disc.Build();
  DvdPlayer& player = *disc.player;
  ASSERT_EQ(player.TitleCount(), 2);
  enum { film1 = 1, film2, more, playAll };

  ASSERT_EQ(player.Settle().domain, Domain::VmgmMenu) << disc.Complaints();
  EXPECT_EQ(player.Buttons().size(), 4u);
  EXPECT_EQ(player.Press(more).domain, Domain::VmgmMenu);
  EXPECT_EQ(player.Buttons().size(), 1u);
  EXPECT_EQ(player.Press(1).domain, Domain::VmgmMenu);
  ASSERT_EQ(player.Buttons().size(), 4u);

  // A film whose menu holds the Back button alone starts at once and returns to the main menu.
  ASSERT_EQ(player.Press(film2), DiscPlace::Chapter(2, 1)) << disc.Complaints();
  const PlayedTitle second = player.PlayToEnd();
  EXPECT_NEAR(second.seconds, 28, tolerance);
  EXPECT_EQ(second.chapterStarts.size(), 4u);
  ASSERT_EQ(player.Settle(), DiscPlace::Menu(1)) << disc.Complaints();

  // The chapter buttons of the first film's menu, its submenu and the ways back.
  ASSERT_EQ(player.Press(film1).domain, Domain::TitlesetMenu) << disc.Complaints();
  ASSERT_EQ(player.Buttons().size(), 5u);
  for (const int chapter : {1, 2, 3}) {
    ASSERT_EQ(player.Press(chapter), DiscPlace::Chapter(1, chapter)) << disc.Complaints();
    EXPECT_NEAR(player.PlayToEnd().seconds, 24 - disc.workshop.project.ChapterStarts(1)[std::size_t(chapter - 1)],
                tolerance);
    ASSERT_EQ(player.Settle(), DiscPlace::Menu(1)) << disc.Complaints();
    ASSERT_EQ(player.Press(film1).domain, Domain::TitlesetMenu);
  }
  ASSERT_EQ(player.Press(4).domain, Domain::TitlesetMenu);
  ASSERT_EQ(player.Buttons().size(), 2u);
  EXPECT_EQ(player.Press(2).domain, Domain::TitlesetMenu);
  ASSERT_EQ(player.Buttons().size(), 5u);
  ASSERT_EQ(player.Press(4).domain, Domain::TitlesetMenu);
  ASSERT_EQ(player.Press(1), DiscPlace::Chapter(1, 2)) << disc.Complaints();
  player.PlayToEnd();
  ASSERT_EQ(player.Settle(), DiscPlace::Menu(1)) << disc.Complaints();
  ASSERT_EQ(player.Press(film1).domain, Domain::TitlesetMenu);
  ASSERT_EQ(player.Press(5), DiscPlace::Menu(1)) << disc.Complaints();

  // Through all: the first film's menu is shown when one does not start films directly.
  ASSERT_EQ(player.Press(playAll).domain, Domain::TitlesetMenu) << disc.Complaints();
  ASSERT_EQ(player.Press(1), DiscPlace::Chapter(1, 1));
  ASSERT_EQ(player.PlayToEnd().next, DiscPlace::Chapter(2, 1)) << disc.Complaints();
  player.PlayToEnd();
  EXPECT_EQ(player.Settle(), DiscPlace::Menu(1));
}

TEST(TitlesetDiscTest, WithoutMenusTheFilmsFollowEachOther) {
  Settings settings = TitleSetSettings();
  settings.GoNextTitle = true;
  TitlesetDisc disc(settings);
  disc.AddSampleFilm(1, {60, 60});
  disc.AddSampleFilm(2, {60, 120});
  disc.bench.project.Settings.NoMenus = true;
  disc.Build();
  ASSERT_EQ(disc.player->Settle(), DiscPlace::Chapter(1, 1)) << disc.Complaints();
  EXPECT_NEAR(disc.player->PlayToEnd().seconds, 24, tolerance);
  ASSERT_EQ(disc.player->Settle(), DiscPlace::Chapter(2, 1)) << disc.Complaints();
  EXPECT_NEAR(disc.player->PlayToEnd().seconds, 28, tolerance);
  EXPECT_EQ(disc.player->Settle(), DiscPlace());
}

TEST(TitlesetDiscTest, AnIntroComesFirstAndAllFilmsPlayFromOneButton) {
  Settings settings = TitleSetSettings();
  settings.UseIntro = settings.NoShowTitleSetMenu = true;
  settings.PostGoMain = false;
  TitlesetDisc disc(settings);
  disc.AddShortFilm();
  disc.AddShortFilm();
  ASSERT_TRUE(AddPlayAllButton(disc.bench.context, {.position = QPoint(60, 240)}));
  ASSERT_TRUE(AddChapterButton(disc.bench.context, 1, {.menu = u"TS1"_s, .position = QPoint(60, 60)}));
  disc.Build();
  DvdPlayer& player = *disc.player;
  ASSERT_EQ(player.Settle(), DiscPlace::Chapter(3, 1)) << disc.Complaints();
  EXPECT_NEAR(player.PlayToEnd().seconds, 24, tolerance);
  ASSERT_EQ(player.Settle().domain, Domain::VmgmMenu) << disc.Complaints();
  // The menu of the first film is skipped on the way to it, and shown when it has ended.
  ASSERT_EQ(player.Press(1), DiscPlace::Chapter(1, 1));
  player.PlayToEnd();
  ASSERT_EQ(player.Settle().domain, Domain::TitlesetMenu) << disc.Complaints();
  ASSERT_EQ(player.Buttons().size(), 2u);
  ASSERT_EQ(player.Press(2).domain, Domain::VmgmMenu);
  ASSERT_EQ(player.Press(3), DiscPlace::Chapter(1, 1)) << disc.Complaints();
  ASSERT_EQ(player.PlayToEnd().next, DiscPlace::Chapter(2, 1)) << disc.Complaints();
  player.PlayToEnd();
  EXPECT_EQ(player.Settle().domain, Domain::VmgmMenu) << disc.Complaints();
}

TEST(TitlesetDiscTest, AChainThatNeedsASecondJumpPgcPlaysThrough) {
  constexpr int films = 27;
  Settings settings = TitleSetSettings();
  settings.GoNextTitle = true;
  TitlesetDisc disc(settings);
  for (int film = 1; film <= films; ++film) disc.AddShortFilm();
  disc.Build();
  ASSERT_EQ(disc.player->Settle().domain, Domain::VmgmMenu) << disc.Complaints();
  ASSERT_EQ(disc.player->Press(1), DiscPlace::Chapter(1, 1));
  for (int film = 1; film < films; ++film) {
    ASSERT_EQ(disc.player->PlayToEnd().next, DiscPlace::Chapter(film + 1, 1)) << disc.Complaints();
  }
  disc.player->PlayToEnd();
  EXPECT_EQ(disc.player->Settle(), DiscPlace::Menu(1));
}

TEST(TitlesetDiscTest, AnArrowKeyActsAtOnceInASwitchedMenu) {
  constexpr int buttons = 32;  // with the Back button; the four directions fill the rest of 36
  TitlesetDisc disc;
  Project& project = disc.bench.project;
  disc.AddShortFilm();
  disc.AddShortFilm();
  for (int i = 1; i < buttons; ++i) {
    ASSERT_TRUE(AddFreeButton(disc.bench.context, u"x"_s, u"jump title 1;"_s,
                              {.menu = u"TS1"_s, .position = QPoint(20 + i % 8 * 80, 20 + i / 8 * 60)}));
  }
  ASSERT_TRUE(SetAutoAction(
      project, u"TS1"_s, 2,
      AutoActions{u"jump vmgm menu 1;"_s, u"jump title 1;"_s, u"jump vmgm menu 1;"_s, u"jump title 1;"_s}));
  disc.Build();
  DvdPlayer& player = *disc.player;
  player.Settle();
  ASSERT_EQ(player.Press(1).domain, Domain::TitlesetMenu) << disc.Complaints();
  ASSERT_EQ(player.Buttons().size(), std::size_t(buttons) + 4);
  EXPECT_EQ(player.LitButton(), 2);
  player.PressDown();
  EXPECT_EQ(player.Settle(), DiscPlace::Chapter(1, 1)) << disc.Complaints();
}

/// Sound files of a kind, one title or one a track.
struct Songs {
  const char* ending;
  const char* layoutType;
  bool ntscWide;
};

class SongsTest : public testing::TestWithParam<Songs> {};

TEST_P(SongsTest, PlayThroughUnderTheirSlides) {
  const auto [ending, layoutType, ntscWide] = GetParam();
  const double oneFrame = ntscWide ? 1001.0 / 30000 : 1.0 / 25;
  const bool oneTitle = layoutType == std::string("1");
  Settings settings = TitleSetSettings();
  settings.PostGoMain = true;
  if (ntscWide) {
    settings.VideoNormPal = false;
    settings.VideoHeight = 480;
    settings.DefMenuRatio = true;
  }
  TitlesetDisc disc(settings);
  disc.AddSampleFilm(1, {60, 60});
  disc.AddSongs({4, 2.72, 6.6, 3.344, 5}, QString::fromLatin1(ending), QString::fromLatin1(layoutType), {60, 120});
  for (const int track : {1, 4}) {
    ASSERT_TRUE(AddChapterButton(disc.bench.context, track, {.menu = u"TS2"_s, .position = QPoint(60, 60 * track)}));
  }
  disc.Build();
  DvdPlayer& player = *disc.player;
  constexpr int tracks = 5;
  ASSERT_EQ(player.TitleCount(), oneTitle ? 2 : 1 + tracks);
  ASSERT_EQ(player.Settle().domain, Domain::VmgmMenu) << disc.Complaints();
  ASSERT_EQ(player.Press(2).domain, Domain::TitlesetMenu) << disc.Complaints();
  ASSERT_EQ(player.Press(2), oneTitle ? DiscPlace::Chapter(2, 4) : DiscPlace::Chapter(5, 1)) << disc.Complaints();
  ASSERT_EQ(player.GoTo(2, 1), DiscPlace::Chapter(2, 1));

  if (oneTitle) {
    const PlayedTitle played = player.PlayToEnd();
    const std::vector<double> announced = player.ChapterEnds(2);
    ASSERT_EQ(played.chapterStarts.size(), std::size_t(tracks));
    ASSERT_EQ(announced.size(), std::size_t(tracks));
    double start = 0;
    for (int track = 1; track <= tracks; ++track) {
      EXPECT_NEAR(played.chapterStarts[std::size_t(track - 1)], start, oneFrame) << "track " << track;
      const double length = disc.trackSeconds[std::size_t(track - 1)];
      const double announcedStart = track == 1 ? 0 : announced[std::size_t(track - 2)];
      EXPECT_NEAR(announced[std::size_t(track - 1)] - announcedStart, length, oneFrame) << "track " << track;
      start += length;
      ExpectSlide(disc, 2, track, played.chapterVideo[std::size_t(track - 1)]);
    }
    EXPECT_NEAR(played.seconds, start, oneFrame);
    EXPECT_GT(played.soundBlocks, 100);
  } else {
    for (int track = 1; track <= tracks; ++track) {
      ASSERT_EQ(player.Place(), DiscPlace::Chapter(1 + track, 1)) << disc.Complaints();
      const PlayedTitle played = player.PlayToEnd();
      EXPECT_NEAR(played.seconds, disc.trackSeconds[std::size_t(track - 1)], oneFrame) << "track " << track;
      EXPECT_GT(played.soundBlocks, 20);
      ExpectSlide(disc, 2, track, played.chapterVideo[0]);
      player.Settle();
    }
  }
  EXPECT_EQ(player.Settle(), DiscPlace::Menu(1)) << disc.Complaints();
}

INSTANTIATE_TEST_SUITE_P(Kinds, SongsTest,
                         testing::Values(Songs{"ac3", "1", false}, Songs{"mp2", "1", false}, Songs{"ac3", "0", false},
                                         Songs{"mp2", "0", true}, Songs{"ac3", "1", true}),
                         [](const auto& which) {
                           const Songs& songs = which.param;
                           return std::string(songs.ending) + (songs.layoutType[0] == '1' ? "Chapters" : "Titles") +
                                  (songs.ntscWide ? "NtscWide" : "");
                         });

}  // namespace
}  // namespace torvane::test
