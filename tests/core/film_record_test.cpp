#include "core/film_record.h"

#include <gtest/gtest.h>

#include "support/project_builder.h"
#include "support/tree_dump.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

FilmRecord PlainFilm() {
  FilmRecord film;
  film.Name = u"Holiday"_s;
  film.VideoFile = u"C:\\v\\Holiday.m2v"_s;
  film.SizeMB = 1000;
  film.ResH = 720;
  film.ResV = 576;
  film.FPS = 29.97;
  film.Aspect = u"16:9"_s;
  film.Duration = u"01:00:00.00"_s;
  film.DurationSec = 3600.126;
  film.MpegVersion = u"2"_s;
  film.TotalSize = 1039;
  return film;
}

FilmRecord FullFilm() {
  FilmRecord film = PlainFilm();
  film.ShrinkTo = 800;
  film.Audio = {u"C:\\v\\1.ac3"_s, u"C:\\v\\2.ac3"_s, u"C:\\v\\3.ac3"_s};
  film.AudioDelay = -40;
  film.SubColors = u"1,2,3"_s;
  film.AddSubStream = 2;
  film.SubTitel = {u"C:\\v\\1.srt"_s, u"C:\\v\\2.srt"_s, u"C:\\v\\3.srt"_s};
  film.SubFormatStr = {u"a"_s, u"b"_s, u"c"_s};
  film.AutoStartSubs = true;
  film.Chapters = u"00:00:00.000,00:10:00.000"_s;
  film.LanguageTags = u"EN,  ,  ,DE,  ,  "_s;
  film.MuxOK = 1;
  film.Animated = 2;
  film.PreAction = u"pre;"_s;
  film.PostAction = u"post;"_s;
  film.UOP = u"3E0"_s;
  return film;
}

const QString kFullNodes =
    uR"(F1|Film1|MM2|1
 FP1|Name=Holiday|5|7
  FPV1|Video=C:\v\Holiday.m2v|2|6
   FPVSize1|Size(MB)=1000||1
   FPVResH1|ResH=720||2
   FPVResV1|ResV=576||2
   FPVFps1|FPS=29.97||2
   FPVAspect1|Aspect=16:9||2
   FPVTime1|Duration=01:00:00.00|360013|2
   FPVShrinkTo1|ShrinkTo(MB)=800||2
  FP1A1|Audio1=C:\v\1.ac3||1
  FP2A1|Audio2=C:\v\2.ac3||1
  FP3A1|Audio3=C:\v\3.ac3||1
  FPAD1|AudioDelay=-40||1
  FPS1|SubColors=1,2,3||1
  FPSA1|AddSubStream=2||1
  FP1S1|SubTitel1=C:\v\1.srt||1
  FP1SF1|SubFormatStr1=a|1|1
  FP2S1|SubTitel2=C:\v\2.srt||1
  FP2SF1|SubFormatStr2=b||1
  FP3S1|SubTitel3=C:\v\3.srt||1
  FP3SF1|SubFormatStr3=c||1
  FPCH1|Chapters=00:00:00.000,00:10:00.000||1
  FPTS1|TotalSize(MB)=1039||1
  FPLang1|LanguageTags=EN,  ,  ,DE,  ,  ||1
  FPMux1|Mux=1|1|1
  FPAni1|Animated=2|MM2|1
  FPPreAct1|Pre Action=pre;||1
  FPPostAct1|Post Action=post;||1
  FPUOP1|UOP=3E0||1
)"_s;

const QString kPlainNodes =
    uR"(F1|Film1|MM2|1
 FP1|Name=Holiday|5|7
  FPV1|Video=C:\v\Holiday.m2v|2|6
   FPVSize1|Size(MB)=1000||1
   FPVResH1|ResH=720||2
   FPVResV1|ResV=576||2
   FPVFps1|FPS=29.97||2
   FPVAspect1|Aspect=16:9||2
   FPVTime1|Duration=01:00:00.00|360013|2
  FPCH1|Chapters=00:00:00.000||1
  FPTS1|TotalSize(MB)=1039||1
  FPMux1|Mux=1|0|1
  FPAni1|Animated=0|MM2|1
)"_s;

TEST(FilmRecord, HasItsNodesInStoredOrder) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  EXPECT_EQ(AddFilmSubtree(project, FullFilm(), u"MM2"_s, 5), 1);
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kFullNodes);
  EXPECT_EQ(project.FilmCount, 1);
  EXPECT_EQ(project.Tree.LastRoot()->Key(), u"F1");
}

TEST(FilmRecord, GainsAndLosesConditionalNodesAtTheirPlaces) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  AddFilmSubtree(project, PlainFilm(), u"MM2"_s, 5);
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kPlainNodes);
  WriteFilmNodes(project.Tree, 1, FullFilm());
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kFullNodes);
  WriteFilmNodes(project.Tree, 1, PlainFilm());
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kPlainNodes);
}

TEST(FilmRecord, FillsGapsBetweenConditionalNodes) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  FilmRecord film = FullFilm();
  film.Audio[1].clear();
  film.SubTitel[0].clear();
  film.PreAction.clear();
  film.UOP = u"0"_s;
  AddFilmSubtree(project, film, u"MM2"_s, 5);
  EXPECT_FALSE(project.Tree.Contains(u"FPUOP1"_s));
  WriteFilmNodes(project.Tree, 1, FullFilm());
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kFullNodes);
}

TEST(FilmRecord, ReadsBackWhatWasWritten) {
  for (FilmRecord film : {PlainFilm(), FullFilm()}) {
    Project project(test::FixedSettings());
    AddDefaultProject(project);
    AddFilmSubtree(project, film, MainMenuKey(), 1);
    film.DurationSec = 3600.13;  // kept in hundredths
    EXPECT_EQ(ReadFilmNodes(project.Tree, 1), film);
  }
}

}  // namespace
}  // namespace torvane
