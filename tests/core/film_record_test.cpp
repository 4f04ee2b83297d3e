#include "core/film_record.h"

#include <gtest/gtest.h>

#include "support/golden.h"
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

class FilmRecordTest : public testing::Test {
 protected:
  FilmRecordTest() { AddDefaultProject(project_); }

  void ExpectNodes(const QString& golden) {
    test::ExpectGolden(test::DumpTree(project_.Tree, u"F1"_s).toUtf8(), golden);
  }

  Project project_{test::FixedSettings()};
};

TEST_F(FilmRecordTest, GainsAndLosesConditionalNodesAtTheirPlaces) {
  EXPECT_EQ(AddFilmSubtree(project_, FullFilm(), u"MM2"_s, 5), 1);
  EXPECT_EQ(project_.FilmCount, 1);
  EXPECT_EQ(project_.Tree.LastRoot()->Key(), u"F1");
  ExpectNodes(u"whole_film.tree"_s);
  WriteFilmNodes(project_.Tree, 1, PlainFilm());
  ExpectNodes(u"plain_film.tree"_s);
  WriteFilmNodes(project_.Tree, 1, FullFilm());
  ExpectNodes(u"whole_film.tree"_s);
}

TEST_F(FilmRecordTest, FillsGapsBetweenConditionalNodes) {
  FilmRecord film = FullFilm();
  film.Audio[1].clear();
  film.SubTitel[0].clear();
  film.PreAction.clear();
  film.UOP = u"0"_s;
  AddFilmSubtree(project_, film, u"MM2"_s, 5);
  EXPECT_FALSE(project_.Tree.Contains(u"FPUOP1"_s));
  WriteFilmNodes(project_.Tree, 1, FullFilm());
  ExpectNodes(u"whole_film.tree"_s);
}

TEST_F(FilmRecordTest, ReadsBackWhatWasWritten) {
  for (FilmRecord film : {PlainFilm(), FullFilm()}) {
    const int number = AddFilmSubtree(project_, film, MainMenuKey(), 1);
    film.DurationSec = 3600.13;  // kept in hundredths
    EXPECT_EQ(ReadFilmNodes(project_.Tree, number), film);
  }
}

}  // namespace
}  // namespace torvane
