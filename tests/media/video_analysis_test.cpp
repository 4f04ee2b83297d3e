#include "media/video_analysis.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "core/messages.h"
#include "media/media_block.h"
#include "media/media_text.h"
#include "mpeg_pieces.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void PrintTo(const MpegInfo& info, std::ostream* out) {
  *out << info.VideoFile.toStdString() << ' ' << info.SizeMB << " MB " << info.ResH << 'x' << info.ResV << ' '
       << info.Aspect.toStdString() << ' ' << info.FPS << " fps " << info.Duration.toStdString() << ' '
       << info.DurationSec << " s MPEG-" << info.MpegVersion.toStdString() << " Mux " << info.Mux << ' ' << info.MuxOK;
}

namespace {

using namespace test;

struct Verdict {
  bool found = false;
  MpegInfo info;
  QStringList boxes;
};

Verdict Analyse(MediaFile& file, const QString& path = u"C:\\v\\a.m2v"_s) {
  Verdict verdict;
  RecordingPrompter prompter;
  verdict.found = AnalyseVideoFile(path, file, verdict.info, prompter);
  for (const Box& box : prompter.boxes) {
    verdict.boxes << (box.kind == BoxKind::Error ? u"critical: "_s : u"warning: "_s) + box.text;
  }
  return verdict;
}

Verdict Analyse(const QByteArray& bytes, const QString& path = u"C:\\v\\a.m2v"_s) {
  SparseFile file(bytes);
  return Analyse(file, path);
}

QByteArray Elementary(int aspect, int rate, const QByteArray& rest) {
  return Sequence(720, 480, aspect, rate) + rest;
}

// Durations are cut off behind sums of binary fractions of a day: 40 seconds may read as 39.99.
TEST(VideoAnalysis, ADvdStreamIsJudgedWhole) {
  SparseFile file = DvdStream(3145728, 40);
  const Verdict verdict = Analyse(file, u"C:\\v\\a.vob"_s);
  EXPECT_TRUE(verdict.found);
  EXPECT_EQ(verdict.boxes, QStringList());
  EXPECT_EQ(verdict.info, (MpegInfo{.VideoFile = u"C:\\v\\a.vob"_s,
                                    .SizeMB = 3,
                                    .ResH = 720,
                                    .ResV = 576,
                                    .Aspect = u"16:9"_s,
                                    .FPS = 25,
                                    .Duration = u"00:00:39.99"_s,
                                    .DurationSec = 40,
                                    .MpegVersion = u"2"_s,
                                    .Mux = 1,
                                    .MuxOK = 1}));
}

TEST(VideoAnalysis, PictureFieldsComeFromTheSequenceHeader) {
  const struct {
    int aspect, rate;
    QString expectedAspect;
    float expectedFps;
  } cases[] = {{0, 0, u"4:3"_s, 25},        {1, 1, u"1:1"_s, 23.976F}, {2, 2, u"4:3"_s, 24},  {3, 3, u"16:9"_s, 25},
               {4, 4, u"2.21:1"_s, 29.97F}, {5, 5, u"4:3"_s, 30},      {15, 6, u"4:3"_s, 50}, {1, 7, u"1:1"_s, 59.94F},
               {1, 8, u"1:1"_s, 60},        {1, 9, u"1:1"_s, 25},      {1, 15, u"1:1"_s, 25}};
  for (const auto& [aspect, rate, expectedAspect, expectedFps] : cases) {
    const Verdict verdict = Analyse(Elementary(aspect, rate, {}));
    EXPECT_TRUE(verdict.found);
    EXPECT_EQ(verdict.info, (MpegInfo{.VideoFile = u"C:\\v\\a.m2v"_s,
                                      .ResH = 720,
                                      .ResV = 480,
                                      .Aspect = expectedAspect,
                                      .FPS = expectedFps,
                                      .Duration = u"00:00:00.00"_s,
                                      .MpegVersion = u"1"_s}));
  }
}

TEST(VideoAnalysis, AHeaderCutOffByTheEndReadsZeros) {
  const Verdict verdict = Analyse(Sequence(720, 480, 3, 4).first(5));
  EXPECT_TRUE(verdict.found);
  EXPECT_EQ(verdict.info.ResH, 720);
  EXPECT_EQ(verdict.info.ResV, 0);
  EXPECT_EQ(verdict.info.FPS, 25);
}

TEST(VideoAnalysis, DurationComesFromTheGopHeaders) {
  const QByteArray padding(120000, '\x55');
  const QByteArray near = padding.first(50000);
  const QByteArray zero = Gop(0, 0, 0, 0);
  const QByteArray second = Gop(0, 0, 1, 0);
  const QByteArray tooLate = Gop(24, 0, 0, 0);
  const struct {
    const char* name;
    int rate;
    QByteArray stream;
    double seconds;
  } cases[] = {
      {"no GOP", 3, Pictures(50), 0},
      {"small file: pictures from the first GOP on", 3, Pictures(3) + Gop(0, 0, 9, 0) + Pictures(50), 2},
      {"one GOP for both ends", 2, near + second + Pictures(36) + near, 1.5},
      {"a GOP at the end only", 2, padding + second + Pictures(36), 2.5},
      {"first and last GOP", 3, Gop(1, 59, 58, 10) + padding + Gop(2, 0, 1, 5) + Pictures(20), 3.6},
      {"29.97 without drop flag", 4, zero + padding + Gop(0, 16, 40, 0), 999},
      {"29.97 with drop flag", 4, Gop(0, 0, 0, 0, true) + padding + Gop(0, 16, 40, 0, true), 1000},
      {"invalid GOP headers", 3,
       QByteArray(zero).replace(5, 1, QByteArray(1, '\0')) + QByteArray(second).replace(7, 1, "\x01") + tooLate +
           Gop(0, 0, 2, 0) + Pictures(25),
       1},
      {"pictures behind an invalid last GOP", 3,
       zero + padding + Gop(0, 0, 7, 0) + Pictures(50) + tooLate + Pictures(25), 8},
      {"backwards", 3, Gop(0, 1, 0, 0) + padding + Gop(0, 0, 57, 12), -2.52},
  };
  for (const auto& [name, rate, stream, seconds] : cases) {
    const Verdict verdict = Analyse(Elementary(2, rate, stream));
    EXPECT_NEAR(verdict.info.DurationSec, seconds, 0.00006) << name;
    EXPECT_EQ(verdict.boxes, QStringList()) << name;
    if (seconds < 0) {
      EXPECT_EQ(verdict.info.Duration, u"-00:00:02.52");
    }
  }
}

TEST(VideoAnalysis, TheTailIsReadUntilThereIsAGop) {
  constexpr qint64 kSize = 1000000;
  // The second block from the end, of 100,000 bytes with an overlap of 10, holds the GOP; both count pictures.
  SparseFile file(kSize);
  file.Put(0, Elementary(2, 3, Gop(0, 0, 0, 0)));
  file.Put(kSize - 150000, Gop(0, 0, 10, 0) + Pictures(10));
  file.Put(kSize - 50000, Pictures(15));
  EXPECT_DOUBLE_EQ(Analyse(file).info.DurationSec, 11);

  // Fifty blocks without a GOP are the end of the search.
  SparseFile poor(10000000);
  poor.Put(0, Elementary(2, 3, Gop(0, 0, 0, 0)));
  poor.Put(4000000, Gop(0, 1, 0, 0));
  EXPECT_DOUBLE_EQ(Analyse(poor).info.DurationSec, 0);
  EXPECT_EQ(poor.reads, 51);
}

TEST(VideoAnalysis, ThePictureSumHasSixteenBits) {
  // 25,000 pictures in the last block, 15,002 behind the GOP in the block before it.
  const QByteArray padding(120000, 'x');
  const QByteArray stream = Elementary(2, 3, Gop(0, 0, 0, 0) + padding + Gop(0, 0, 1, 0) + Code(0).repeated(40000));
  EXPECT_DOUBLE_EQ(Analyse(stream).info.DurationSec, 1 + (40002 - 65536) / 25.0);
}

TEST(VideoAnalysis, OnlyASequenceHeaderInAVideoPacketCounts) {
  const QByteArray fake = Code(0xBD) + Sequence(352, 288, 1, 1);
  const QByteArray real = VideoPacket() + QByteArray(91, 'x') + Sequence(720, 576, 2, 3);  // 100 bytes behind the code
  EXPECT_EQ(Analyse(Pack(0) + fake + real, u"a.mpg"_s).info.ResH, 720);
  EXPECT_EQ(Analyse(Pack(0) + VideoPacket() + QByteArray(92, 'x') + Sequence(352, 288, 1, 1) + real).info.ResH, 720);
  EXPECT_FALSE(Analyse(Pack(0) + fake + QByteArray(100, 'x')).found);
  EXPECT_TRUE(Analyse(fake).found);
}

TEST(VideoAnalysis, LaterBlocksAreSearchedToo) {
  const struct {
    const char* name;
    qint64 size, packet, sequence;
    bool found;
  } cases[] = {
      {"in the second block", 300000, 150000, 150050, true},
      {"at the start of a block, its packet in the one before", 400000, 99980, 100045, true},
      {"the same, the packet too far back", 400000, 99880, 100045, false},
      {"in the last searched block", 1200000, 1090000, 1090050, true},
      {"behind the searched blocks", 1400000, 1100500, 1100550, false},
      {"in a block that does not lie before the end", 199990, 150000, 150050, false},
      {"in a block that just does", 199991, 150000, 150050, true},
  };
  for (const auto& [name, size, packet, sequence, found] : cases) {
    SparseFile file(size);
    file.Put(0, Pack(0));
    file.Put(packet, VideoPacket());
    file.Put(sequence, Sequence(720, 576, 2, 3));
    EXPECT_EQ(Analyse(file).found, found) << name;
  }
}

TEST(VideoAnalysis, AFailureLeavesThePictureFields) {
  const MpegInfo old{u"old"_s, 9, 1, 2, u"a"_s, 3, u"d"_s, 4, u"v"_s, 1, 1};
  MpegInfo expected = old;
  expected.VideoFile = u"C:\\no such.vob"_s;
  expected.MpegVersion = u"1"_s;
  expected.SizeMB = expected.Mux = expected.MuxOK = 0;
  RecordingPrompter prompter;
  MissingFile missing;
  MpegInfo info = old;
  EXPECT_FALSE(AnalyseVideoFile(expected.VideoFile, missing, info, prompter));
  EXPECT_EQ(info, expected);
  EXPECT_FALSE(AnalyseVideoFile(expected.VideoFile, info, prompter));
  EXPECT_EQ(info, expected);
  EXPECT_TRUE(prompter.boxes.empty());
}

TEST(VideoAnalysis, APackHeaderInTheLastTenBytesIsNone) {
  const QByteArray body = Sequence(720, 576, 2, 3);
  EXPECT_EQ(Analyse(body + Pack(5).first(10)).info.Mux, 0);
  EXPECT_EQ(Analyse(body + Pack(5).first(11)).info.Mux, 0);  // position n - 10
  EXPECT_EQ(Analyse(body + Pack(5).first(12)).info.Mux, 1);
}

TEST(VideoAnalysis, WarningsHaveTheirTexts) {
  const QString part =
      u" Probably this file is part of a vobset\r\nVob files from a vobset should be joined before they can be used."_s;
  const QString noPadding = u"warning: Warning: No padding bytes found at end of file."_s + part;
  const QString inconsistent =
      u"warning: Inconsistent Timecodes!  SCR=%1 sec.  GOP=%2 sec.\r\nChapEditTVN will probably not work "
      u"properly.\r\nTVN will use %3 for duration..."_s;
  const QString elementary = u"warning: Warning: No 'real' %1 file (elementary video)."_s;
  const auto check = [](const char* name, SparseFile file, const QString& path, double seconds, const QString& box) {
    const Verdict verdict = Analyse(file, path);
    EXPECT_EQ(verdict.boxes.join(u'|').toStdString(), box.toStdString()) << name;
    EXPECT_DOUBLE_EQ(verdict.info.DurationSec, seconds) << name;
  };
  const auto dvd = [&check](const char* name, qint64 at, const QByteArray& piece, const QString& box,
                            double seconds = 40) {
    SparseFile file = DvdStream(3000000, 40);
    file.Put(at, piece);
    check(name, file, u"a.vob"_s, seconds, box);
  };
  const auto mpeg1 = [](int seconds) {
    return SparseFile(Mpeg1Pack() + VideoPacket() + Sequence(352, 288, 1, 3) + Gop(0, 0, 0, 0) +
                      QByteArray(100000, 'x') + Gop(0, 0, seconds, 0));
  };
  const QByteArray lastGop = Gop(0, 0, 39, 0) + Pictures(25);
  dvd("the SCR ends before it begins", 2996000, Pack(kFirstSCR - 45000) + lastGop,
      u"critical: SCR moves backwards!  SCR=-0.50"_s);
  dvd("a long span of the SCR is believed", 2996000, Pack(kFirstSCR + 3725 * 90000LL) + lastGop,
      inconsistent.arg(u"1:02:05"_s, u"0:00:40"_s, u"SCR"_s), 3725);
  dvd("a step back inside the file", 3000000 * 7 / 10 + 5000, Pack(kFirstSCR + 450000),
      u"critical: SCR moves backwards! SCR delta = -19.00 sec.  at ~ 60% of file"_s);
  dvd("no padding", 2999990, "x", noPadding);
  dvd("padding of FF", 2999988, QByteArray(8, '\xFF'), {});
  dvd("zeros and FF mixed", 2999988, QByteArray(4, '\xFF'), noPadding);
  dvd("a late sequence header", 2048,
      QByteArray(8000, 'x') + VideoPacket() + Sequence(720, 576, 3, 3) + Gop(0, 0, 0, 0),
      u"warning: Warning: No sequence header found within the first 10kB of then file."_s + part);
  check("MPEG-1 has no SCR", mpeg1(5), u"a.mpg"_s, 5, inconsistent.arg(u"0.00"_s, u"5.00"_s, u"GOP"_s));
  check("a second of difference is none", mpeg1(1), u"a.mpg"_s, 1, {});
  const SparseFile headers(Elementary(2, 3, {}));
  check("elementary vob", headers, u"C:\\A.VOB"_s, 0, elementary.arg(u"vob"_s));
  check("elementary mpg", headers, u"C:\\a.mpg"_s, 0, elementary.arg(u"mpg"_s));
  check("an empty file", SparseFile(), u"C:\\a.mpg"_s, 0, elementary.arg(u"mpg"_s));
}

TEST(VideoAnalysis, TenthsAreReadOnlyOfLargeSoundStreams) {
  for (const auto& [size, reads] : {std::pair{1999999, 3}, std::pair{2000000, 12}}) {
    SparseFile file = DvdStream(size, 40);
    EXPECT_EQ(Analyse(file, u"a.vob"_s).boxes, QStringList());
    EXPECT_EQ(file.reads, reads);
  }
  // Without any sequence header the time stamps of a large stream are still looked at.
  SparseFile headless(4000000);
  headless.Put(0, Pack(1));
  headless.Put(2050000, Pack(900000));
  headless.Put(2450000, Pack(90000));
  const Verdict verdict = Analyse(headless);
  EXPECT_FALSE(verdict.found);
  EXPECT_EQ(verdict.boxes, QStringList{u"critical: SCR moves backwards! SCR delta = -9.00 sec.  at ~ 50% of file"_s});
}

TEST(VideoAnalysis, AHugeFileIsJudgedFromSevenMegabytes) {
  SparseFile file(qint64(10) << 30);
  file.Put(0, Pack(0) + Navigation());
  file.Put(999950, VideoPacket() + Sequence(720, 576, 2, 3));
  EXPECT_TRUE(Analyse(file).found);
  EXPECT_LE(file.bytesRead, 7 << 20);
}

TEST(SystemClock, IsReadFromMpeg2PackHeaders) {
  for (const qint64 scr : {1LL, 0x7FFFLL, 0x8000LL, 0x3FFFFFFFLL, 0x80000000LL, 0x155555555LL, 0x1FFFFFFFFLL}) {
    EXPECT_EQ(GetSCR(MediaBlock("xx" + Pack(scr)), 3), scr);
  }
  EXPECT_EQ(GetSCR(MediaBlock(Mpeg1Pack()), 1), 0);
  EXPECT_EQ(GetSCR(MediaBlock(Pack(123).first(9)), 1), 0);
}

TEST(SystemClock, TheLastUsableOneOfABlockIsTaken) {
  const auto block = [](std::initializer_list<std::pair<qsizetype, QByteArray>> pieces) {
    QByteArray bytes(kBlockSize, 'x');
    for (const auto& [at, piece] : pieces) bytes.replace(at - 1, piece.size(), piece);
    return MediaBlock(bytes);
  };
  EXPECT_EQ(LastSCROf(block({{50, Pack(7)}, {99000, Mpeg1Pack()}})), 7);
  EXPECT_EQ(LastSCROf(block({{50, Pack(7)}, {99987, Pack(9)}})), 9);  // ends at 99990
  EXPECT_EQ(LastSCROf(block({{50, Pack(7)}, {99988, Pack(9)}})), 7);
  EXPECT_EQ(LastSCROf(block({{1, Pack(7)}, {20, Mpeg1Pack()}})), 0);  // too near to the start to search on
  EXPECT_EQ(LastSCROf(block({{1, Pack(7)}, {21, Mpeg1Pack()}})), 7);
  EXPECT_EQ(LastSCROf(MediaBlock()), 0);
}

TEST(Timecodes, AreCutOffNotRounded) {
  EXPECT_EQ(FormatTimecode(3725.999 / 86400, TimecodeStyle::Hundredths), u"01:02:05.99"_s);
  EXPECT_EQ(FormatTimecode(3725.9996 / 86400, TimecodeStyle::Milliseconds, u','), u"01:02:05,999"_s);
  EXPECT_EQ(FormatTimecode(1.5, TimecodeStyle::Hundredths), u"12:00:00.00"_s);
  EXPECT_EQ(TimeOfDayText(1 + 59.6 / 86400), u"0:01:00"_s);
}

}  // namespace
}  // namespace torvane
