#include <QImage>

#include "cli_bench.h"
#include "media/mpeg_pieces.h"
#include "support/golden.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

/// A new project "C:\p.tvn" and media files beside it.
class FilmCommandsTest : public CliTest {
 protected:
  FilmCommandsTest() {
    const QByteArray video = Sequence(720, 576, 3, 3) + SequenceExtension() + Gop(0, 0, 0, 0) + Pictures(25);
    drive_.Write(u"a.m2v"_s, video);
    drive_.Write(u"wide.m2v"_s, Sequence(640, 480, 3, 4) + SequenceExtension() + Gop(0, 0, 0, 0) + Pictures(25));
    drive_.Write(u"m.mpg"_s, Pack(0) + VideoPacket() + video);
    drive_.Write(u"a.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 20}));
    drive_.Write(u"44.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 0x40 | 20}));
    drive_.Write(u"A - B - 07 - C.ac3"_s, Bytes({0x0B, 0x77, 0, 0, 20}));
    drive_.Write(u"b.mp2"_s, Bytes({0xFF, 0xFD, 0xA4, 0}));
    drive_.Write(u"s.srt"_s, "1\n");
    drive_.Write(u"s.sup"_s, "SP");
    drive_.Write(u"x.rgb"_s, QByteArray("FF0000\n").repeated(16));
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::white);
    EXPECT_TRUE(picture.save(drive_.Host(u"x.bmp"_s)));
  }

  /// What was told, if it begins with the text before "…"; "{C}" is the folder of drive C. Other texts stay.
  QString Whole(const QString& expected) const {
    const QString begin = QString(expected).replace(u"{C}"_s, drive_.Host({})).section(u'…', 0, 0);
    return expected.contains(u'…') && error_.startsWith(begin) ? error_ : begin;
  }

  /// Runs a command on a new project that is made with the settings.
  int RunOnNew(const QString& line, const QStringList& settings = {}) {
    for (const QString& former : {u"C:\\p.tvn"_s, u"C:\\o.tvn"_s}) EXPECT_TRUE(HostFiles::RemoveFile(former));
    EXPECT_EQ(Run(uR"(new C:\p.tvn)"_s, settings), kExitDone) << error_.toStdString();
    return Run(line);
  }

  static std::string Film(const QString& key) { return Captions(u"C:\\p.tvn"_s, key).toStdString(); }
};

TEST_F(FilmCommandsTest, AddTitleTakesEverythingOfAFilm) {
  ASSERT_EQ(RunOnNew(uR"(add-title C:\p.tvn C:\a.m2v --audio C:\a.ac3 --audio=C:\b.mp2 --sub C:\s.srt --sub C:\s.sup
                        --sub-format CP1250/20.0/arial.ttf/left/top/10/10/10/10 --languages en,de,,,fr
                        --palette C:\x.rgb --start-sub --chapters 0:00.8,0:00.25 --name The_sea --delay -40
                        --pre g1=1; --post exit; --at 40,50 -o C:\o.tvn)"_s,
                     {u"AdvancedMode=1"_s}),
            kExitDone)
      << error_.toStdString();
  ExpectGolden(Captions(u"C:\\o.tvn"_s, u"F1"_s).toUtf8(), u"whole_film.txt"_s);
  EXPECT_EQ(Captions(u"C:\\o.tvn"_s, u"MMB1Text"_s), u"Text=The sea");
  EXPECT_EQ(Captions(u"C:\\o.tvn"_s, u"MMBP1Left"_s), u"Left=40");
}

TEST_F(FilmCommandsTest, EditTitleChangesWhatItsOptionsName) {
  ASSERT_EQ(RunOnNew(uR"(add-title C:\p.tvn C:\a.m2v --sub C:\s.srt --palette C:\x.rgb --start-sub --languages=EN,,,DE
                        --delay=7 --post=exit;)"_s,
                     {u"AdvancedMode=1"_s}),
            kExitDone);
  const std::string whole = Film(u"F1"_s);
  const QString edit = uR"(edit-title C:\p.tvn 1 )"_s;
  EXPECT_EQ(Run(edit), kExitDone);
  EXPECT_EQ(Film(u"F1"_s), whole);
  EXPECT_EQ(Run(edit + uR"(--audio C:\a.ac3 --audio= --palette= --sub= --sub C:\s.sup)"), kExitFailed);
  EXPECT_EQ(error_,
            u"info: Using Subtitle stream 2 or 3 without Subtitle stream 1 (or 1 & 3 without 2) is not possible!\n");
  EXPECT_EQ(Film(u"F1"_s), whole);
  ASSERT_EQ(Run(edit + u"--sub= --palette= --pre=g1=1; --name b"), kExitDone) << error_.toStdString();
  EXPECT_EQ(Film(u"FP1"_s).substr(Film(u"FPV1"_s).size() + 8), R"(Audio1=C:\a.ac3
AudioDelay=7
Chapters=00:00:00.000
TotalSize(MB)=0
LanguageTags=EN,  ,  ,  ,  ,  
Mux=1
Animated=0
Pre Action=g1=1;
Post Action=exit;)");
  EXPECT_EQ(Run(edit + uR"(--video C:\wide.m2v --assume yes)"), kExitDone);
  EXPECT_EQ(Film(u"FP1"_s).substr(0, 22), "Name=wide\nVideo=C:\\wid");
  EXPECT_EQ(Run(uR"(edit-title C:\p.tvn 2)"_s), kExitFailed);
  EXPECT_EQ(error_, u"error: The project has no film 2.\n");
}

TEST_F(FilmCommandsTest, AddTitleTellsWhatItsChecksFind) {
  const QString resolution =
      u"question: WARNING: This resolution: 640 x 480 is not compatible with MuxMan!\nContinue anyway? "_s;
  const QString rate =
      u"question: WARNING: The video framerate doesn't fit to the default project settings (PAL)!\nContinue anyway? "_s;
  const struct {
    QString rest;
    int code;
    QString error;
    QStringList settings = {};
  } cases[] = {
      {uR"(C:\a.m2v)"_s, kExitDone, {}},
      {uR"(C:\a.m2v --audio C:\44.ac3)"_s, kExitDone,
       u"question: WARNING: Audio must have 48 kHz sampling frequency!\nContinue anyway? [Yes]\n"_s},
      {uR"(C:\wide.m2v)"_s, kExitDone, QString(resolution + u"[Yes]\n" + rate + u"[Yes]\n"), {u"Engine=1"_s}},
      {uR"(C:\wide.m2v --assume no)"_s, kExitFailed, QString(resolution + u"[No]\n"), {u"Engine=1"_s}},
      {uR"(C:\a.m2v --chapters 2:00)"_s, kExitDone,
       u"warning: The chapter 00:02:00 lies behind the end of the film.\n"_s},
      {uR"(C:\a.m2v --chapters 0,5,20)"_s, kExitDone, {}},
      {uR"(C:\a.m2v --chapters 0:10,x)"_s, kExitFailed, u"error: --chapters: \"x\" is no time.\n"_s},
      {uR"(C:\m.mpg --audio C:\a.ac3)"_s, kExitFailed,
       u"error: Add. audio files are not allowed for multiplexed videos (MPG Video files)\nVideofile: C:\\m.mpg\n"_s},
      {uR"(C:\a.m2v --audio C:\no.ac3)"_s, kExitFailed, u"error: There is no audio file C:\\no.ac3\n"_s},
      {uR"(C:\a.ac3)"_s, kExitFailed,
       u"error: No sequenz header found!\nerror: {C}a.ac3 is AC3 sound; the film of a disc…"_s},
      {uR"(C:\a.m2v --delay 301)"_s, kExitFailed, u"info: Must be smaller than 300!\n"_s, {u"Engine=1"_s}},
      {uR"(C:\a.m2v --shrink 1)"_s, kExitFailed,
       u"info: New video size must be smaller than current Video size\ninfo: Set a new video size first!\n"_s},
      {uR"(C:\a.m2v --languages EN,XX)"_s, kExitFailed, u"error: --languages: there is no language XX.\n"_s},
      {uR"(C:\a.m2v --sub C:\s.srt --sub-format a/5/b/left/top/2/9/9/9)"_s, kExitFailed,
       u"error: --sub-format a/5/b/left/top/2/9/9/9: Must be more than 2 Pixel\n"
       u"error: --sub-format a/5/b/left/top/2/9/9/9: Must be more than 5 Point\n"_s},
      {uR"(C:\a.m2v --pre exit;)"_s, kExitFailed,
       u"error: --pre and --post are for projects made with AdvancedMode=1.\n"_s},
      {uR"(C:\a.m2v --animated)"_s, kExitFailed, u"error: --animated is for projects with animated menus.\n"_s},
      {uR"(C:\a.m2v --titles x)"_s, kExitUsage,
       u"torvane-cli: There is no option --titles.\nTry: torvane-cli --help\n"_s},
  };
  for (const auto& [rest, code, error, settings] : cases) {
    EXPECT_EQ(RunOnNew(uR"(add-title C:\p.tvn -o C:\o.tvn )" + rest, settings), code) << rest.toStdString();
    EXPECT_EQ(error_, Whole(error)) << rest.toStdString();
  }
}

TEST_F(FilmCommandsTest, AddAudioTitleSetTakesFilesOfOneKind) {
  ASSERT_EQ(RunOnNew(uR"(add-audio-titleset C:\p.tvn C:\a.ac3 "C:\A - B - 07 - C.ac3" --titles --name Songs --artist Me
                        --pattern --add-track --image C:\x.bmp)"_s),
            kExitDone)
      << error_.toStdString();
  ExpectGolden(Captions(u"C:\\p.tvn"_s, u"FPA1"_s).toUtf8(), u"audio_titles.txt"_s);
  EXPECT_EQ(Film(u"MMB1Text"_s), "Text=Songs");

  const struct {
    QString files;
    QString error;
    QStringList settings = {};
  } cases[] = {
      {uR"(C:\a.ac3 C:\b.mp2)"_s,
       u"info: Only files of the same type (ac3 OR mp2/mpa OR wav) may be used within one titleset!\n"_s},
      {uR"(C:\44.ac3)"_s,
       u"info: The list contains at least one audio file with wrong properties!\nerror: {C}44.ac3 is AC3 sound of 44100 Hz;…"_s},
      {uR"(C:\a.ac3 C:\a.ac3)"_s, u"error: This file is named twice: C:\\a.ac3\n"_s},
      {uR"(C:\no.ac3)"_s, u"error: There is no audio file C:\\no.ac3\n"_s},
      {uR"(C:\a.ac3 --titles)"_s,
       u"error: For MuxMan only Audiotitlesets with chapters are implemented!\nPlease change\n"_s,
       {u"Engine=1"_s}},
      {uR"(C:\a.ac3 --titles --chapters)"_s, u"error: Either --titles or --chapters, not both.\n"_s},
  };
  for (const auto& [files, error, settings] : cases) {
    EXPECT_EQ(RunOnNew(uR"(add-audio-titleset C:\p.tvn )" + files, settings), kExitFailed) << files.toStdString();
    EXPECT_EQ(error_, Whole(error));
  }
}

}  // namespace
}  // namespace torvane
