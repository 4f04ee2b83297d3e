#include "compilers/video_batch.h"

#include <gtest/gtest.h>

#include "compilers/subtitle_files.h"
#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/project_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::AddNode;
using test::ExpectGolden;
using test::WithCrLf;

class VideoBatchTest : public testing::Test {
 protected:
  VideoBatchTest() : project_(test::FixedSettings()) { test::BuildTwoFilms(project_); }
  Project project_;
};

TEST_F(VideoBatchTest, MultiplexesWhatIsNotMultiplexed) {
  AddNode(project_, u"FP1"_s, u"FP1A1|Audio1=C:\\v\\a.ac3"_s);
  AddNode(project_, u"FP1"_s, u"FP2A1|Audio2=C:\\v\\100% Größe.mp2"_s);
  AddNode(project_, u"FP1"_s, u"FPAD1|AudioDelay=-120"_s);
  project_.Tree.SetCaption(u"FPMux2"_s, u"Mux=0"_s);
  const VideoBatch video = WriteVideoBatch(project_, test::Harmless(project_.Settings));
  EXPECT_EQ(video.batch, WithCrLf("@echo off\necho.\necho (shrink and) mux video and audio files\n"
                                  "\"C:\\tools\\mplex.exe\" -M -f 8 -O -120ms -o \"C:\\T\\Film1.mpg\" \"C:\\v\\a.m2v\" "
                                  "\"C:\\v\\a.ac3\" \"C:\\v\\100%% Gr\x94\xE1"
                                  "e.mp2\"\n"));
  EXPECT_TRUE(video.controlFiles.empty());
}

TEST_F(VideoBatchTest, ShrinksAndAddsSubtitles) {
  project_.Settings.ShortDVDALog = true;
  AddNode(project_, u"FPV1"_s, u"FPVShrinkTo1|ShrinkTo(MB)=80"_s);
  AddNode(project_, u"FP1"_s, u"FPS1|SubColors=8421392,65535,0,1193046"_s);
  AddNode(project_, u"FP1"_s, u"FP1S1|SubTitel1=C:\\v\\a.srt"_s);
  AddNode(project_, u"FP1"_s, u"FP1SF1|SubFormatStr1=UTF-8/28.0/arial.ttf/center/bottom/60/60/30/30/25/25/720/576"_s);
  AddNode(project_, u"FP1"_s, u"FP2S1|SubTitel2=C:\\v\\b.SUP"_s);
  project_.Tree.SetCaption(u"FPMux2"_s, u"Mux=0"_s);
  AddNode(project_, u"FP2"_s, u"FPSA2|AddSubStream=2"_s);
  AddNode(project_, u"FP2"_s, u"FP1S2|SubTitel1=C:\\v\\c.srt"_s);
  const VideoBatch video = WriteVideoBatch(project_, test::Harmless(project_.Settings));
  ExpectGolden(video.batch, u"shrink_subtitles.bat"_s);
  ASSERT_EQ(video.palettes.size(), 1U);
  EXPECT_EQ(video.palettes[0].path, u"C:\\T\\Film1.pal"_s);
  EXPECT_EQ(video.palettes[0].content, "108080\r\nFFFF00\r\n000000\r\n563412\r\n");
  ASSERT_EQ(video.controlFiles.size(), 2U);
  EXPECT_EQ(video.controlFiles[0].path, u"C:\\T\\Spu1Sub1.xml"_s);
  ExpectGolden(video.controlFiles[0].content, u"subtitles.xml"_s);
  EXPECT_EQ(video.controlFiles[1].path, u"C:\\T\\Spu1Sub2.xml"_s);
}

TEST_F(VideoBatchTest, ShrinkFactorRoundsHalvesUp) {
  struct Case {
    QString size, target;
    QByteArray factor;
  };
  for (const Case& c : {Case{u"33"_s, u"32"_s, "1.0313"},
                        {u"20001"_s, u"20000"_s, "1.0001"},
                        {u"20003"_s, u"20000"_s, "1.0002"},
                        {u"1"_s, u"3"_s, "0.3333"},
                        {u"2"_s, u"3"_s, "0.6667"},
                        {u"700"_s, u"1"_s, "700.0000"}}) {
    Project project(test::FixedSettings());
    test::BuildTwoFilms(project);
    project.Tree.SetCaption(u"FPVSize1"_s, u"Size(MB)="_s + c.size);
    AddNode(project, u"FPV1"_s, u"FPVShrinkTo1|ShrinkTo(MB)="_s + c.target);
    EXPECT_EQ(
        test::LinesWith(WriteVideoBatch(project, test::Harmless(project.Settings)).batch, "requant"),
        QList<QByteArray>{"\"C:\\tools\\requant.exe\" " + c.factor + " \"C:\\v\\a.m2v\" \"C:\\T\\Film1_req.mpv\""});
  }
  AddNode(project_, u"FPV1"_s, u"FPVShrinkTo1|ShrinkTo(MB)=-1"_s);
  EXPECT_FALSE(WriteVideoBatch(project_, test::Harmless(project_.Settings)).batch.contains("requant"));
}

TEST_F(VideoBatchTest, MultiplexesAnIntroThatIsNoProgramStream) {
  project_.Settings.UseIntro = true;
  project_.Settings.IntroMovie = u"C:\\v\\i.m2v"_s;
  project_.Settings.IntroAudio = u"C:\\v\\i.ac3"_s;
  EXPECT_EQ(
      test::LinesWith(WriteVideoBatch(project_, test::Harmless(project_.Settings)).batch, "intro"),
      QList<QByteArray>{"\"C:\\tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\intro.mpg\" \"C:\\v\\i.m2v\" \"C:\\v\\i.ac3\""});
  project_.Settings.IntroMovie = u"C:\\v\\i.MPG"_s;
  EXPECT_FALSE(WriteVideoBatch(project_, test::Harmless(project_.Settings)).batch.contains("intro"));
}

}  // namespace
}  // namespace torvane
