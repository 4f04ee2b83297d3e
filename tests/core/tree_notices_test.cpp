#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSortFilterProxyModel>
#include <QTemporaryDir>
#include <algorithm>

#include "core/edit.h"
#include "core/project_file.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/random_changes.h"
#include "support/recording_prompter.h"
#include "support/tree_model.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::TreeModel;
using test::WholeProject;

/// Writes down what it hears: "(" for EditBegan, "-" and "+" with the key for a change, ")" for EditEnded, "!" for what
/// happened to the history. Each may be given something to do at its first of one of these.
class Listener : public TreeObserver, public HistoryObserver {
 public:
  explicit Listener(Project& listenedTo) : project(listenedTo) {
    project.Tree.AddObserver(this);
    project.History.AddObserver(this);
  }
  ~Listener() override {
    project.Tree.RemoveObserver(this);
    project.History.RemoveObserver(this);
  }
  Q_DISABLE_COPY_MOVE(Listener)

  void EditBegan() override { Hear(u"("_s); }
  void TreeWillChange(const TreeChange& change) override { Hear(u"-"_s, change.key); }
  void TreeChanged(const TreeChange& change) override { Hear(u"+"_s, change.key); }
  void EditEnded() override { Hear(u")"_s); }
  void HistoryChanged(HistoryEvent /*event*/) override { Hear(u"!"_s); }

  Project& project;
  QString heard;
  QString trigger;
  std::function<void()> act;

 private:
  void Hear(const QString& what, const QString& key = {}) {
    heard += what + key;
    // Nothing of this object is touched behind the call, which may delete it.
    if (what == trigger && act) std::exchange(act, nullptr)();
  }
};

class TreeNoticesTest : public ::testing::Test {
 protected:
  TreeNoticesTest() : project_(test::FixedSettings()) {}

  void AddNode(const QString& key) { project_.Tree.Add({.Key = key, .Caption = key}); }
  void AddInEdit(const QString& key) {
    Edit edit(project_, u"Add"_s);
    AddNode(key);
    edit.Commit();
  }

  Project project_;
};

TEST_F(TreeNoticesTest, AnEditWithAllInItIsOneGroupAndSoIsWhateverElseChangesTheTree) {
  Listener listener(project_);
  const auto check = [&](const char* expected) {
    EXPECT_EQ(std::exchange(listener.heard, {}).toStdString(), expected);
  };
  {
    Edit outer(project_, u"Outer"_s);
    AddInEdit(u"a"_s);
    project_.Tree.SetCaption(u"a"_s, u"a"_s);
    AddInEdit(u"b"_s);
    outer.Commit();
    check("(-a+a-b+b!)");
  }
  project_.History.Undo();
  check("(-b+b-a+a!)");
  project_.History.Redo();
  check("(-a+a-b+b!)");
  {
    const Edit edit(project_, u"Given up"_s);
    AddNode(u"c"_s);
  }
  check("(-c+c-c+c!)");
  AddNode(u"d"_s);
  check("(-d+d!)");

  QTemporaryDir dir;
  test::RecordingPrompter prompter;
  project_.ProjectFile = HostFiles::ToDos(dir.path()) + u"\\p.tvn"_s;
  ASSERT_TRUE(SaveProject(project_, prompter));
  check("!");
  ASSERT_TRUE(LoadProject(project_, project_.ProjectFile, prompter));
  check("(-+!-a+a-b+b-d+d!)");
}

TEST_F(TreeNoticesTest, ObserversComeLeaveAndEndInTheMiddle) {
  struct Case {
    const char* trigger;
    void (*act)(std::unique_ptr<Listener>& self, std::unique_ptr<Listener>& other);
    const char* self;   ///< what each has heard in the end; "gone" when it is no more
    const char* other;  ///< which stands behind the first in the list
  };
  const auto leave = [](std::unique_ptr<Listener>& self, auto&) { self->project.Tree.RemoveObserver(self.get()); };
  const auto end = [](std::unique_ptr<Listener>& self, auto&) { self.reset(); };
  const auto endOther = [](auto&, std::unique_ptr<Listener>& other) { other.reset(); };
  const auto returnAtOnce = [](std::unique_ptr<Listener>& self, auto&) {
    self->project.Tree.RemoveObserver(self.get());
    self->project.Tree.AddObserver(self.get());
  };
  const auto replaceOther = [](std::unique_ptr<Listener>& self, std::unique_ptr<Listener>& other) {
    other = std::make_unique<Listener>(self->project);
  };
  const Case cases[] = {
      {"-", leave, "(-a!!", "(-a+a-b+b!)(-c+c!)"},
      {"+", end, "gone", "(-a+a-b+b!)(-c+c!)"},
      {"(", end, "gone", "(-a+a-b+b!)(-c+c!)"},
      {")", end, "gone", "(-a+a-b+b!)(-c+c!)"},
      {"!", end, "gone", "(-a+a-b+b!)(-c+c!)"},
      {"-", endOther, "(-a+a-b+b!)(-c+c!)", "gone"},
      {"-", returnAtOnce, "(-a-b+b!(-c+c!)", "(-a+a-b+b!)(-c+c!)"},
      {"(", replaceOther, "(-a+a-b+b!)(-c+c!)", "-a+a-b+b!(-c+c!)"},
      {"+", replaceOther, "(-a+a-b+b!)(-c+c!)", "-b+b!(-c+c!)"},
      {"!", replaceOther, "(-a+a-b+b!)(-c+c!)", "(-c+c!)"},
  };
  for (const Case& c : cases) {
    Project project(test::FixedSettings());
    auto self = std::make_unique<Listener>(project);
    auto other = std::make_unique<Listener>(project);
    self->trigger = QLatin1String(c.trigger);
    self->act = [&] { c.act(self, other); };
    for (const QStringList& keys : {QStringList{u"a"_s, u"b"_s}, {u"c"_s}}) {
      Edit edit(project, u"Add"_s);
      for (const QString& key : keys) project.Tree.Add({.Key = key, .Caption = key});
      edit.Commit();
    }
    const auto heard = [](const auto& listener) { return listener ? listener->heard.toStdString() : "gone"; };
    EXPECT_EQ(heard(self), c.self) << c.trigger << " of case " << &c - cases;
    EXPECT_EQ(heard(other), c.other) << c.trigger << " of case " << &c - cases;
  }
}

TEST_F(TreeNoticesTest, NothingIsChangedFromInsideANotice) {
  for (const char* trigger : {"(", "-", "+", "!", ")"}) {
    Project project(test::FixedSettings());
    for (int i = 0; i < 3; ++i) {
      Edit edit(project, u"Add"_s);
      project.Tree.Add({.Key = QString::number(i), .Caption = u"x"_s});
      edit.Commit();
    }
    project.History.Undo();
    const WholeProject before(project);
    Listener listener(project);
    listener.trigger = QLatin1String(trigger);
    bool acted = false;
    listener.act = [&] {
      acted = true;
      EXPECT_FALSE(project.History.Undo() || project.History.Redo()) << trigger;
      const Edit edit(project, u"Inside"_s);
      if (project.Tree.IsTelling()) {
        EXPECT_FALSE(project.Tree.Add({u"new"_s, u"x"_s}) || project.Tree.Remove(u"0"_s) ||
                     project.Tree.Move(u"0"_s, u"1"_s, Relation::Next) || project.Tree.SetTag(u"0"_s, u"y"_s) ||
                     project.Tree.SetCaption(u"0"_s, u"y"_s));
        project.Tree.Clear();
      }
    };
    ASSERT_TRUE(project.History.Undo());
    EXPECT_TRUE(acted);
    ASSERT_TRUE(project.History.Redo());
    EXPECT_TRUE(WholeProject(project) == before) << trigger;
    EXPECT_EQ(project.History.UndoCount() + project.History.RedoCount(), 3U);
  }
}

/// What stands below an index, as nested sorted texts.
QString Sorted(const QAbstractItemModel& model, const QModelIndex& parent) {
  QString text;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex index = model.index(row, 0, parent);
    text += index.data().toString() + u'(' + Sorted(model, index) + u')';
  }
  return text;
}

QString Sorted(const ProjectTree& tree, const ProjectNode* parent) {
  std::vector<const ProjectNode*> children;
  for (const ProjectNode* node = parent ? parent->FirstChild() : tree.FirstRoot(); node; node = node->Next()) {
    children.push_back(node);
  }
  std::ranges::sort(children, {}, TreeModel::Text);
  QString text;
  for (const ProjectNode* node : children) text += TreeModel::Text(node) + u'(' + Sorted(tree, node) + u')';
  return text;
}

TEST_F(TreeNoticesTest, AnItemModelStandsOnTheTreeWithoutAMirror) {
  constexpr int kRounds = 10000;
  QTemporaryDir dir;
  test::RecordingPrompter prompter;
  TreeModel model(project_.Tree);
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  QSortFilterProxyModel sorted;  // is kept right by the notices alone
  sorted.setSourceModel(&model);
  sorted.sort(0);
  test::RandomChanges changes(project_, 8);
  QList<QPersistentModelIndex> kept;

  for (int round = 0; round < kRounds; ++round) {
    const int choice = changes.Below(100);
    if (choice < 20) {
      project_.History.Undo();
    } else if (choice < 40) {
      project_.History.Redo();
    } else if (choice == 40) {
      changes.Make(1);  // outside of any edit
    } else if (choice == 41) {
      project_.ProjectFile = HostFiles::ToDos(dir.path()) + u"\\p.tvn"_s;
      ASSERT_TRUE(SaveProject(project_, prompter) && LoadProject(project_, project_.ProjectFile, prompter));
    } else {
      Edit edit(project_, u"Random"_s);
      changes.Make(1 + changes.Below(4));
      if (choice < 90) edit.Commit();
    }
    for (const QPersistentModelIndex& index : kept) {
      ASSERT_TRUE(!index.isValid() || model.IndexOf(TreeModel::NodeAt(index)) == index) << round;
    }
    if (round % 20 != 0) continue;
    ASSERT_EQ(Sorted(sorted, {}), Sorted(project_.Tree, nullptr)) << round;
    kept.clear();
    for (const ProjectNode* node = project_.Tree.FirstRoot(); node; node = project_.Tree.NextInOrder(node)) {
      kept << model.IndexOf(node);
    }
  }
}

}  // namespace
}  // namespace torvane
