#include <csignal>

#include "media/video_analysis.h"
#include "platform/host_files.h"
#include "real_media.h"
#include "shell/mpeg_video.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

class RequantTest : public RealMediaTest {
 protected:
  /// A restless picture for some seconds, in a form that DVD-Video allows.
  void MakeVideo(bool pal, int aspect, bool topFirst, int seconds) const {
    Ffmpeg(
        u"-f lavfi -i testsrc2=s=720x%1:r=%2:d=%3,noise=alls=20:allf=t,tinterlace=%4 -aspect %5 -c:v mpeg2video "
        "-b:v 6000k -maxrate 8000k -bufsize 1835k -g 12 -bf 2 -flags +ildct+ilme -top %6 -f mpeg2video a.m2v"_s.arg(
            pal ? u"576"_s : u"480"_s, pal ? u"50"_s : u"60000/1001"_s, QString::number(seconds),
            topFirst ? u"interleave_top"_s : u"interleave_bottom"_s, aspect == 3 ? u"16:9"_s : u"4:3"_s,
            topFirst ? u"1"_s : u"0"_s));
  }

  static QByteArray Line(double factor) {
    return "\"C:\\Tools\\requant.exe\" " + QByteArray::number(factor, 'f', 4) +
           " \"C:\\T\\a.m2v\" \"C:\\T\\Film 1_req.mpv\"\r\n";
  }
};

/// Sizes of the groups of pictures, and how many of them are not closed.
struct Groups {
  QList<int> pictures;
  int open = 0;
};

Groups GroupsOf(const QByteArray& video) {
  Groups groups;
  for (qsizetype at = 0; (at = video.indexOf(QByteArray("\0\0\1", 3), at)) >= 0; at += 4) {
    if (quint8(video[at + 3]) == 0xB8) {
      groups.pictures << 0;
      groups.open += (video[at + 7] & 0x40) == 0 ? 1 : 0;
    } else if (video[at + 3] == 0) {
      ++groups.pictures.last();
    }
  }
  return groups;
}

TEST_F(RequantTest, MeetsTheSizeAndKeepsWhatDvdAsksFor) {
  const struct {
    bool pal;
    int aspect;
    bool topFirst;
    double factor;
  } cases[] = {{true, 3, true, 1.25}, {false, 2, false, 2.1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.factor);
    MakeVideo(c.pal, c.aspect, c.topFirst, 4);
    const std::string printed = RunBatch(Line(c.factor));
    EXPECT_FALSE(Contains(printed, "ERR")) << printed;
    const QByteArray before = Read(u"a.m2v"_s);
    const QByteArray after = Read(u"Film 1_req.mpv"_s);
    EXPECT_NEAR(double(before.size()) / double(after.size()), c.factor, 0.05 * c.factor);

    const Result<MpegVideo> video = ReadMpegVideo(Host(u"Film 1_req.mpv"_s));
    ASSERT_TRUE(video) << video.Error().toStdString();
    EXPECT_EQ(video->width, 720);
    EXPECT_EQ(video->height, c.pal ? 576 : 480);
    EXPECT_EQ(video->aspect, c.aspect);
    EXPECT_EQ(video->rateCode, c.pal ? 3 : 4);
    EXPECT_EQ(video->pictures.first().topFirst, c.topFirst);
    EXPECT_FALSE(video->progressive);
    EXPECT_EQ(video->Fields(), ReadMpegVideo(Host(u"a.m2v"_s))->Fields());
    EXPECT_LE(video->bitRate, 9800000);
    const Groups groups = GroupsOf(after);
    EXPECT_EQ(groups.open, 0);
    EXPECT_LE(*std::max_element(groups.pictures.begin(), groups.pictures.end()), c.pal ? 15 : 18);

    const std::string muxed = RunBatch("mplex -M -f 8 -o \"C:\\T\\Film 1.mpg\" \"C:\\T\\Film 1_req.mpv\"\r\n");
    EXPECT_TRUE(Contains(muxed, "no under-runs detected")) << muxed;
    EXPECT_EQ(Files().filter(u".part"_s), QStringList());
  }
  RunBatch(Line(1));
  EXPECT_EQ(Read(u"Film 1_req.mpv"_s), Read(u"a.m2v"_s));
}

TEST_F(RequantTest, KeepsThePulldownOfAFilm) {
  ShellCommand(Host({}),
               u"ffmpeg -v error -f lavfi -i testsrc2=s=720x480:r=24000/1001:d=3,noise=alls=10:allf=t "
               "-f yuv4mpegpipe - | mpeg2enc -v 0 -f 8 -F 1 -p -a 3 -b 5000 -o a.m2v"_s);
  const Result<MpegVideo> film = ReadMpegVideo(Host(u"a.m2v"_s));
  ASSERT_TRUE(film && std::ranges::any_of(film->pictures, &PictureFlags::repeats));
  const std::string printed = RunBatch(Line(1.5));
  EXPECT_FALSE(Contains(printed, "ERR")) << printed;
  const Result<MpegVideo> video = ReadMpegVideo(Host(u"Film 1_req.mpv"_s));
  ASSERT_TRUE(video) << video.Error().toStdString();
  EXPECT_EQ(video->pictures, film->pictures);
  EXPECT_FALSE(video->progressive);
  EXPECT_EQ(std::pair(video->rateCode, video->aspect), std::pair(4, 3));
  const QByteArray after = Read(u"Film 1_req.mpv"_s);
  EXPECT_NEAR(double(Read(u"a.m2v"_s).size()) / double(after.size()), 1.5, 0.075);
  const Groups groups = GroupsOf(after);
  EXPECT_EQ(groups.open, 0);
  EXPECT_LE(*std::ranges::max_element(groups.pictures), 12);  // of three fields each
  MpegInfo info;
  RecordingPrompter prompter;
  EXPECT_TRUE(AnalyseVideoFile(HostFiles::ToDos(Host(u"Film 1_req.mpv"_s)), info, prompter));
  EXPECT_NEAR(info.DurationSec, film->Seconds(), 0.3);  // by the time codes
  const std::string muxed = RunBatch("mplex -M -f 8 -o \"C:\\T\\F.mpg\" \"C:\\T\\Film 1_req.mpv\"\r\n");
  EXPECT_TRUE(Contains(muxed, "no under-runs detected")) << muxed;
}

TEST_F(RequantTest, SoftensWhatCannotBeShrunkOtherwise) {
  Ffmpeg(
      u"-f lavfi -i testsrc2=s=720x480:r=30000/1001:d=2,noise=alls=60:allf=t -c:v mpeg2video -b:v 8000k -maxrate 9000k "
      "-bufsize 1835k -g 15 -bf 2 -flags +ildct+ilme -f mpeg2video a.m2v 2>/dev/null"_s);
  const std::string printed = RunBatch(Line(10));
  EXPECT_TRUE(Contains(printed, "softened") && !Contains(printed, "ERR")) << printed;
  EXPECT_NEAR(double(Read(u"a.m2v"_s).size()) / double(Read(u"Film 1_req.mpv"_s).size()), 10, 0.5);
  EXPECT_EQ(ReadMpegVideo(Host(u"Film 1_req.mpv"_s))->pictures, ReadMpegVideo(Host(u"a.m2v"_s))->pictures);
}

TEST_F(RequantTest, TellsWhyItFailedAndLeavesNothing) {
  const std::string name = Host(u"a.m2v"_s).toStdString();
  const auto expect = [this](const std::string& message) {
    const std::string printed = RunBatch(Line(1.25));
    EXPECT_TRUE(Contains(printed, "ERR:  requant: " + message + "\r\n\r\n*ERROR: requant ended with status 1\r\n"))
        << printed;
    EXPECT_EQ(Files(), (QStringList{u"a.m2v"_s, u"x.bat"_s}));
  };
  for (const char* bytes : {"", "x", "no video"}) {
    Write(u"a.m2v"_s, bytes);
    expect(name + ": no MPEG-2 video");
  }
  Ffmpeg(u"-f lavfi -i testsrc2=s=352x288:r=25:d=1 -c:v mpeg1video -f mpeg1video a.m2v"_s);
  expect(name + ": no MPEG-2 video");
  EXPECT_TRUE(Contains(RunBatch("requant x C:\\T\\a.m2v C:\\T\\b.mpv\r\n"), "usage: requant FACTOR INPUT OUTPUT"));

  // The second half cannot be decoded: what is left shows too little.
  Ffmpeg(u"-f lavfi -i testsrc2=s=720x576:r=25:d=4 -c:v mpeg2video -b:v 4000k -f mpeg2video a.m2v"_s);
  QByteArray broken = Read(u"a.m2v"_s);
  for (qsizetype at = broken.size() / 2; (at = broken.indexOf(QByteArray("\0\0\1", 3), at)) >= 0; at += 4) {
    const auto code = quint8(broken[at + 3]);
    if (code >= 0x01 && code <= 0xAF) broken[at + 3] = '\xB2';  // slices become user data
  }
  Write(u"a.m2v"_s, broken);
  const std::string printed = RunBatch(Line(1.25));
  EXPECT_NE(printed.find(name + ": 4.0 s of it became 1"), std::string::npos) << printed;
  EXPECT_EQ(Files(), (QStringList{u"a.m2v"_s, u"x.bat"_s}));

  MakeVideo(true, 3, true, 1);
  environment_.insert(u"PATH"_s, dir_.path());
  expect("ffmpeg is not installed; install the Debian package ffmpeg");
}

TEST_F(RequantTest, LeavesNothingWhenItIsStopped) {
  MakeVideo(true, 2, true, 8);
  Write(u"x.bat"_s, "@echo off\r\n" + Line(2));
  QProcess console;
  Start(console, {u"/c"_s, u"x.bat"_s});
  for (int i = 0; i < 500 && !QFile::exists(Host(u"Film 1_req.mpv.part-0.log"_s)); ++i) console.waitForReadyRead(20);
  ASSERT_TRUE(QFile::exists(Host(u"Film 1_req.mpv.part-0.log"_s)));
  kill(pid_t(console.processId()), SIGTERM);
  ASSERT_TRUE(console.waitForFinished(10000));
  EXPECT_EQ(console.exitCode(), 128 + SIGTERM);
  EXPECT_EQ(Files(), (QStringList{u"a.m2v"_s, u"x.bat"_s}));
}

}  // namespace
}  // namespace torvane::test
