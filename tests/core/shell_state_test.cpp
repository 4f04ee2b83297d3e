// What the main window shows and asks, without a window.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/edit.h"
#include "core/messages.h"
#include "core/outside_tools.h"
#include "core/project_questions.h"
#include "core/recent_files.h"
#include "core/shell_texts.h"
#include "core/size_bar.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ShellTexts, TheTitleNamesEngineAndProject) {
  Project project(test::FixedSettings());
  project.ProjectFile = u"Z:\\v\\holiday.tvn"_s;
  EXPECT_EQ(WindowTitle(project), u"Torvane    Project: /v/holiday.tvn"_s);
  EXPECT_EQ(PointerTitle(WindowTitle(project), {16, 320}), u"Torvane    Project: /v/holiday.tvn X=16  Y=320"_s);
  project.Settings.Engine = 1;
  project.ProjectFile = u"Z:\\"_s + QString(100, u'd') + u"\\holiday.tvn";
  EXPECT_EQ(WindowTitle(project), u"Torvane for MuxMan    Project: /"_s + QString(63, u'd') + u" .../holiday.tvn");
  project.ProjectFile = u"Z:\\"_s + QString(100, u'n');
  EXPECT_EQ(WindowTitle(project), u"Torvane for MuxMan    Project: /"_s + QString(75, u'n') + u" ...");
}

TEST(SizeBar, ReachesAsFarAsTheDiscIsFull) {
  using Segment = SizeBar::Segment;
  using enum DiscSize;
  const auto green = [](double to) { return Segment{SizeBar::kGreen, 0, to}; };
  const auto yellow = [](double from, double to) { return Segment{SizeBar::kYellow, from, to}; };
  const auto red = [](double from, double to) { return Segment{SizeBar::kRed, from, to}; };
  const struct {
    DiscSize disc;
    int total;
    QList<Segment> segments;
  } cases[] = {
      {SingleLayer, 0, {}},
      {SingleLayer, 1000, {green(144)}},
      {SingleLayer, 4300, {green(624.96)}},
      {SingleLayer, 4350, {green(624.96), yellow(624.96, 4350 * 0.144)}},
      {SingleLayer, 4450, {green(624.96), yellow(624.96, 640.8)}},
      {SingleLayer, 4998, {green(624.96), yellow(624.96, 640.8), red(640.8, 4998 * 0.144)}},
      {SingleLayer, 100000, {green(624.96), yellow(624.96, 640.8), red(640.8, 719.928)}},
      {DualLayer, 7899, {green(7899 * 0.072)}},
      {DualLayer, 8000, {green(568.8), yellow(568.8, 576)}},
      {DualLayer, 8066, {green(568.8), yellow(568.8, 580.752)}},
      {DualLayer, 9999, {green(568.8), yellow(568.8, 580.752), red(580.752, 719.928)}},
  };
  for (const auto& [disc, total, segments] : cases) {
    const QList<Segment> made = MakeSizeBar(total, disc).segments;
    ASSERT_EQ(made.size(), segments.size()) << total;
    for (qsizetype i = 0; i < made.size(); ++i) {
      EXPECT_EQ(made[i].color, segments[i].color) << total;
      EXPECT_NEAR(made[i].from, segments[i].from, 1e-9) << total;
      EXPECT_NEAR(made[i].to, segments[i].to, 1e-9) << total;
    }
  }
}

TEST(RecentFilesList, KeepsTheLatestNineThatExist) {
  const QTemporaryDir dir;
  const QString root = HostFiles::ToDos(dir.path());
  const auto path = [&root](int i) { return u"%1\\p%2.tvn"_s.arg(root).arg(i); };
  QStringList all;
  for (int i = 0; i < 11; ++i) {
    ASSERT_TRUE(HostFiles::WriteAtomically(path(i), "x"));
    all.prepend(path(i));
  }
  const SettingsStore store(root);
  ASSERT_TRUE(store.Write({{u"RasterX"_s, u"7"_s}}));
  RecentFiles recent(store);
  EXPECT_EQ(recent.Paths(), QStringList());
  for (int i = 0; i < 11; ++i) ASSERT_TRUE(recent.Add(path(i)));
  EXPECT_EQ(recent.Paths(), all.first(9));
  EXPECT_EQ(RecentFiles(store).Paths(), recent.Paths());

  ASSERT_TRUE(recent.Add(path(5).toUpper()));
  ASSERT_TRUE(recent.Remove(path(9).toUpper()));
  EXPECT_TRUE(HostFiles::RemoveFile(path(8)));
  const QStringList left{path(5).toUpper(), path(10), path(7), path(6), path(4), path(3), path(2)};
  EXPECT_EQ(RecentFiles(store).Paths(), left);
  EXPECT_EQ(store.Read()->value(u"RasterX"_s), u"7"_s);

  Settings settings;
  RecentFiles(store).CopyTo(settings);
  EXPECT_EQ((QStringList{settings.MRUFILE0, settings.MRUFILE6, settings.MRUFILE7, settings.MRUFILE9}),
            (QStringList{left[0], left[6], QString(), QString()}));
}

TEST(OutsideTools, WhatIsMissingIsToldOneByOne) {
  Settings settings = test::FixedSettings();
  QStringList asked;
  bool isThere = false;
  const ToolLookup lookup{.hasTool = [&](const QString& path) { asked << path; return isThere; },
                          .hasAviSynth = [&] { return isThere; },
                          .hasAviSynthPlugins = [&] { return isThere; }};
  const auto told = [&] {
    test::RecordingPrompter prompter;
    CheckOutsideTools(settings, lookup, prompter);
    return prompter.Told();
  };
  EXPECT_EQ(told(), (QStringList{u"Warning: AviSynth not found!"_s, u"Warning: AviSynth plugindir not found!"_s,
                                 u"Warning: DGIndex.exe not found in C:\\tools !"_s,
                                 u"Warning: DGDecode.dll not found in C:\\tools !"_s,
                                 u"Warning: HCenc.exe not found in C:\\tools !"_s}));
  isThere = true;
  settings.AniEncoder = u"QuEnc"_s;
  asked.clear();
  EXPECT_EQ(told(), QStringList());
  EXPECT_EQ(asked, (QStringList{u"C:\\tools\\DGIndex.exe"_s, u"C:\\tools\\DGDecode.dll"_s, u"C:\\tools\\QuEnc.exe"_s}));
  EXPECT_EQ(MainToolPath(settings), u"C:\\tools\\dvdauthor.exe"_s);
  settings.Engine = 1;
  EXPECT_EQ(MainToolPath(settings), u"C:\\tools\\muxman.exe"_s);
}

TEST(ProjectQuestions, ClosingAsksOnlyAboutChangesThatWouldBeLost) {
  using enum Closing;
  const struct {
    bool ask;
    bool changed;
    bool named;
    Answer answer;
    Closing result;
  } cases[] = {
      {false, true, true, Answer::Cancel, Closes},
      {true, false, true, Answer::Cancel, Closes},
      {true, true, true, Answer::Cancel, Stays},
      {true, true, true, Answer::No, Closes},
      {true, true, true, Answer::Yes, SavesAndCloses},
      {true, true, false, Answer::Yes, SavesUnderNewNameAndCloses},
  };
  for (const auto& [ask, changed, named, answer, result] : cases) {
    Settings settings;
    settings.AskForSave = ask;
    Project project(settings);
    AddDefaultProject(project);
    project.ProjectNamed = named;
    if (changed) project.History.MarkUnsaved();
    test::RecordingPrompter prompter({answer});
    EXPECT_EQ(AskBeforeClosing(project, prompter), result);
    EXPECT_EQ(prompter.boxes.size(), ask && changed ? 1U : 0U);
  }
}

TEST(ProjectQuestions, AnEmptyProjectIsReplacedWithoutAQuestion) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::RecordingPrompter prompter({Answer::No, Answer::Yes});
  EXPECT_TRUE(MayReplaceProject(project, prompter));
  EXPECT_TRUE(prompter.boxes.empty());
  project.Tree.Add({u"MML37"_s, u"Label1"_s}, u"MML"_s, Relation::Child);
  EXPECT_FALSE(MayReplaceProject(project, prompter));
  AddDefaultProject(project);
  project.ProjectHasVideos = true;
  EXPECT_TRUE(MayReplaceProject(project, prompter));
  ASSERT_EQ(prompter.boxes.size(), 2U);
  EXPECT_EQ(prompter.boxes[0].text, u"Cancel current project?"_s);
}

}  // namespace
}  // namespace torvane
