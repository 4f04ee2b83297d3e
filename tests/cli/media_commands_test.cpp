#include <QJsonDocument>
#include <QJsonObject>

#include "cli_bench.h"
#include "media/mpeg_pieces.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;
using MediaCommandsTest = CliTest;

TEST_F(MediaCommandsTest, AnalysePrintsOneRecordALine) {
  drive_.Write(u"a.vob"_s, Sequence(720, 480, 3, 4) + SequenceExtension() + Gop(0, 0, 0, 0, true) + Pictures(30));
  drive_.Write(u"a.mp2"_s, Bytes({0xFF, 0xFD, 0xA4, 0x00}) + QByteArray(23996, '\0'));
  EXPECT_EQ(Run(uR"(analyse C:\a.vob )" + drive_.Host(u"a.mp2"_s)), kExitDone) << error_.toStdString();
  const QByteArrayList lines = out_.toUtf8().split('\n');
  ASSERT_EQ(lines.size(), 3);
  const auto record = [](const QByteArray& json) { return QJsonDocument::fromJson(json).object(); };
  const QByteArray expectedVideo = R"json({
      "Kind": "video", "Result": true, "VideoFile": "C:\\a.vob", "Size(MB)": 0, "ResH": 720, "ResV": 480,
      "Aspect": "16:9", "FPS": 29.97, "Duration": "00:00:01.00", "DurationSec": 1.001, "MpegVersion": "2", "Mux": 0,
      "MuxOK": 0, "Messages": [{"Kind": "warning", "Text": "Warning: No 'real' vob file (elementary video)."}]})json";
  EXPECT_EQ(record(lines[0]), record(expectedVideo)) << lines[0].constData();
  QJsonObject audio = record(lines[1]);
  EXPECT_TRUE(audio.take(u"AudioFile"_s).toString().endsWith(u"\\a.mp2"));
  const QByteArray expectedAudio = R"json({
      "Kind": "audio", "Result": true, "Bitrate": 192, "SampleFreq": 48000, "Duration": "00:00:01.000",
      "AudioSeconds": 1, "Size(MB)": 0})json";
  EXPECT_EQ(audio, record(expectedAudio)) << lines[1].constData();
}

TEST_F(MediaCommandsTest, AnalyseTellsWhatItDoesNotKnow) {
  drive_.Write(u"a.m2v"_s, "text");
  drive_.Write(u"a.ac3"_s, "text");
  EXPECT_EQ(Run(uR"(analyse C:\a.m2v C:\a.ac3 C:\missing.vob)"_s), kExitFailed);
  EXPECT_EQ(error_,
            u"error: No sequenz header found! C:\\a.m2v\nerror: The kind of this audio file is not known: C:\\a.ac3\n"
            "error: There is no file C:\\missing.vob\n"_s);
  EXPECT_EQ(out_.count(u"\"Result\":false"), 2) << out_.toStdString();
}

TEST_F(MediaCommandsTest, ChaptersAreReadAndMeasured) {
  drive_.Write(u"c.txt"_s, "00:10:00.12\n00:20:00.13\n");
  EXPECT_EQ(Run(uR"(chapters C:\c.txt --fps 25 --frames yes --duration 1200)"_s), kExitDone);
  EXPECT_EQ(out_, u"00:00:00.000,00:10:00.480,00:20:00.520\n"_s);
  EXPECT_TRUE(error_.endsWith(
      u"Recalculate frames? [Yes]\nwarning: The chapter 00:20:00.520 lies behind the end of the film.\n"))
      << error_.toStdString();
  EXPECT_EQ(Run(uR"(--assume no chapters C:\c.txt --fps 25)"_s), kExitDone);
  EXPECT_EQ(out_, u"00:00:00.000,00:10:00.120,00:20:00.130\n"_s);
  EXPECT_EQ(Run(uR"(chapters C:\missing.txt --fps 25)"_s), kExitFailed);
}

TEST_F(MediaCommandsTest, PalettesAreShownAndConverted) {
  drive_.Write(u"p.pal"_s, QByteArray("108080\r\n").repeated(15) + "010000\r\n");
  const QString black = u"8421392,"_s.repeated(15);
  EXPECT_EQ(Run(uR"(--assume no palette C:\p.pal)"_s), kExitDone);
  EXPECT_EQ(out_, QString(black + u"1\n" + u"0, 0, 0\n"_s.repeated(15) + u"0, 137, 0\n"));
  EXPECT_TRUE(error_.contains(u"Color15: OrigPaletteValue=010000; RGB->YCrCbValue:554E58\n")) << error_.toStdString();
  EXPECT_EQ(Run(uR"(palette C:\p.pal)"_s), kExitDone);
  EXPECT_FALSE(out_.contains(u",1\n"));
  drive_.Write(u"q.pal"_s, "text");
  EXPECT_EQ(Run(uR"(palette C:\q.pal)"_s), kExitFailed);
  EXPECT_EQ(error_, u"error: Illegal file\n"_s);
}

}  // namespace
}  // namespace torvane
