// What a viewer hears of a sound that shall be early or late.

#include <QRegularExpression>

#include "media/sound_frame.h"
#include "real_media.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

constexpr double kToneBegins = 4;    // seconds into the sound, in which all is still before
constexpr double kTolerance = 0.04;  // a frame of sound, and what the coders smear

class AudioDelay : public RealMediaTest {
 protected:
  AudioDelay() {
    Ffmpeg(
        u"-f lavfi -i testsrc2=s=720x576:r=25:d=8 -c:v mpeg2video -b:v 3000k -g 12 -aspect 4:3 -f mpeg2video v.m2v"_s);
    const QString sound = u"-f lavfi -i \"aevalsrc=if(gt(t\\,4)\\,sin(2765*t)\\,0):s=48000:d=8\" -ac 2 "_s;
    Ffmpeg(sound + u"-b:a 448k s.ac3 -b:a 192k s.mp2 -c:a pcm_s16le s.wav -c:a dca -strict -2 -b:a 768k s.dts");
  }

  std::string Mux(int delay, const QString& sounds) const {
    QFile::remove(Host(u"F.mpg"_s));
    QString line = u"\"C:\\Tools\\mplex.exe\" -M -f 8 -O %1ms -o \"C:\\T\\F.mpg\" \"C:\\T\\v.m2v\""_s.arg(delay);
    for (const QString& sound : sounds.split(u' ')) line += u" \"C:\\T\\%1\""_s.arg(sound);
    return RunBatch(line.toUtf8() + "\r\n");
  }

  QString Shell(const QString& line) const { return ShellCommand(Host({}), line); }

  /// Seconds from the first picture until the tone is heard.
  double Heard(const QString& film, int track = 0) const {
    QStringList pictures = Shell(
                               u"ffprobe -v error -select_streams v -read_intervals %+#30 -show_entries "
                               "packet=pts_time -of csv=p=0 "_s +
                               film)
                               .split(QRegularExpression(u"[,\\s]+"_s), Qt::SkipEmptyParts);
    double first = 1e9;
    for (const QString& time : pictures) first = time == u"N/A" ? first : std::min(first, time.toDouble());
    const QString told = Shell(
        u"ffmpeg -hide_banner -nostats -copyts -i %1 -map 0:a:%2 -af "
        "silencedetect=n=-30dB:d=0.2 -f null - 2>&1"_s.arg(film)
            .arg(track));
    const QRegularExpressionMatch match = QRegularExpression(u"silence_end: ([0-9.]+)"_s).match(told);
    EXPECT_TRUE(match.hasMatch()) << told.toStdString();
    return match.captured(1).toDouble() - first;
  }
};

TEST_F(AudioDelay, APositiveDelayIsLateAndANegativeOneEarly) {
  const struct {
    const char* sounds;
    int delay;
  } cases[] = {
      {"s.ac3", 500},  {"s.ac3", -500}, {"s.ac3", -960},  {"s.ac3", -2500},       {"s.ac3", 3000},  {"s.mp2", 500},
      {"s.mp2", -500}, {"s.mp2", 3000}, {"s.wav", -2500}, {"s.mp2 s.ac3", -2500}, {"s.dts", -2500},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.sounds << ' ' << c.delay);
    const QString sounds = QString::fromLatin1(c.sounds);
    const std::string printed = Mux(c.delay, sounds);
    EXPECT_TRUE(Contains(printed, "no under-runs detected") && !Contains(printed, "*ERROR")) << printed;
    for (int track = 0; track <= sounds.count(u' '); ++track) {
      EXPECT_NEAR(Heard(u"F.mpg"_s, track), kToneBegins + c.delay / 1000.0, kTolerance);
    }
  }
  EXPECT_EQ(QDir(Host({})).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(AudioDelay, ADiscKeepsIt) {
  Write(u"Author.xml"_s,
        "<dvdauthor dest=\"C:\\T\\DVD\"><vmgm/><titleset><titles><video format=\"pal\"/><pgc>"
        "<vob file=\"C:\\T\\F.mpg\"/></pgc></titles></titleset></dvdauthor>");
  for (const int delay : {500, -2500, 3000}) {
    Mux(delay, u"s.ac3"_s);
    QDir(Host(u"DVD"_s)).removeRecursively();
    const std::string printed = RunBatch("dvdauthor -x C:\\T\\Author.xml\r\n");
    EXPECT_FALSE(Contains(printed, "ERR")) << printed;
    EXPECT_NEAR(Heard(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s), kToneBegins + delay / 1000.0, kTolerance) << delay;
  }
}

TEST_F(AudioDelay, WhatCannotBeLeftOutIsRefused) {
  EXPECT_TRUE(Contains(Mux(-8000, u"s.mp2"_s), "s.mp2: the delay leaves nothing of this sound"));
  EXPECT_TRUE(Contains(Mux(-8000, u"s.wav"_s), "s.wav: the delay leaves nothing of this sound"));
  QByteArray damaged = Read(u"s.ac3"_s);
  damaged.replace(30 * 1792, 2, "xx");
  Write(u"s.ac3"_s, damaged);
  EXPECT_TRUE(Contains(Mux(-2500, u"s.ac3"_s), "s.ac3: no frame of sound at byte 53760"));
  EXPECT_FALSE(QFile::exists(Host(u"F.mpg"_s)));
}

}  // namespace
}  // namespace torvane::test
