#include "cli/film_commands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "cli/commands.h"
#include "core/project_file.h"
#include "media/mpeg_pieces.h"
#include "media/palette.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"
#include "support/tree_dump.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

/// A new project "C:\p.tvn" and media files beside it.
class FilmCommandsTest : public testing::Test {
 protected:
  FilmCommandsTest() {
    qputenv("TORVANE_DRIVE_C", dir_.path().toUtf8());
    for (const QString& name : {u"O"_s, u"T"_s, u"s"_s}) QDir(dir_.path()).mkdir(name);
    const QByteArray video = Sequence(720, 576, 3, 3) + SequenceExtension() + Gop(0, 0, 0, 0) + Pictures(25);
    Put(u"a.m2v"_s, video);
    Put(u"wide.m2v"_s, Sequence(640, 480, 3, 4) + SequenceExtension() + Gop(0, 0, 0, 0) + Pictures(25));
    Put(u"m.mpg"_s, Pack(0) + VideoPacket() + video);
    Put(u"a.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 20}));
    Put(u"44.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 0x40 | 20}));
    Put(u"A - B - 07 - C.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 20}));
    Put(u"b.mp2"_s, Bytes({0xFF, 0xFD, 0xA4, 0}));
    Put(u"s.srt"_s, "1\n");
    Put(u"s.sup"_s, "SP");
    Put(u"marks.txt"_s, "0\n25\n");
    Put(u"x.rgb"_s, QByteArray("FF0000\n").repeated(16));
  }
  ~FilmCommandsTest() override { qunsetenv("TORVANE_DRIVE_C"); }

  static void Put(const QString& name, const QByteArray& content) {
    EXPECT_TRUE(HostFiles::WriteAtomically(u"C:\\" + name, content));
  }

  /// Runs a command on a new project that is made with the settings.
  int RunOnNew(const QStringList& arguments, const QStringList& settings = {}) {
    EXPECT_EQ(Run({u"new"_s, u"C:\\p.tvn"_s}, settings), kExitDone) << error_.toStdString();
    return Run(arguments);
  }

  int Run(const QStringList& arguments, const QStringList& settings = {}) {
    QStringList line{u"--profile"_s, u"C:\\s"_s};
    for (const QString& setting : QStringList{u"OutDir=C:\\O"_s, u"TempDir=C:\\T"_s} + settings)
      line << u"--set"_s << setting;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = RunCli(line + arguments);
    testing::internal::GetCapturedStdout();
    error_ = QString::fromStdString(testing::internal::GetCapturedStderr()).remove(u'\r');
    return code;
  }

  /// The film's subtree in the saved project, a caption a line.
  static QString Film(const QString& file, const QString& key) {
    RecordingPrompter prompter;
    Project project(FixedSettings());
    EXPECT_TRUE(LoadProject(project, file, prompter));
    QStringList captions;
    for (const QString& line : DumpTree(project.Tree, key).split(u'\n', Qt::SkipEmptyParts)) {
      captions << line.section(u'|', 1, 1);
    }
    return captions.join(u'\n');
  }

  QTemporaryDir dir_;
  QString error_;
};

TEST_F(FilmCommandsTest, AddTitleTakesEverythingOfAFilm) {
  ASSERT_EQ(RunOnNew({u"add-title"_s,      u"C:\\p.tvn"_s,    u"C:\\a.m2v"_s,
                      u"--audio"_s,        u"C:\\a.ac3"_s,    u"--audio=C:\\b.mp2"_s,
                      u"--sub"_s,          u"C:\\s.srt"_s,    u"--sub"_s,
                      u"C:\\s.sup"_s,      u"--sub-format"_s, u"CP1250/20.0/arial.ttf/left/top/10/10/10/10"_s,
                      u"--languages"_s,    u"en,de,,,fr"_s,   u"--palette"_s,
                      u"C:\\x.rgb"_s,      u"--start-sub"_s,  u"--chapters"_s,
                      u"0:00.8,0:00.25"_s, u"--name"_s,       u"The_sea"_s,
                      u"--delay"_s,        u"-40"_s,          u"--pre"_s,
                      u"g1=1;"_s,          u"--post"_s,       u"exit;"_s,
                      u"--at"_s,           u"40,50"_s,        u"-o"_s,
                      u"C:\\o.tvn"_s},
                     {u"AdvancedMode=1"_s}),
            kExitDone)
      << error_.toStdString();
  EXPECT_EQ(Film(u"C:\\o.tvn"_s, u"F1"_s).toStdString(), QString(uR"(Film1
Name=The_sea
Video=C:\a.m2v
Size(MB)=0
ResH=720
ResV=576
FPS=25
Aspect=16:9
Duration=00:00:01.00
Audio1=C:\a.ac3
Audio2=C:\b.mp2
AudioDelay=-40
SubColors=)"_s + PaletteList(QList<int>(16, RgbToPalette(255, 0, 0))) +
                                                                 uR"(
SubTitel1=C:\s.srt
SubFormatStr1=CP1250/20.0/arial.ttf/left/top/10/10/10/10/25/25/720/576
SubTitel2=C:\s.sup
SubFormatStr2=ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30/25/25/720/576
Chapters=00:00:00.000,00:00:00.250,00:00:00.800
TotalSize(MB)=0
LanguageTags=EN,DE,  ,  ,FR,  
Mux=1
Animated=0
Pre Action=g1=1;
Post Action=exit;)"_s)
                                                             .toStdString());
  EXPECT_EQ(Film(u"C:\\o.tvn"_s, u"MMB1Text"_s) + Film(u"C:\\o.tvn"_s, u"MMBP1Left"_s), u"Text=The seaLeft=40");
}

TEST_F(FilmCommandsTest, EditTitleChangesWhatItsOptionsName) {
  ASSERT_EQ(RunOnNew({u"add-title"_s, u"C:\\p.tvn"_s, u"C:\\a.m2v"_s, u"--sub"_s, u"C:\\s.srt"_s, u"--palette"_s,
                      u"C:\\x.rgb"_s, u"--start-sub"_s, u"--languages=EN,,,DE"_s, u"--delay=7"_s, u"--post=exit;"_s},
                     {u"AdvancedMode=1"_s}),
            kExitDone);
  const QString whole = Film(u"C:\\p.tvn"_s, u"F1"_s);
  const QStringList edit{u"edit-title"_s, u"C:\\p.tvn"_s, u"1"_s};
  EXPECT_EQ(Run(edit), kExitDone);
  EXPECT_EQ(Film(u"C:\\p.tvn"_s, u"F1"_s).toStdString(), whole.toStdString());
  EXPECT_EQ(Run(edit + QStringList{u"--audio"_s, u"C:\\a.ac3"_s, u"--audio="_s, u"--palette="_s, u"--sub="_s,
                                   u"--sub"_s, u"C:\\s.sup"_s}),
            kExitFailed);
  EXPECT_EQ(error_,
            u"info: Using Subtitle stream 2 or 3 without Subtitle stream 1 (or 1 & 3 without 2) is not possible!\n");
  EXPECT_EQ(Film(u"C:\\p.tvn"_s, u"F1"_s).toStdString(), whole.toStdString());
  ASSERT_EQ(Run(edit + QStringList{u"--sub="_s, u"--palette="_s, u"--pre=g1=1;"_s, u"--name"_s, u"b"_s}), kExitDone)
      << error_.toStdString();
  EXPECT_EQ(Film(u"C:\\p.tvn"_s, u"FP1"_s).section(u'\n', 8).toStdString(), R"(Audio1=C:\a.ac3
AudioDelay=7
Chapters=00:00:00.000
TotalSize(MB)=0
LanguageTags=EN,  ,  ,  ,  ,  
Mux=1
Animated=0
Pre Action=g1=1;
Post Action=exit;)");
  EXPECT_EQ(Run(edit + QStringList{u"--video"_s, u"C:\\wide.m2v"_s, u"--assume"_s, u"yes"_s}), kExitDone);
  EXPECT_EQ(Film(u"C:\\p.tvn"_s, u"FP1"_s).left(22).toStdString(), "Name=wide\nVideo=C:\\wid");
  EXPECT_EQ(Run({u"edit-title"_s, u"C:\\p.tvn"_s, u"2"_s}), kExitFailed);
  EXPECT_EQ(error_, u"error: The project has no film 2.\n");
}

TEST_F(FilmCommandsTest, AddTitleTellsWhatItsChecksFind) {
  struct Case {
    QStringList arguments;  // behind the project
    QStringList settings;
    int code;
    QString error;
  };
  const QString resolution =
      u"question: WARNING: This resolution: 640 x 480 is not compatible with MuxMan!\nContinue anyway? "_s;
  const QString rate =
      u"question: WARNING: The video framerate doesn't fit to the default project settings (PAL)!\nContinue anyway? "_s;
  const Case cases[] = {
      {{u"C:\\a.m2v"_s}, {}, kExitDone, {}},
      {{u"C:\\a.m2v"_s, u"--audio"_s, u"C:\\44.ac3"_s},
       {},
       kExitDone,
       u"question: WARNING: Audio must have 48 kHz sampling frequency!\nContinue anyway? [Yes]\n"_s},
      {{u"C:\\wide.m2v"_s}, {u"Engine=1"_s}, kExitDone, QString(resolution + u"[Yes]\n" + rate + u"[Yes]\n")},
      {{u"C:\\wide.m2v"_s, u"--assume"_s, u"no"_s}, {u"Engine=1"_s}, kExitFailed, QString(resolution + u"[No]\n")},
      {{u"C:\\a.m2v"_s, u"--chapters"_s, u"2:00"_s},
       {},
       kExitDone,
       u"warning: The chapter 00:02:00 lies behind the end of the film.\n"_s},
      {{u"C:\\a.m2v"_s, u"--chapters"_s, u"0,5,20"_s}, {}, kExitDone, {}},
      {{u"C:\\a.m2v"_s, u"--chapters"_s, u"0:10,x"_s}, {}, kExitFailed, u"error: --chapters: \"x\" is no time.\n"_s},
      {{u"C:\\m.mpg"_s, u"--audio"_s, u"C:\\a.ac3"_s},
       {},
       kExitFailed,
       u"error: Add. audio files are not allowed for multiplexed videos (MPG Video files)\nVideofile: C:\\m.mpg\n"_s},
      {{u"C:\\a.m2v"_s, u"--audio"_s, u"C:\\no.ac3"_s}, {}, kExitFailed, u"error: Wrong Audiofile: C:\\no.ac3\n"_s},
      {{u"C:\\a.ac3"_s}, {}, kExitFailed, u"error: No sequenz header found!\n"_s},
      {{u"C:\\a.m2v"_s, u"--delay"_s, u"301"_s}, {u"Engine=1"_s}, kExitFailed, u"info: Must be smaller than 300!\n"_s},
      {{u"C:\\a.m2v"_s, u"--shrink"_s, u"1"_s},
       {},
       kExitFailed,
       u"info: New video size must be smaller than current Video size\ninfo: Set a new video size first!\n"_s},
      {{u"C:\\a.m2v"_s, u"--languages"_s, u"EN,XX"_s},
       {},
       kExitFailed,
       u"error: --languages: there is no language XX.\n"_s},
      {{u"C:\\a.m2v"_s, u"--sub"_s, u"C:\\s.srt"_s, u"--sub-format"_s, u"a/5/b/left/top/2/9/9/9"_s},
       {},
       kExitFailed,
       u"error: --sub-format a/5/b/left/top/2/9/9/9: Must be more than 2 Pixel\n"
       u"error: --sub-format a/5/b/left/top/2/9/9/9: Must be more than 5 Point\n"_s},
      {{u"C:\\a.m2v"_s, u"--pre"_s, u"exit;"_s},
       {},
       kExitFailed,
       u"error: --pre and --post are for projects made with AdvancedMode=1.\n"_s},
      {{u"C:\\a.m2v"_s, u"--animated"_s},
       {},
       kExitFailed,
       u"error: --animated is for projects with animated menus.\n"_s},
      {{u"C:\\a.m2v"_s, u"--titles"_s, u"x"_s},
       {},
       kExitUsage,
       u"torvane-cli: There is no option --titles.\nTry: torvane-cli --help\n"_s},
  };
  for (const Case& c : cases) {
    QStringList arguments{u"add-title"_s, u"C:\\p.tvn"_s, u"-o"_s, u"C:\\o.tvn"_s};
    EXPECT_EQ(RunOnNew(arguments + c.arguments, c.settings), c.code) << c.arguments.join(u' ').toStdString();
    EXPECT_EQ(error_.toStdString(), c.error.toStdString()) << c.arguments.join(u' ').toStdString();
  }
}

TEST_F(FilmCommandsTest, AddAudioTitleSetTakesFilesOfOneKind) {
  const QStringList command{u"add-audio-titleset"_s, u"C:\\p.tvn"_s, u"-o"_s, u"C:\\o.tvn"_s};
  ASSERT_EQ(RunOnNew(command + QStringList{u"C:\\a.ac3"_s, u"C:\\A - B - 07 - C.ac3"_s, u"--titles"_s, u"--name"_s,
                                           u"Songs"_s, u"--artist"_s, u"Me"_s, u"--pattern"_s, u"--add-track"_s,
                                           u"--image"_s, u"C:\\x.rgb"_s}),
            kExitDone)
      << error_.toStdString();
  EXPECT_EQ(Film(u"C:\\o.tvn"_s, u"FPA1"_s).toStdString(), R"(AudioTitles=2
Title01=a
File=C:\a.ac3
Artist=Me
Album=Album
Image=C:\x.rgb
Size=200006
Title02=#07  C
File=C:\A - B - 07 - C.ac3
Artist=A
Album=B
Image=C:\x.rgb
Size=200006)");
  EXPECT_EQ(Film(u"C:\\o.tvn"_s, u"MMB1Text"_s), u"Text=Songs");

  const struct {
    QStringList arguments;
    QStringList settings;
    QString error;
  } cases[] = {
      {{u"C:\\a.ac3"_s, u"C:\\b.mp2"_s},
       {},
       u"info: Only files of the same type (ac3 OR mp2/mpa OR wav) may be used within one titleset!\n"_s},
      {{u"C:\\44.ac3"_s}, {}, u"info: The list contains at least one audio file with wrong properties!\n"_s},
      {{u"C:\\a.ac3"_s, u"C:\\a.ac3"_s}, {}, u"error: This file is named twice: C:\\a.ac3\n"_s},
      {{u"C:\\no.ac3"_s}, {}, u"error: There is no audio file C:\\no.ac3\n"_s},
      {{u"C:\\a.ac3"_s, u"--titles"_s},
       {u"Engine=1"_s},
       u"error: For MuxMan only Audiotitlesets with chapters are implemented!\nPlease change\n"_s},
      {{u"C:\\a.ac3"_s, u"--titles"_s, u"--chapters"_s}, {}, u"error: Either --titles or --chapters, not both.\n"_s},
  };
  for (const auto& [arguments, settings, error] : cases) {
    EXPECT_EQ(RunOnNew(command + arguments, settings), kExitFailed) << arguments.join(u' ').toStdString();
    EXPECT_EQ(error_.toStdString(), error.toStdString());
  }
}

}  // namespace
}  // namespace torvane
