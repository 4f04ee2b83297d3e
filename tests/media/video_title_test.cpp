#include "media/video_title.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/action_strings.h"
#include "core/default_project.h"
#include "core/engine.h"
#include "mpeg_pieces.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

class VideoTitleTest : public testing::Test {
 protected:
  VideoTitle Opened(const FilmRecord& film = LongFilm()) {
    VideoTitle title(project_, film, prompter_);
    title.Open();
    return title;
  }

  static void Put(const QString& path, const QByteArray& content) {
    ASSERT_TRUE(HostFiles::WriteAtomically(path, content)) << path.toStdString();
  }

  static QByteArray Video(int width = 720, int height = 576) {
    return Sequence(width, height, 3, 3) + SequenceExtension() + Gop(0, 0, 0, 0) + Pictures(25);
  }

  /// The head of a frame of AC-3 sound, 192 kbit a second.
  static QByteArray Sound(int frequencyCode) { return Bytes({0x0B, 0x77, 0, 0, frequencyCode << 6 | 20}); }

  /// An hour of elementary video of 1000 MB.
  static FilmRecord LongFilm() {
    return {.Name = u"a"_s,
            .VideoFile = u"C:\\a.m2v"_s,
            .SizeMB = 1000,
            .ResH = 720,
            .ResV = 576,
            .FPS = 25,
            .Aspect = u"16:9"_s,
            .Duration = u"01:00:00.00"_s,
            .DurationSec = 3600,
            .MpegVersion = u"2"_s};
  }

  QStringList Told() {
    QStringList texts;
    for (const Box& box : prompter_.boxes) texts << box.text;
    prompter_.boxes.clear();
    return texts;
  }

  DriveC drive_;
  Project project_{FixedSettings()};
  RecordingPrompter prompter_;
};

TEST_F(VideoTitleTest, AFilmOfFilesBecomesARecord) {
  Put(u"C:\\My film.m2v"_s, Video());
  Put(u"C:\\My film.mp2"_s, Bytes({0xFF, 0xFD, 0xA4, 0}));
  Put(u"C:\\My film.ac3"_s, Sound(0));
  Put(u"C:\\de.ac3"_s, Sound(0).leftJustified(3 << 20, '\0'));
  Put(u"C:\\s.srt"_s, "1\n");
  Put(u"C:\\s.sup"_s, "SP");
  Put(u"C:\\marks.txt"_s, "00:00:00.500\n");
  project_.Settings.DefaultSubFormatStr = u"CP1250/20.0/arial.ttf/left/top/1/2/3/4"_s;
  project_.Settings.AnimatedMainMenu = true;
  project_.Settings.AutoChapter = 1;

  const std::optional<FilmRecord> film = NewFilm({.VideoFile = u"C:\\My film.m2v"_s}, project_.Settings, prompter_);
  ASSERT_TRUE(film);
  VideoTitle title(project_, *film, prompter_);
  title.Open(u"C:\\marks.txt"_s);
  EXPECT_EQ(title.AudioInfoLine(1), (Label{u"Info: Bitrate=192  Sampl.Freq=48000  Duration=00:00:00.000  Size=0MB"_s}));
  title.SetAudio(2, u"C:\\de.ac3"_s);
  EXPECT_TRUE(title.SetSubtitle(1, u"C:\\s.srt"_s));
  EXPECT_TRUE(title.SetSubtitle(2, u"C:\\s.sup"_s));
  title.Fields.Languages = {.Audio = {LanguageOfTag(u"EN"), LanguageOfTag(u"DE")},
                            .Subtitle = {0, LanguageOfTag(u"FR")}};
  title.Fields.AudioDelay = u"-120"_s;
  title.Fields.Animated = true;
  title.Fields.AutoStartSubs = true;
  title.SetActions(u"g1=1;"_s, {}, u"1"_s);
  EXPECT_EQ(title.PreActionText() + u' ' + title.PostActionText(), u"g1=1; Default");
  FilmRecord expected = *film;
  expected.Audio = {u"C:\\My film.ac3"_s, u"C:\\de.ac3"_s, QString()};
  expected.AudioDelay = -120;
  expected.SubTitel = {u"C:\\s.srt"_s, u"C:\\s.sup"_s, QString()};
  expected.SubFormatStr = {u"CP1250/20.0/arial.ttf/left/top/1/2/3/4/25/25/720/576"_s,
                           u"ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30/25/25/720/576"_s, QString()};
  expected.AutoStartSubs = true;
  expected.Chapters = u"00:00:00.000,00:00:00.500"_s;
  expected.TotalSize = 3;
  expected.LanguageTags = u"EN,DE,  ,  ,FR,  "_s;
  expected.Animated = 1;
  expected.PreAction = u"g1=1;"_s;
  expected.UOP = u"1"_s;
  const std::optional<FilmRecord> accepted = title.Accept();
  ASSERT_TRUE(accepted);
  EXPECT_EQ(*accepted, expected);
  EXPECT_EQ(Told(), QStringList());

  // Sound that no disc has is refused, whatever its name says.
  Put(u"C:\\plus.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 20, 16 << 3}));
  title.SetAudio(3, u"C:\\plus.ac3"_s);
  EXPECT_FALSE(title.Accept());
  EXPECT_TRUE(Told().value(0).contains(u"plus.ac3 is E-AC3 (Dolby Digital Plus) sound; the sound of a disc is AC3"));
  title.ClearAudio(3);

  // Another video: everything starts over, and a file that is no video changes nothing.
  EXPECT_FALSE(title.SetVideo(u"C:\\s.srt"_s));
  EXPECT_EQ(title.Accept(), accepted);
  const QStringList refused = Told();
  ASSERT_EQ(refused.size(), 2);
  EXPECT_EQ(refused[0], u"No sequenz header found!");
  EXPECT_TRUE(refused[1].contains(u"s.srt is a text; the film of a disc is MPEG-2 video")) << refused[1].toStdString();
  Put(u"C:\\b.m2v"_s, Video(352, 288));
  ASSERT_TRUE(title.SetVideo(u"C:\\b.m2v"_s));
  expected = *NewFilm({.VideoFile = u"C:\\b.m2v"_s}, project_.Settings, prompter_);
  expected.Animated = 2;
  expected.PreAction = u"g1=1;"_s;
  expected.UOP = u"1"_s;
  expected.Chapters = u"00:00:00"_s;
  EXPECT_EQ(title.Accept(), expected);
}

TEST_F(VideoTitleTest, AMultiplexedVideoClosesFields) {
  project_.Settings.AdvancedMode = true;
  FilmRecord film = LongFilm();
  film.VideoFile = u"C:\\v\\T_1.vob"_s;
  film.FilmMux = 0;
  film.ShrinkTo = 500;
  film.AddSubStream = 3;
  film.Audio.front() = u"C:\\x.ac3"_s;
  prompter_ = RecordingPrompter({Answer::No, Answer::Yes});
  VideoTitle title = Opened(film);
  EXPECT_EQ(title.Fields,
            (VideoTitleFields{.VideoName = u"T_1"_s, .AddStreamNumber = u"3"_s, .Chapters = u"00:00:00.000"_s}));
  EXPECT_EQ(title.Labels(), (VideoLabels{.Multiplexed = true,
                                         .FileName = u"T_1"_s,
                                         .Suffix = u".vob"_s,
                                         .Folder = u"C:\\v"_s,
                                         .ResH = {u"720"_s},
                                         .ResV = {u"576"_s},
                                         .FPS = {u"25"_s},
                                         .Aspect = u"16:9"_s,
                                         .MpegVersion = u"2"_s,
                                         .MBSize = u"1,000MB"_s,
                                         .Duration = u"01:00:00.00"_s,
                                         .NavPacks = {u"No"_s, true},
                                         .AddStreamEnabled = true,
                                         .ActionsEnabled = true}));
  EXPECT_EQ(title.TotalSize(), 1000);
  EXPECT_FALSE(title.Accept());
  const std::optional<FilmRecord> accepted = title.Accept();
  ASSERT_TRUE(accepted);
  film.Name = u"T_1"_s;
  film.Audio = {};
  film.ShrinkTo = -1;
  film.TotalSize = 1000;
  EXPECT_EQ(*accepted, film);
  EXPECT_EQ(
      Told().front(),
      u"TVN has not found navigation packets in your mpg file (Mux OK=No). \r\nThis will cause an authoring errror in "
      u"99%\r\n\r\nTo avoid this problem, use elementary streams (demultiplex your input) \r\nor use another "
      u"multiplexer. Continue anyway?");
}

TEST_F(VideoTitleTest, AcceptStopsAtTheFirstFault) {
  Put(u"C:\\44.ac3"_s, Sound(1));
  const QString frequency = u"WARNING: Audio must have 48 kHz sampling frequency!\r\nContinue anyway?"_s;
  const QString resolution =
      u"WARNING: This resolution: 640 x 480 is not compatible with MuxMan!\r\nContinue anyway?"_s;
  const QString rate =
      u"WARNING: The video framerate doesn't fit to the default project settings (NTSC)!\r\nContinue anyway?"_s;
  const QString order = u"Using %1 stream 2 or 3 without %1 stream 1 (or 1 & 3 without 2) is not possible!"_s;
  enum { MuxMan = 1, BadSize = 2, Ntsc = 4 };
  using Change = std::function<void(VideoTitle&)>;
  const auto sound = [](const QString& file) -> Change { return [=](VideoTitle& t) { t.SetAudio(1, file); }; };
  const auto delay = [](const QString& value) -> Change { return [=](VideoTitle& t) { t.Fields.AudioDelay = value; }; };
  const Change secondSubtitle = [](VideoTitle& t) { t.Fields.Subtitle[1] = u"x.srt"_s; };
  const Change firstAndThirdSound = [](VideoTitle& t) { t.Fields.Audio = {u"a.ac3"_s, {}, u"b.ac3"_s}; };
  const Change delayAndSubtitle = [&](VideoTitle& t) { delay(u"-5001"_s)(t), secondSubtitle(t); };
  const Change innerStreams = [](VideoTitle& t) { t.Fields.AddStreamNumber = u"32"_s; };
  const Change soundTakenAway = [&](VideoTitle& t) { sound(u"C:\\no.ac3"_s)(t), t.ClearAudio(1); };
  const struct {
    const char* name;
    int prepared;
    Change change;
    QStringList told;
    bool accepted = false;
  } cases[] = {
      {"nothing", 0, {}, {}, true},
      {"MuxMan takes 720 by 576", MuxMan, {}, {}, true},
      {"only the second subtitle", 0, secondSubtitle, {order.arg(u"Subtitle"_s)}},
      {"the first and third sound", 0, firstAndThirdSound, {order.arg(u"Audio"_s)}},
      {"delay of MuxMan", MuxMan, delay(u"301"_s), {u"Must be smaller than 300!"_s}},
      {"delay of dvdauthor", 0, delay(u"301"_s), {}, true},
      {"delay before subtitles", 0, delayAndSubtitle, {u"Must be greater than -5000!"_s}},
      {"inner streams", 0, innerStreams, {u"Must be smaller than 31!"_s}},
      {"sound of 44.1 kHz", 0, sound(u"C:\\44.ac3"_s), {frequency}, true},
      {"unknown sound", 0, sound(u"C:\\no.ac3"_s), {frequency}, true},
      {"unknown sound taken away", 0, soundTakenAway, {}, true},
      {"resolution of MuxMan", MuxMan | BadSize, {}, {resolution}, true},
      {"all in order", MuxMan | BadSize | Ntsc, sound(u"C:\\44.ac3"_s), {frequency, resolution, rate}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Project project(FixedSettings());
    if (c.prepared & MuxMan) project.Settings.Engine = kEngineMuxMan;
    if (c.prepared & Ntsc) project.Settings.VideoNormPal = false;
    FilmRecord film = LongFilm();
    if (c.prepared & BadSize) film.ResH = 640, film.ResV = 480;
    VideoTitle title(project, film, prompter_);
    title.Open();
    if (c.change) c.change(title);
    EXPECT_EQ(title.Accept().has_value(), c.accepted);
    EXPECT_EQ(Told(), c.told);
    if (c.told.isEmpty() || !c.accepted) continue;
    // Who answers No is asked nothing more; of the frame rate a project warns once.
    prompter_ = RecordingPrompter({Answer::No});
    EXPECT_FALSE(title.Accept());
    EXPECT_EQ(Told(), QStringList(c.told.front()));
    prompter_ = RecordingPrompter();
    EXPECT_TRUE(title.Accept());
    EXPECT_FALSE(Told().contains(rate));
  }
}

TEST_F(VideoTitleTest, SoundIsLookedForOnlyWhereThereIsNone) {
  Put(u"C:\\a.mp2"_s, Bytes({0xFF, 0xFD, 0xA4, 0}));
  Put(u"C:\\A.MPA"_s, Bytes({0xFF, 0xFD, 0xA0, 0}));
  EXPECT_EQ(Opened().Fields.Audio.front(), u"C:\\a.mp2");
  FilmRecord film = LongFilm();
  film.Audio = {u"C:\\gone.ac3"_s, u"A.MPA"_s, QString()};
  VideoTitle stored = Opened(film);
  EXPECT_EQ(stored.AudioInfoLine(1), Label());
  EXPECT_EQ(stored.AudioInfoLine(2),
            (Label{u"Info: Bitrate=192  Sampl.Freq=44100  Duration=00:00:00.000  Size=0MB"_s, true}));
  EXPECT_EQ(stored.Accept()->Audio, (std::array<QString, 3>{u"C:\\gone.ac3"_s, u"C:\\A.MPA"_s, QString()}));
}

TEST_F(VideoTitleTest, ShrinkTargets) {
  VideoTitle title = Opened();
  EXPECT_EQ(title.TotalSize(), 1039);
  title.Fields.Shrink = true;
  EXPECT_FALSE(title.CheckShrink());
  EXPECT_EQ(Told(), QStringList{u"Set a new video size first!"_s});
  EXPECT_FALSE(title.Fields.Shrink);

  const QString low = u"New video size must be greater than 10% of current Video size"_s;
  const QString high = u"New video size must be smaller than current Video size"_s;
  const struct {
    QString size;
    QStringList told;
    QString shown;  // of the size and the factor
    int total;
    bool fits;
  } cases[] = {
      {u"99"_s, {low}, u"99 "_s, 1039, false},
      {u"1000"_s, {high}, u"1000 "_s, 1039, false},
      {u"x"_s, {u"Must be numeric!"_s}, u" "_s, 1039, false},
      {u"inf"_s, {}, u" "_s, 1039, true},
      {u"0"_s, {}, u" "_s, 1039, true},
      {u"100"_s, {}, u"100 10%"_s, 139, true},
      {u"999.6"_s, {high}, u"999.6 10%"_s, 139, false},
      {u"335"_s, {}, u"335 33%"_s, 374, true},
      {u""_s, {}, u" "_s, 1039, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.size.toStdString());
    title.Fields.NewVideoSize = c.size;
    title.Fields.Shrink = true;
    EXPECT_EQ(title.CheckNewVideoSize(), c.fits);
    EXPECT_EQ(Told(), c.told);
    EXPECT_EQ(title.Fields.NewVideoSize + u' ' + title.Fields.Factor, c.shown);
    title.UpdateTotalSize();
    EXPECT_EQ(title.TotalSize(), c.total);
  }
  title.Fields.Factor = u"45.5"_s;
  title.Fields.Shrink = true;
  EXPECT_TRUE(title.CheckFactor() && title.CheckShrink());
  EXPECT_EQ(title.Accept()->ShrinkTo, 455);
  title.Fields.Shrink = false;
  EXPECT_EQ(title.Accept()->ShrinkTo, -1);

  FilmRecord shrunk = LongFilm();
  shrunk.SizeMB = 8000;
  shrunk.ShrinkTo = 4400;
  VideoTitle stored = Opened(shrunk);
  EXPECT_EQ(stored.Fields.NewVideoSize + u' ' + stored.Fields.Factor, u"4,400 55%");
  EXPECT_EQ(stored.Accept()->ShrinkTo, 4400);
  shrunk.MpegVersion = u"1"_s;
  VideoTitle old = Opened(shrunk);
  EXPECT_FALSE(old.Labels().ShrinkEnabled || old.Fields.Shrink);
}

TEST_F(VideoTitleTest, NamesWithSpecialCharacters) {
  const QString change = u"The file/path contains special characters (like ö,ä,ü...), "_s;
  const QString tool = change + u"dvdauthor may not work properly, please change!";
  const struct {
    QString path;
    QString name;  // that the user has chosen before
    QString shown;
    QStringList told;
  } cases[] = {
      {u"C:\\v\\Müll & Co.m2v"_s, u"Müll & Co"_s, u"Mll  Co"_s, {change + u"TvN will use Mll  Co as temp file."}},
      {u"C:\\v\\ü.m2v"_s, u"ü"_s, u"Film1"_s, {change + u"TvN will use Film1 as temp file."}},
      {u"C:\\v\\ü.m2v"_s, u"Mine"_s, u"Mine"_s, {change + u"TvN will use Mine as temp file."}},
      {u"C:\\ü\\a.m2v"_s, u"a"_s, u"a"_s, {tool}},
      {u"C:\\v\\ü.mpg"_s, u"ü"_s, u"ü"_s, {tool}},
      {u"C:\\v\\a.mpg"_s, u"a"_s, u"a"_s, {}},
  };
  for (const auto& c : cases) {
    FilmRecord film = LongFilm();
    film.VideoFile = c.path;
    film.Name = c.name;
    VideoTitle title = Opened(film);
    EXPECT_EQ(title.Fields.VideoName, c.shown);
    EXPECT_EQ(Told(), c.told);
  }
  project_.Settings.Engine = kEngineMuxMan;
  Put(u"C:\\ü.sup"_s, "SP");
  VideoTitle title = Opened();
  EXPECT_TRUE(title.SetSubtitle(1, u"C:\\ü.sup"_s));
  Put(u"C:\\x.sup"_s, "S");
  EXPECT_FALSE(title.SetSubtitle(1, u"C:\\x.sup"_s));
  EXPECT_EQ(title.Fields.Subtitle.front(), u"C:\\ü.sup");
  EXPECT_EQ(Told(), (QStringList{change + u"MuxMan may not work properly, please change!", u"Illegal file"_s}));
}

TEST_F(VideoTitleTest, WarnsOfAnotherFormatInTheSameTitleset) {
  project_.FilmCount = 1;
  project_.ProjectFps = 25;
  project_.ProjectResH = 720;
  project_.ProjectResV = 576;
  project_.ProjectAspect = u"4:3"_s;
  Opened();
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_EQ(prompter_.boxes[0].kind, BoxKind::Error);
  EXPECT_EQ(Told().front(),
            u"Warning: Video properties changed!\r\nOld XRes = 720   New  XRes = 720\r\nOld YRes = 576   New  YRes = "
            u"576\r\nOld FPS =  25   New  FPS =  25\r\nOld AR =   4:3   New  AR =   16:9");
  project_.Settings.NoTitleSets = false;
  Opened();
  EXPECT_EQ(Told(), QStringList());
}

TEST_F(VideoTitleTest, ChaptersComeByThemselvesOrFromTheEditor) {
  struct Host : ChapterEditorHost {
    void RunAndWait(const QString& title, const QString& command) override {
      commands << title + u": " + command;
      Put(u"C:\\O\\a_Celltimes.txt"_s, "0\n250\n");
    }
    QString StoredAutoCropVal() override { return u"16"_s; }
    QStringList commands;
  } host;
  VideoTitle title = Opened();
  EXPECT_FALSE(title.EditChapters(ChapterEditorMode::Interactive, host));
  EXPECT_EQ(Told(), QStringList{u"ChapEditTVN.exe not found in C:\\App !"_s});

  ASSERT_TRUE(HostFiles::MakeDir(u"C:\\App"_s) && HostFiles::MakeDir(u"C:\\O"_s));
  Put(u"C:\\App\\ChapEditTVN.exe"_s, "x");
  project_.Settings.ChapEditMarkOnly = true;
  project_.Settings.AutoCrop = true;
  project_.Settings.AnimatedMainMenu = true;
  EXPECT_TRUE(title.EditChapters(ChapterEditorMode::Interactive, host));
  EXPECT_TRUE(title.EditChapters(ChapterEditorMode::Automatic, host));
  EXPECT_EQ(title.Fields.Chapters, u"00:00:00.000,00:00:10.000");
  EXPECT_EQ(host.commands,
            (QStringList{u"ChapEditTVN: \"C:\\App\\ChapEditTVN.exe\" \"C:\\a.m2v\" /outdir=\"C:\\O\" /Clips=\"10\" "
                         u"/crop=10,8,-10,-8 /markonly"_s,
                         u"ChapEditTVN: \"C:\\App\\ChapEditTVN.exe\" \"C:\\a.m2v\" /outdir=\"C:\\O\" "
                         u"/chapters=\"00:00:00.000,00:00:10.000\" /Clips=\"10\" /auto"_s}));

  project_.Settings.AutoChapter = 2;
  project_.Settings.AutoChapterNum = 3;
  VideoTitle automatic = Opened();
  EXPECT_EQ(automatic.Fields.Chapters, u"00:00:00,00:20:00,00:40:00");
}

TEST_F(VideoTitleTest, PalettesOfFiles) {
  VideoTitle title = Opened();
  Put(u"C:\\good.rgb"_s, QByteArray("FF0000\r\n").repeated(16));
  ASSERT_TRUE(title.ReadPalette(u"C:\\good.rgb"_s));
  const QString good = title.SubColors();
  EXPECT_EQ(good.count(u','), 15);
  Put(u"C:\\odd.pal"_s, QByteArray("0180FF\r\n").repeated(16));
  prompter_ = RecordingPrompter({Answer::Cancel});
  EXPECT_FALSE(title.ReadPalette(u"C:\\odd.pal"_s));
  EXPECT_EQ(title.SubColors(), good);
  EXPECT_FALSE(title.ReadPalette(u"C:\\a.txt"_s));
  EXPECT_EQ(title.SubColors(), QString());
}

}  // namespace
}  // namespace torvane
