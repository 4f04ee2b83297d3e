#include "compilers/plan_check.h"
#include "compilers/author_xml.h"
#include "compilers/project_findings.h"

#include <gtest/gtest.h>

#include <functional>

#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/element_nodes.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/edit_bench.h"
#include "support/harmless_values.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::EditBench;

/// A project with titlesets: a film and an audio titleset of two tracks that can be read.
class PlanCheckTest : public testing::Test {
 protected:
  PlanCheckTest() {
    const QByteArray sound("\x0B\x77\x00\x00\x1E\x40", 6);  // AC-3, 48 kHz
    for (const QString& name : {u"1.ac3"_s, u"2.ac3"_s}) EXPECT_TRUE(HostFiles::WriteAtomically(u"C:\\" + name, sound));
    EXPECT_TRUE(HostFiles::WriteAtomically(u"C:\\m.mp2"_s, QByteArray("\xFF\xFD\xA4\x00", 4)));
  }

  static AudioTitle Track(const QString& file) { return {file, {}, {}, {}, {}, 0}; }

  const test::DriveC drive_;
};

TEST_F(PlanCheckTest, TellsWhatNoDiscCanBeMadeOf) {
  struct Case {
    std::function<void(EditBench&)> change;
    QStringList findings;
  };
  const QString songs = u"Film 2 (Songs)"_s;
  const auto addTracks = [](EditBench& bench, int count, const QString& type) {
    AddAudioTitleSet(bench.context,
                     {.Name = u"More"_s,
                      .Titles = std::vector<AudioTitle>(std::size_t(count), Track(u"C:\\1.ac3"_s)),
                      .AudioTSLayoutType = type},
                     {});
  };
  const auto addFilmsWithoutMenus = [](EditBench& bench, int count) {
    bench.project.Settings.NoMenus = true;
    for (int film = bench.project.FilmCount + 1; film <= count; ++film) {
      test::AddFilm(bench.project, film, u"MM"_s, u"C:\\a.m2v"_s);
    }
  };
  const auto addButtons = [](EditBench& bench, int count) {
    for (int i = 0; i < count; ++i) AddFreeButton(bench.context, u"x"_s, u"exit;"_s, {.menu = u"TS1"_s});
  };
  const Case cases[] = {
      {[](EditBench&) {}, {}},
      {[](EditBench& bench) { bench.project.Settings.NoTitleSets = true; },
       {songs + u" is an audio titleset, which needs a titleset of its own. Please switch titlesets on."}},
      {[](EditBench& bench) { bench.project.Tree.SetCaption(u"FPA2#02FILE"_s, u"File=C:\\m.mp2"_s); },
       {songs + u": all sound files of an audio titleset must be of one kind."}},
      {[](EditBench& bench) { bench.project.Tree.SetTag(u"FPA2"_s, u"3"_s); },
       {songs + u": the number of its tracks (3) is not that of the titles it holds (2)."}},
      {[](EditBench& bench) {
         bench.project.Settings.Engine = 1;
         for (const QString& n : {u"1"_s, u"2"_s}) {
           bench.project.Tree.SetCaption(u"FPA2#0" + n + u"FILE", u"File=C:\\" + n + u".dts");
         }
       },
       {songs + u", track 1: the playing time of C:\\1.dts is not known, so MuxMan cannot place it.",
        songs + u", track 2: the playing time of C:\\2.dts is not known, so MuxMan cannot place it."}},
      {[](EditBench& bench) { bench.project.Tree.Remove(u"TS1"_s); },
       {u"Film 1 has no titleset menu, as the project was made without titlesets. Please switch titlesets off."_s}},
      {[](EditBench& bench) {
         AddMenu(bench.context, {}, {.menu = u"TS1"_s});
         bench.project.Tree.SetTag(u"TS1M1"_s, u"SM7"_s);
         bench.project.Tree.Remove(u"SM1"_s);
       },
       {u"Menu TS1 leads to SM7, which is no submenu."_s, u"The menu SM1 is listed as a submenu but is not there."_s}},
      {[&](EditBench& bench) { addTracks(bench, 96, u"0"_s); }, {}},
      {[&](EditBench& bench) {
         addTracks(bench, 96, u"0"_s);
         bench.project.Tree.SetTag(u"FPAL2"_s, {});
         bench.project.Settings.UseIntro = true;
       },
       {u"The disc would have 100 titles; it can hold 99. Please give audio titlesets one title with chapters, or take "
        u"films out."_s}},
      {[&](EditBench& bench) { addTracks(bench, 96, u"1"_s); }, {}},
      {[&](EditBench& bench) { addFilmsWithoutMenus(bench, 63); }, {}},
      {[&](EditBench& bench) { addFilmsWithoutMenus(bench, 64); },
       {u"A disc without menus can hold 63 titlesets with dvdauthor; this one would have 64. Please switch titlesets "
        u"off or take films out."_s}},
      {[&](EditBench& bench) {
         addButtons(bench, 32);
         SetAutoAction(bench.project, u"TS1"_s, 1, AutoActions{u"l"_s, u"r"_s, u"u"_s, u"d"_s});
       },
       {u"Menu TitleSet1Menu (TS1) has 33 buttons, one of which acts at once; dvdauthor allows 32. Please take some "
        u"out."_s}},
      {[&](EditBench& bench) {
         addButtons(bench, 18);
         bench.project.Settings.DefMenuRatio = true;
       },
       {u"Menu TitleSet1Menu (TS1) has 19 buttons; dvdauthor allows 18. Please take some out."_s}},
  };
  for (const Case& c : cases) {
    EditBench bench(test::TitleSetSettings());
    AddFilm(bench.context, {.Name = u"Film"_s, .VideoFile = u"C:\\a.m2v"_s}, {});
    AddAudioTitleSet(
        bench.context,
        {.Name = u"Songs"_s, .Titles = {Track(u"C:\\1.ac3"_s), Track(u"C:\\2.ac3"_s)}, .AudioTSLayoutType = u"1"_s},
        {});
    c.change(bench);
    QStringList texts;
    for (const Finding& finding : StructureFindings(bench.project) + LimitFindings(bench.project, PlanUse::Run)) {
      texts << finding.text;
    }
    EXPECT_EQ(texts, c.findings);
  }
}

TEST_F(PlanCheckTest, WhatTheMachineLacksIsAWarningWhereNothingIsRun) {
  EditBench bench(test::TitleSetSettings());
  AddAudioTitleSet(bench.context, {.Name = u"Songs"_s, .Titles = {Track(u"C:\\no.ac3"_s)}}, {});
  struct Case {
    PlanUse use;
    bool goesOn;
    std::vector<BoxKind> boxes;
  };
  const Case cases[] = {{PlanUse::Run, false, {BoxKind::Error}},
                        {PlanUse::WriteOnly, true, {BoxKind::Warning}},
                        {PlanUse::SyntaxCheck, true, {}}};
  for (const Case& c : cases) {
    test::RecordingPrompter prompter;
    EXPECT_EQ(TellFindings(ProjectFindings(bench.project, c.use), prompter), c.goesOn);
    std::vector<BoxKind> boxes;
    for (const Box& box : prompter.boxes) boxes.push_back(box.kind);
    EXPECT_EQ(boxes, c.boxes);
  }
  bench.project.Tree.Remove(u"TS1"_s);
  test::RecordingPrompter prompter;
  EXPECT_FALSE(TellFindings(ProjectFindings(bench.project, PlanUse::WriteOnly), prompter));
}

TEST_F(PlanCheckTest, ASubmenuOfTheMainMenuHasOneType) {
  EditBench bench;
  EXPECT_FALSE(AddMenu(bench.context, {.type = u"Audio"_s}, {}));
  ASSERT_TRUE(AddMenu(bench.context, {}, {}));
  bench.project.Tree.SetCaption(u"MM1PType"_s, u"Type=Audio"_s);
  EXPECT_EQ(LimitFindings(bench.project, PlanUse::Run),
            (QList<Finding>{{Severity::Warning, u"MM1PType"_s,
                             u"Menu MainSubMenu1 (MM1) is of the type \"Audio\", which submenus of titlesets alone can "
                             u"have. It is made as an ordinary submenu."_s}}));
  EXPECT_FALSE(
      WriteAuthorXmlSingle(bench.project, AuthorMode::Run, test::Harmless(bench.project.Settings)).contains("entry="));
}

}  // namespace
}  // namespace torvane
