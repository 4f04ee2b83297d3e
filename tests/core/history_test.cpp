#include "core/history.h"

#include <gtest/gtest.h>

#include "core/edit.h"
#include "core/project_file.h"
#include "support/project_builder.h"
#include "support/project_state.h"
#include "support/random_changes.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::RandomChanges;
using test::WholeProject;

class HistoryTest : public ::testing::Test {
 protected:
  HistoryTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    project_.History.Reset();
  }

  void SetText(const QString& name, const QString& text) {
    Edit edit(project_, name);
    project_.Tree.SetCaption(u"MMB1Text"_s, u"Text="_s + text);
    edit.Commit();
  }

  QString Text() const { return project_.Tree.Find(u"MMB1Text"_s)->Value(5); }

  Project project_;
};

TEST_F(HistoryTest, UndoAndRedoRestoreTreeTablesCountersAndSettings) {
  const WholeProject before(project_);
  Edit edit(project_, u"Everything"_s);
  project_.Tree.Remove(u"MM1"_s);
  project_.Tree.Move(u"MMB3"_s, u"MMB1"_s, Relation::Previous);
  project_.Tree.SetTag(FilmKey(1), u"MM1"_s);
  test::AddFilm(project_, 3, MainMenuKey(), u"C:\\v\\c.m2v"_s);
  project_.Tree.Add({u"First"_s, u"in front"_s}, u"TS"_s, Relation::First);
  project_.MainSubMenuTable[1] = {};
  project_.SubMenuTable[999] = {true, 2, u"SM999"_s, u"jump"_s, u"TS2B1"_s};
  project_.CurrentMenuKey = u"TS2"_s;
  project_.CurrentTitleSet = 2;
  project_.ProjectHasVideos = true;
  project_.ProjectAspect = u"16:9"_s;
  project_.ProjectFps = 25;
  project_.Settings.VideoNormPal = false;
  FollowVideoNorm(project_.Settings);
  project_.Settings.DefTextButtonGif.RelSize = 70;
  project_.Settings.DefaultFont.Size = 31;
  project_.Settings.IntroMovie = u"C:\\intro.mpg"_s;
  edit.Commit();
  const WholeProject after(project_);

  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(project_.History.UndoName(), u"Everything"_s);
    ASSERT_TRUE(project_.History.Undo());
    EXPECT_TRUE(WholeProject(project_) == before);
    EXPECT_FALSE(project_.History.Undo());
    EXPECT_EQ(project_.History.RedoName(), u"Everything"_s);
    ASSERT_TRUE(project_.History.Redo());
    EXPECT_TRUE(WholeProject(project_) == after);
    EXPECT_FALSE(project_.History.Redo());
  }
}

TEST_F(HistoryTest, AnInnerEditJoinsTheOuterOne) {
  Edit outer(project_, u"Outer"_s);
  {
    Edit inner(project_, u"Inner"_s);
    project_.Tree.Add({u"X"_s, u"group"_s});
    inner.Commit();
  }
  EXPECT_FALSE(project_.History.Undo()) << "the outer one is still open";
  outer.Commit();
  EXPECT_EQ(project_.History.UndoCount(), 1U);
  EXPECT_EQ(project_.History.UndoName(), u"Outer"_s);
}

TEST_F(HistoryTest, TheMenuShownAndTheUsersSettingsAreNoStep) {
  {
    Edit edit(project_, u"Show"_s);
    project_.CurrentMenuKey = u"MM1"_s;
    project_.Settings.ActiveRasterX = 4;
    project_.Tree.SetCaption(u"MMB1Text"_s, u"Text="_s + Text());
    edit.Commit();
  }
  EXPECT_FALSE(project_.History.CanUndo());
  EXPECT_TRUE(project_.ProjectSaved());
  EXPECT_EQ(project_.CurrentMenuKey, u"MM1"_s);

  Edit edit(project_, u"Add film"_s);
  project_.Settings.InDir = u"D:\\videos"_s;
  project_.Settings.Engine = 1;
  edit.Commit();
  project_.History.Undo();
  EXPECT_EQ(project_.Settings.InDir, u"D:\\videos"_s);
  EXPECT_EQ(project_.Settings.Engine, 0);
}

TEST_F(HistoryTest, UndoShowsTheMenuInWhichTheEditWasMade) {
  Edit edit(project_, u"New menu"_s);
  project_.Tree.SetCaption(u"MMB1Text"_s, u"Text=x"_s);
  project_.CurrentMenuKey = u"MM1"_s;
  edit.Commit();
  for (const auto& [step, menu] : {std::pair(&History::Undo, MainMenuKey()), {&History::Redo, u"MM1"_s}}) {
    project_.CurrentMenuKey = u"elsewhere"_s;
    (project_.History.*step)();
    EXPECT_EQ(project_.CurrentMenuKey, menu);
  }
}

TEST_F(HistoryTest, KnowsWhenTheProjectIsAsSaved) {
  History& history = project_.History;
  SetText(u"1"_s, u"a"_s);
  EXPECT_FALSE(project_.ProjectSaved());
  history.MarkSaved();
  SetText(u"2"_s, u"b"_s);
  EXPECT_FALSE(project_.ProjectSaved());
  history.Undo();
  EXPECT_TRUE(project_.ProjectSaved());
  history.Undo();
  EXPECT_FALSE(project_.ProjectSaved());
  history.Redo();
  EXPECT_TRUE(project_.ProjectSaved());

  history.Undo();
  SetText(u"another way"_s, u"c"_s);
  EXPECT_FALSE(history.CanRedo());
  for (int steps = 0; steps < 2; ++steps) {
    EXPECT_FALSE(project_.ProjectSaved()) << "the saved state cannot be reached any more";
    history.Undo();
  }

  history.MarkSaved();
  history.MarkUnsaved();
  SetText(u"3"_s, u"d"_s);
  history.Undo();
  EXPECT_FALSE(project_.ProjectSaved());
}

TEST_F(HistoryTest, AChangeOutsideOfAnyEditEndsTheHistory) {
  SetText(u"1"_s, u"a"_s);
  SetText(u"2"_s, u"b"_s);
  project_.History.Undo();
  project_.Tree.Remove(u"MMB1"_s);
  EXPECT_FALSE(project_.History.CanUndo());
  EXPECT_FALSE(project_.History.CanRedo());
  EXPECT_FALSE(project_.ProjectSaved());
}

TEST_F(HistoryTest, AnotherProjectStartsAfreshEvenInsideAnEdit) {
  SetText(u"1"_s, u"a"_s);
  {
    const Edit open(project_, u"Open"_s);
    project_.Tree.SetCaption(u"MMB1Text"_s, u"Text=b"_s);
    AddDefaultProject(project_);
  }
  const WholeProject made(project_);
  EXPECT_FALSE(project_.History.CanUndo());
  EXPECT_TRUE(project_.ProjectSaved());
  Project fresh(test::FixedSettings());
  AddDefaultProject(fresh);
  EXPECT_TRUE(made == WholeProject(fresh));
}

class EventRecorder : public HistoryObserver {
 public:
  void HistoryChanged(HistoryEvent event) override { events.push_back(event); }
  std::vector<HistoryEvent> events;
};

TEST_F(HistoryTest, TellsWhatHappensOnce) {
  EventRecorder recorder;
  project_.History.AddObserver(&recorder);
  SetText(u"1"_s, u"a"_s);
  SetText(u"nothing"_s, u"a"_s);
  project_.History.Undo();
  project_.History.Redo();
  project_.History.MarkSaved();
  { const Edit edit(project_, u"Given up"_s); }
  project_.Tree.Remove(u"MMB1"_s);
  project_.Tree.Remove(u"MMB2"_s);
  project_.History.Reset();
  using enum HistoryEvent;
  EXPECT_EQ(recorder.events,
            (std::vector<HistoryEvent>{Committed, Undone, Redone, Saved, RolledBack, Changed, Reset}));
}

TEST(HistoryProperty, RandomEditsUndosAndRedosRestoreTheProjectExactly) {
  for (quint32 seed = 1; seed <= 30; ++seed) {
    Project project(test::FixedSettings());
    RandomChanges changes(project, seed);
    std::vector<WholeProject> states{WholeProject(project)};  // after 0, 1, ... steps
    std::size_t at = 0;
    for (int round = 0; round < 60; ++round) {
      switch (changes.Below(5)) {
        case 0:
          ASSERT_EQ(project.History.Undo(), at > 0);
          if (at > 0) --at;
          break;
        case 1:
          ASSERT_EQ(project.History.Redo(), at + 1 < states.size());
          if (at + 1 < states.size()) ++at;
          break;
        case 2: {
          const Edit edit(project, u"given up"_s);
          changes.Make(changes.Below(20));
          break;
        }
        default: {
          const std::size_t steps = project.History.UndoCount();
          Edit edit(project, u"kept"_s);
          changes.Make(changes.Below(20));
          edit.Commit();
          if (project.History.UndoCount() == steps && project.History.RedoCount() + at + 1 == states.size()) break;
          states.erase(states.begin() + qsizetype(++at), states.end());
          states.emplace_back(project);
        }
      }
      ASSERT_TRUE(WholeProject(project) == states[at]) << "seed " << seed << ", round " << round;
      ASSERT_EQ(project.History.UndoCount(), at);
    }
    while (project.History.Undo()) ASSERT_TRUE(WholeProject(project) == states[--at]) << "seed " << seed;
    while (project.History.Redo()) ASSERT_TRUE(WholeProject(project) == states[++at]) << "seed " << seed;
    ASSERT_EQ(at + 1, states.size());
  }
}

}  // namespace
}  // namespace torvane
