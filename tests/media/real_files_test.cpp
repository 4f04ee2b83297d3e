// Files that real tools make, judged and compared with what ffprobe says of them.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "media/audio_analysis.h"
#include "media/video_analysis.h"
#include "media/video_head.h"
#include "platform/host_files.h"
#include "support/recording_prompter.h"
#include "support/shell_command.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

struct Stream {
  int width = 0, height = 0, pictures = 0;
  double rate = 0;
};

class RealFiles : public testing::Test {
 protected:
  QString Run(const QString& command) { return test::ShellCommand(dir_.path(), command); }

  void Encode(const QString& source, const QString& options) {
    Run(u"ffmpeg -v error -y -f lavfi -i "_s + source + u' ' + options);
  }

  QString Path(const QString& name) const { return HostFiles::ToDos(dir_.filePath(name)); }

  Stream Probe(const QString& name) {
    const QStringList fields = Run(u"ffprobe -v error -count_packets -select_streams v:0 -show_entries "
                                   "stream=width,height,r_frame_rate,nb_read_packets -of csv=p=0 "_s +
                                   name)
                                   .trimmed()
                                   .split(u',');
    const QStringList rate = fields.value(2).split(u'/');
    return {fields.value(0).toInt(), fields.value(1).toInt(), fields.value(3).toInt(),
            rate.value(0).toDouble() / rate.value(1, u"1"_s).toDouble()};
  }

  double ProbeSeconds(const QString& name) {
    return Run(u"ffprobe -v error -show_entries format=duration -of csv=p=0 "_s + name).trimmed().toDouble();
  }

  /// Judges a video and compares it with ffprobe; returns the first lines of the messages.
  QString Judge(const QString& name, const QString& version, int mux, int muxOk) {
    test::RecordingPrompter prompter;
    MpegInfo info;
    EXPECT_TRUE(AnalyseVideoFile(Path(name), info, prompter)) << name.toStdString();
    const Stream stream = Probe(name);
    EXPECT_EQ(std::pair(info.ResH, info.ResV), std::pair(stream.width, stream.height));
    EXPECT_NEAR(info.FPS, stream.rate, 0.001);
    EXPECT_NEAR(info.DurationSec, stream.pictures / stream.rate, 1 / stream.rate) << name.toStdString();
    EXPECT_EQ(info.MpegVersion, version) << name.toStdString();
    EXPECT_EQ(info.Mux, mux) << name.toStdString();
    EXPECT_EQ(info.MuxOK, muxOk) << name.toStdString();
    QStringList messages;
    for (const Box& box : prompter.boxes) messages << box.text.section(u"\r\n"_s, 0, 0);
    return messages.join(u'|');
  }

  QTemporaryDir dir_;
};

TEST_F(RealFiles, PalFromElementaryStreamToFinishedDisc) {
  Encode(u"testsrc2=s=720x576:r=25:d=8"_s, u"-an -c:v mpeg2video -b:v 3000k -g 12 -aspect 16:9 pal.m2v"_s);
  Encode(u"sine=f=440:r=48000:d=8"_s, u"-c:a mp2 -b:a 192k pal.mp2"_s);
  Run(u"mplex -v 0 -f 8 -o pal.mpg pal.m2v pal.mp2"_s);
  qputenv("VIDEO_FORMAT", "PAL");
  Run(u"dvdauthor -o disc -t pal.mpg"_s);
  ASSERT_TRUE(QFile::copy(dir_.filePath(u"disc/VIDEO_TS/VTS_01_1.VOB"_s), dir_.filePath(u"disc.vob"_s)));

  EXPECT_EQ(Judge(u"pal.m2v"_s, u"2"_s, 0, 0), u"");
  EXPECT_EQ(Judge(u"pal.mpg"_s, u"2"_s, 1, 1), u"");
  EXPECT_EQ(Judge(u"disc.vob"_s, u"2"_s, 1, 1), u"");

  HostMediaFile disc(Path(u"disc.vob"_s));
  EXPECT_TRUE(ProbeVideoFile(disc).ScrUsable);
  ASSERT_TRUE(CopyVideoHead(50, Path(u"disc.vob"_s), Path(u"head.vob"_s)));
  const Stream head = Probe(u"head.vob"_s);
  EXPECT_GE(head.pictures, 50);
  EXPECT_LT(head.pictures, 100);
}

TEST_F(RealFiles, NtscWithAndWithoutDropFlag) {
  Encode(u"testsrc2=s=720x480:r=30000/1001:d=8"_s, u"-an -c:v mpeg2video -g 15 ntsc.m2v"_s);
  Encode(u"testsrc2=s=720x480:r=30000/1001:d=8"_s, u"-an -c:v mpeg2video -g 15 -timecode '00:00:00;00' drop.m2v"_s);
  Encode(u"testsrc2=s=352x480:r=24000/1001:d=8"_s, u"-an -c:v mpeg2video -g 12 film.m2v"_s);
  Run(u"mplex -v 0 -f 8 -o film.mpg film.m2v"_s);
  EXPECT_EQ(Judge(u"ntsc.m2v"_s, u"2"_s, 0, 0), u"");
  EXPECT_EQ(Judge(u"drop.m2v"_s, u"2"_s, 0, 0), u"");
  EXPECT_EQ(Judge(u"film.mpg"_s, u"2"_s, 1, 1), u"");
}

TEST_F(RealFiles, Mpeg1HasNoClock) {
  Encode(u"testsrc2=s=352x288:r=25:d=8"_s, u"-an -c:v mpeg1video -g 12 one.m1v"_s);
  Run(u"ffmpeg -v error -i one.m1v -c copy -f vcd one.mpg"_s);
  ASSERT_TRUE(QFile::copy(dir_.filePath(u"one.m1v"_s), dir_.filePath(u"elementary.mpg"_s)));
  EXPECT_EQ(Judge(u"one.m1v"_s, u"1"_s, 0, 0), u"");
  EXPECT_EQ(Judge(u"one.mpg"_s, u"1"_s, 1, 0), u"Inconsistent Timecodes!  SCR=0.00 sec.  GOP=8.00 sec.");
  EXPECT_EQ(Judge(u"elementary.mpg"_s, u"1"_s, 0, 0), u"Warning: No 'real' mpg file (elementary video).");
}

TEST_F(RealFiles, AudioOfEveryKind) {
  const struct {
    QString name, options;
    int rate, frequency;
    double frame;
  } cases[] = {
      {u"a.ac3"_s, u"-ar 48000 -b:a 448k"_s, 448, 48000, 0.032},
      {u"b.ac3"_s, u"-ar 44100 -b:a 192k"_s, 192, 44100, 0.0349},
      {u"a.mp2"_s, u"-ar 48000 -b:a 224k"_s, 224, 48000, 0.024},
      {u"b.mp2"_s, u"-ar 44100 -b:a 192k"_s, 192, 44100, 0.0262},
      {u"a.mp3"_s, u"-ar 48000 -b:a 128k -id3v2_version 0 -write_xing 0"_s, 128, 48000, 0.024},
      {u"a.wav"_s, u"-ar 48000 -ac 2 -c:a pcm_s16le"_s, 1536, 48000, 0.001},
  };
  for (const auto& [name, options, rate, frequency, frame] : cases) {
    Encode(u"sine=f=440:d=10"_s, options + u' ' + name);
    AudioInfo info;
    EXPECT_TRUE(AnalyseAudioFile(Path(name), info)) << name.toStdString();
    EXPECT_EQ(info.Bitrate, rate) << name.toStdString();
    EXPECT_EQ(info.SampleFreq, frequency) << name.toStdString();
    EXPECT_NEAR(info.AudioSeconds, ProbeSeconds(name), frame) << name.toStdString();
  }
  Encode(u"sine=f=440:r=48000:d=2"_s, u"-c:a dca -strict -2 -b:a 768k a.dts"_s);
  AudioInfo dts;
  EXPECT_TRUE(AnalyseAudioFile(Path(u"a.dts"_s), dts));
  EXPECT_EQ(dts, (AudioInfo{.Duration = u"???"_s}));
}

}  // namespace
}  // namespace torvane
