#include "compilers/audio_titleset.h"

#include <gtest/gtest.h>

#include "compilers/scene_time.h"
#include "compilers/video_batch.h"
#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/project_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::ExpectGolden;

AudioTitle Track(const QString& file) {
  return {file, u"Artist"_s, u"Album"_s, u"Title"_s, u"C:\\v\\i.jpg"_s, 0};
}

class AudioTitlesetTest : public testing::Test {
 protected:
  AudioTitlesetTest() : project_(test::FixedSettings()) {
    AddDefaultProject(project_);
    AddAudioTitleSetSubtree(
        project_, {.Name = u"A"_s, .Titles = {Track(u"C:\\v\\1.ac3"_s), Track(u"C:\\v\\Lied ä.ac3"_s)}}, u"MM"_s, 1);
    AddAudioTitleSetSubtree(project_, {.Name = u"B"_s, .Titles = {Track(u"C:\\v\\3.mp2"_s)}}, u"MM"_s, 2);
  }
  Project project_;
};

TEST_F(AudioTitlesetTest, TheVideoBatchMakesAFilmOfEachTrack) {
  ExpectGolden(WriteVideoBatch(project_, test::Harmless(project_.Settings)).batch, u"songs.bat"_s);

  project_.Settings.DefMenuRatio = true;
  project_.Settings.VideoNormPal = false;
  const QList<QByteArray> encoding =
      test::LinesWith(WriteVideoBatch(project_, test::Harmless(project_.Settings)).batch, "mpeg2enc");
  EXPECT_EQ(encoding[2], R"("C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 29.97 -j "C:\T\FPA2#01.png" | )"
                         R"("C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 7000 -a 3 -o "C:\T\TempAudioMpg\FPA2#01.m2v")");
}

TEST_F(AudioTitlesetTest, TheSegmentForMuxMan) {
  project_.Settings.Engine = 1;
  project_.Settings.DefMenuRatio = true;
  project_.Settings.Def169Mode = 1;
  ExpectGolden(WriteAudioSegment(project_, 1, {{u"00:00:03.420"_s, 3.42}, {u"00:01:00.000"_s, 60}}),
               u"songs_segment.mxp"_s);
  const std::tuple<bool, int, QByteArray> modes[] = {
      {true, 0, "Only Letterbox"}, {true, 1, "P/S and LB"}, {true, 2, "Only Panscan"}, {false, 2, "4:3"}};
  for (const auto& [wide, mode, text] : modes) {
    project_.Settings.DefMenuRatio = wide;
    project_.Settings.Def169Mode = mode;
    EXPECT_EQ(test::LinesWith(WriteAudioSegment(project_, 2, {{u"00:00:01.000"_s, 1}}), "Display Mode"),
              QList<QByteArray>{"Display Mode=" + text});
  }
}

TEST(TrackClock, RoundsUpUntilAFrameIsTooMuch) {
  using Times = std::vector<std::pair<AudioTrackTime, TrackClock::Play>>;
  const std::pair<double, Times> cases[] = {
      {25, {{{u"00:00:03.000"_s, 3}, {u"00:00:03:0"_s, 3}}}},
      {25, {{{u"00:00:03.990"_s, 3.99}, {u"00:00:04:00"_s, 4}}}},
      {25, {{{u"00:03:59.985"_s, 239.985}, {u"00:04:00:00"_s, 240}}}},
      {25,
       {{{u"00:00:10.420"_s, 10.42}, {u"00:00:10:11"_s, 10.44}},
        {{u"00:00:20.420"_s, 20.42}, {u"00:00:20:11"_s, 20.44}},
        {{u"00:00:30.420"_s, 30.42}, {u"00:00:30:10"_s, 30.4}},
        {{u"00:00:40.420"_s, 40.42}, {u"00:00:40:11"_s, 40.44}}}},
      {29.97, {{{u"00:00:01.100"_s, 1.1}, {u"00:00:01:3"_s, 1 + 3 / 29.97}}}},
      {29.97, {{{u"00:59:59.990"_s, 3599.99}, {u"01:00:00:00"_s, 3600}}}},
      {25, {{{u"12"_s, 12}, {u"12:00:00:00"_s, 0}}, {{u"01:12"_s, 72}, {u"01:12:00:00"_s, 0}}}},
  };
  for (const auto& [rate, times] : cases) {
    TrackClock clock(rate);
    for (const auto& [track, play] : times) {
      const TrackClock::Play found = clock.TrackTimeCode(track);
      EXPECT_EQ(found.TimeCode, play.TimeCode) << track.Duration.toStdString();
      EXPECT_DOUBLE_EQ(found.Exact, play.Exact) << track.Duration.toStdString();
    }
  }
}

TEST(ChapterToSceneTime, GivesTheFrameOfATime) {
  const std::tuple<QString, double, QString> cases[] = {
      {u"00:00:00.000"_s, 25, u"00:00:00:0"_s},
      {u"00:10:00"_s, 25, u"00:10:00:00"_s},
      {u"01:02"_s, 25, u"01:02:00:00"_s},
      {u"00:01:02.200"_s, 25, u"00:01:02:5"_s},
      {u"00:01:02.999"_s, 25, u"00:01:02:24"_s},
      {u"00:01:02.500"_s, 24, u"00:01:02:12"_s},
      {u"00:01:02.041"_s, 24, u"00:01:02:1"_s},
      {u"00:59:59.999"_s, 24, u"01:00:00:0"_s},
      {u"00:00:00.000"_s, 29.97, u"00:00:00:0"_s},
      {u"00:00:10.000"_s, 29.97, u"00:00:10:0"_s},      // 10010.01 ms
      {u"00:00:20.000"_s, 29.97, u"00:00:20:1"_s},      // 20020.02 ms, more than half a frame
      {u"00:10:00.000"_s, 29.97, u"00:10:00:18"_s},     // 600600.60 ms
      {u"00:00:00.985"_s, 29.97, u"00:00:01:0"_s},      // 985.99 ms, the next second
      {u"00:00:00.970"_s, 29.97, u"00:00:00:29"_s},     // 970.97 ms
      {u"23:59:00.000"_s, 29.97003, u"00:00:26:13"_s},  // past midnight
  };
  for (const auto& [time, rate, scene] : cases) {
    EXPECT_EQ(ChapterToSceneTime(time, rate), scene) << time.toStdString() << ' ' << rate;
  }
}

}  // namespace
}  // namespace torvane
