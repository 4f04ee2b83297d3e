#include "media/audio_analysis.h"

#include <gtest/gtest.h>

#include "mpeg_pieces.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

const AudioInfo kOld{.Bitrate = 1, .SampleFreq = 2, .Duration = u"old"_s, .AudioSeconds = 3, .SizeMB = 4};

/// What becomes of kOld; a file that is not known leaves its bit rate.
void Check(const char* name, const QString& path, const QByteArray& head, qint64 size, const AudioInfo& expected) {
  SparseFile file(size);
  file.Put(0, head);
  AudioInfo info = kOld;
  EXPECT_EQ(AnalyseAudioFile(path, file, info), expected.Bitrate != kOld.Bitrate) << name;
  EXPECT_EQ(info, expected) << name << ": " << info.Bitrate << ' ' << info.SampleFreq << ' '
                            << info.Duration.toStdString() << ' ' << info.AudioSeconds << ' ' << info.SizeMB;
}

QByteArray Wav(int frequency, int bytesASecond, int format = 1) {
  return "RIFF" + QByteArray(4, '\0') + "WAVEfmt " + Bytes({16, 0, 0, 0, format, 0, 2, 0}) +
         Bytes({frequency & 255, frequency >> 8 & 255, frequency >> 16, 99}) +
         Bytes({bytesASecond & 255, bytesASecond >> 8 & 255, bytesASecond >> 16, 99}) + Bytes({4, 0, 16, 0});
}

TEST(AudioAnalysis, TheEndingDecides) {
  const QByteArray layer2 = Bytes({0xFF, 0xFD, 0xA4, 0x00});
  const QByteArray ac3 = Bytes({0x0B, 0x77, 0, 0, 30});
  const AudioInfo second{192, 48000, u"00:00:01.000"_s, 1, 0};
  Check("no ending", u"C:\\sound"_s, layer2, 24000, kOld);
  Check("a dot in the directory is one", u"C:\\v.1\\sound"_s, layer2, 24000, second);
  Check("nothing behind the dot", u"sound."_s, layer2, 24000, second);
  Check("any other ending", u"sound.xyz"_s, layer2, 24000, second);
  Check("AC-3 called MPEG", u"a.mp2"_s, ac3, 24000, kOld);
  Check("MPEG called AC-3", u"a.ac3"_s, layer2, 24000, kOld);
  Check("AC-3 in any case", u"a.Ac3"_s, ac3, 56000000, {448, 48000, u"00:16:40.000"_s, 1000, 53});
  Check("DTS is not opened", u"a.dts"_s, {}, 5242880, {0, 0, u"???"_s, 0, 5});
  Check("a leading tag", u"a.mp3"_s, "ID3" + layer2, 24000, kOld);
  Check("an empty file", u"a.mp2"_s, {}, 0, kOld);

  MissingFile missing;
  AudioInfo info = kOld;
  EXPECT_TRUE(AnalyseAudioFile(u"a.dts"_s, missing, info));
  EXPECT_EQ(info, (AudioInfo{.Duration = u"???"_s}));
  info = kOld;
  for (const QString& name : {u"a.wav"_s, u"a.ac3"_s}) EXPECT_FALSE(AnalyseAudioFile(name, missing, info));
  EXPECT_EQ(info, kOld);
}

TEST(AudioAnalysis, WavHeaders) {
  AudioInfo sizeOnly = kOld;
  sizeOnly.SizeMB = 2;
  const auto check = [](const char* name, const QByteArray& head, qint64 size, const AudioInfo& info) {
    Check(name, u"a.WAV"_s, head, size, info);
  };
  const QByteArray wav = Wav(48000, 192000);
  check("DVD audio", wav, 1920000, {1536, 48000, u"00:00:10.000"_s, 10, 2});
  check("96 kHz needs the third byte", Wav(96000, 576000), 1152000, {4608, 96000, u"00:00:02.000"_s, 2, 1});
  check("a bit rate between two", Wav(8000, 8063), 40, {65, 8000, u"00:00:00.005"_s, 0.005, 0});
  check("not PCM", Wav(48000, 192000, 0x55), 2000000, sizeOnly);
  check("not RIFF", QByteArray(wav).replace(0, 1, "X"), 2000000, sizeOnly);
  check("not WAVE", QByteArray(wav).replace(8, 1, "X"), 2000000, sizeOnly);
  check("no bytes a second", Wav(48000, 0), 2000000, sizeOnly);
  check("too short", wav, 39, kOld);
}

TEST(AudioAnalysis, Ac3Headers) {
  for (const auto& [code, frequency, rate] :
       {std::tuple{0x00, 48000, 32}, std::tuple{0x01, 48000, 32}, std::tuple{0x25, 48000, 640},
        std::tuple{0x52, 44100, 160}, std::tuple{0x9E, 32000, 448}}) {
    Check("AC-3", u"a.ac3"_s, Bytes({0x0B, 0x77, 0, 0, code}), rate * 125 * 60,
          {rate, frequency, u"00:01:00.000"_s, 60, int(rate * 125 * 60 / 1048576.0 + 0.5)});
  }
  for (const int code : {0x26, 0x3F, 0xC0}) Check("no AC-3", u"a.ac3"_s, Bytes({0x0B, 0x77, 0, 0, code}), 9999, kOld);
}

TEST(AudioAnalysis, MpegHeaders) {
  const struct {
    int version, third;
    int rate, frequency;
  } known[] = {
      {0xFF, 0x14, 32, 48000}, {0xFE, 0xE0, 448, 44100}, {0xFD, 0x24, 48, 48000},
      {0xFC, 0xEC, 384, 0},    {0xFB, 0xA8, 160, 32000}, {0xF7, 0xE4, 448, 0},
      {0xF5, 0x54, 80, 0},     {0xF3, 0x74, 56, 0},      {0xE0 | 30, 0x14, 32, 48000},
  };
  for (const auto& [version, third, rate, frequency] : known) {
    Check("MPEG", u"a.mp2"_s, Bytes({0xFF, version, third, 0}), rate * 125, {rate, frequency, u"00:00:01.000"_s, 1, 0});
  }
  const QByteArray unknown[] = {
      Bytes({0xFE, 0xFD, 0xA4}), Bytes({0xFF, 0xDD, 0xA4}),  // no sync
      Bytes({0xFF, 0xF9, 0xA4}),                             // layer 4
      Bytes({0xFF, 0xE5, 0xA4}),                             // version 2.5
      Bytes({0xFF, 0xFD, 0x04}), Bytes({0xFF, 0xFD, 0xF4}),  // free format, forbidden bit rate
  };
  for (const QByteArray& head : unknown) Check("no MPEG", u"a.mp2"_s, head, 9999, kOld);
}

TEST(AudioAnalysis, DurationsRoundAndWrap) {
  const QByteArray head = Bytes({0xFF, 0xFD, 0x14, 0});  // 32 kbit: 4 bytes a millisecond
  Check("half a millisecond", u"a.mp2"_s, head, 4002, {32, 48000, u"00:00:01.001"_s, 1.0005, 0});
  Check("below", u"a.mp2"_s, head, 4001, {32, 48000, u"00:00:01.000"_s, 1.0003, 0});
  Check("a carry", u"a.mp2"_s, head, 4 * 59999 + 3, {32, 48000, u"00:01:00.000"_s, 59.9998, 0});
  Check("more than a day", u"a.mp2"_s, head, 4000LL * 90061, {32, 48000, u"01:01:01.000"_s, 90061, 344});
}

TEST(AudioAnalysis, KnowsAudioByItsEnding) {
  for (const QString& name : {u"a.AC3"_s, u"a.mp2"_s, u"a.mpa"_s, u"a.m2p"_s, u"a.Dts"_s, u"a.wav"_s})
    EXPECT_TRUE(IsAudioFile(name));
  for (const QString& name : {u"a.mpg"_s, u"ac3"_s, u"a.ac3\\b"_s, u"a."_s}) EXPECT_FALSE(IsAudioFile(name));
}

}  // namespace
}  // namespace torvane
