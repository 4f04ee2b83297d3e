#include "designer/shrink.h"

#include <gtest/gtest.h>

#include "core/film_record.h"
#include "support/edit_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Films of 1000 MB and 2000 MB of video that can be shrunk, one of MPEG-1 and one that is multiplexed.
void AddFilms(Project& project) {
  FilmRecord film{.SizeMB = 1000, .MpegVersion = u"2"_s, .TotalSize = 1100, .FilmMux = 1};
  AddFilmSubtree(project, film, MainMenuKey(), 1);
  film.SizeMB = 2000;
  film.TotalSize = 2100;
  AddFilmSubtree(project, film, MainMenuKey(), 2);
  film.MpegVersion = u"1"_s;
  AddFilmSubtree(project, film, MainMenuKey(), 3);
  film.MpegVersion = u"2"_s;
  film.FilmMux = 0;
  AddFilmSubtree(project, film, MainMenuKey(), 4);
}

TEST(Shrink, FitsTheProjectToADiscAndBack) {
  test::EditBench bench;
  AddFilms(bench.project);
  bench.project.History.Reset();
  // 200 + 2100 + 2100 MB and 1 MB of menus cannot be lost.
  ASSERT_TRUE(ShrinkToSize(bench.context, u"5901"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"Set shrink factors to 50%?"_s));
  EXPECT_EQ(bench.Captions(u"FPVShrinkTo1 FPTS1"_s), QStringList({u"ShrinkTo(MB)=500"_s, u"TotalSize(MB)=600"_s}));
  EXPECT_EQ(bench.project.Tree.Find(u"FPVTime2"_s)->Next()->Caption(), u"ShrinkTo(MB)=1000");
  EXPECT_EQ(bench.Captions(u"FPVShrinkTo3 FPVShrinkTo4 TS"_s),
            QStringList({u"(none)"_s, u"(none)"_s, u"TotalSize(MB)=5901"_s}));

  ASSERT_TRUE(ShrinkToSize(bench.context, u"5151"_s));
  EXPECT_EQ(bench.Captions(u"FPVShrinkTo1 FPTS1 TS"_s),
            QStringList({u"ShrinkTo(MB)=250"_s, u"TotalSize(MB)=350"_s, u"TotalSize(MB)=5151"_s}));

  bench.Told();
  ASSERT_TRUE(ShrinkToSize(bench.context, u"99999"_s));
  EXPECT_EQ(bench.Told(), QStringList(u"Target size > actual size\r\nReset all shrink factors?"_s));
  EXPECT_EQ(bench.Captions(u"FPVShrinkTo1 FPTS2 TS"_s),
            QStringList({u"(none)"_s, u"TotalSize(MB)=2100"_s, u"TotalSize(MB)=7401"_s}));
}

TEST(Shrink, RefusesWhatCannotBe) {
  test::EditBench bench;
  EXPECT_FALSE(ShrinkToSize(bench.context, u"4400"_s));
  AddFilms(bench.project);
  for (const QString& target : {u"9"_s, u"100000"_s, u"much"_s, u"4700"_s}) {
    EXPECT_FALSE(ShrinkToSize(bench.context, target)) << target.toStdString();
  }
  EXPECT_EQ(bench.Told(), QStringList({u"Wrong number"_s, u"Wrong number"_s, u"Wrong number"_s,
                                       u"New video size must be greater than 10% of current Video size"_s}));
  bench.prompter = test::RecordingPrompter({Answer::No});
  EXPECT_FALSE(ShrinkToSize(bench.context, u"5901"_s));
  EXPECT_EQ(bench.project.History.UndoCount(), 0U);
}

}  // namespace
}  // namespace torvane
