#include "core/project_tree.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Shape(const ProjectTree& tree) {
  QStringList nodes;
  for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    int depth = 0;
    for (const ProjectNode* above = node->Parent(); above; above = above->Parent()) ++depth;
    nodes << QString(depth, u'-') + node->Key();
  }
  return nodes.join(u' ');
}

NodeData Node(const QString& key) { return {.Key = key, .Caption = u"caption of "_s + key}; }

class Recorder : public TreeObserver {
 public:
  void TreeChanged(const TreeChange& change) override { changes.push_back(change); }
  std::vector<TreeChange> changes;
};

TEST(ProjectTree, PutsNodesWhereTheRelationSays) {
  ProjectTree tree;
  tree.Add(Node(u"b"_s));
  tree.Add(Node(u"c"_s), u"b"_s, Relation::Next);
  tree.Add(Node(u"a"_s), u"b"_s, Relation::Previous);
  tree.Add(Node(u"z"_s), u"a"_s, Relation::Last);
  tree.Add(Node(u"0"_s), u"z"_s, Relation::First);
  tree.Add(Node(u"b2"_s), u"b"_s, Relation::Child);
  tree.Add(Node(u"b1"_s), u"b2"_s, Relation::First);
  tree.Add(Node(u"b3"_s), u"b"_s, Relation::Child);
  EXPECT_EQ(Shape(tree), u"0 a b -b1 -b2 -b3 c z"_s);
  EXPECT_EQ(tree.Find(u"b"_s)->ChildCount(), 3);
  EXPECT_EQ(tree.Find(u"b1"_s)->Next()->Key(), u"b2"_s);
  EXPECT_EQ(tree.LastRoot()->Key(), u"z"_s);
}

TEST(ProjectTree, RefusesWhatCannotBeAndTellsNobody) {
  ProjectTree tree;
  tree.Add(Node(u"a"_s));
  tree.Add(Node(u"b"_s), u"a"_s, Relation::Child);
  Recorder recorder;
  tree.AddObserver(&recorder);
  EXPECT_FALSE(tree.Add(Node(u"b"_s)));
  EXPECT_FALSE(tree.Add(Node(u"c"_s), u"missing"_s, Relation::Child));
  EXPECT_FALSE(tree.Remove(u"missing"_s));
  EXPECT_FALSE(tree.SetCaption(u"missing"_s, u"x"_s));
  EXPECT_FALSE(tree.SetTag(u"missing"_s, u"x"_s));
  EXPECT_FALSE(tree.Move(u"a"_s, u"b"_s, Relation::Child));
  EXPECT_FALSE(tree.Move(u"a"_s, u"a"_s, Relation::Next));
  EXPECT_TRUE(tree.SetCaption(u"b"_s, u"caption of b"_s));
  EXPECT_TRUE(tree.Move(u"b"_s, u"a"_s, Relation::Child));
  EXPECT_EQ(Shape(tree), u"a -b"_s);
  EXPECT_TRUE(recorder.changes.empty());
}

TEST(ProjectTree, TellsEachChangeWithWhatIsNeededToTakeItBack) {
  ProjectTree tree;
  Recorder recorder;
  tree.AddObserver(&recorder);
  tree.Add(Node(u"a"_s));
  tree.Add(Node(u"b"_s));
  tree.Add({.Key = u"b1"_s, .Caption = u"x"_s, .Tag = u"7"_s, .Image = kInPlaceNode}, u"b"_s, Relation::Child);
  tree.SetCaption(u"b1"_s, u"y"_s);
  tree.SetTag(u"b1"_s, u"8"_s);
  tree.Move(u"a"_s, u"b"_s, Relation::Next);
  tree.Remove(u"b"_s);
  tree.Clear();
  ASSERT_TRUE(recorder.changes.back().cleared);
  const std::shared_ptr<const ClearedNodes> cleared = std::exchange(recorder.changes.back().cleared, nullptr);
  const ProjectNode* went = cleared->NextInOrder(nullptr);
  ASSERT_TRUE(went);
  EXPECT_EQ(went->Caption(), u"caption of a"_s);
  EXPECT_EQ(cleared->NextInOrder(went), nullptr);
  using enum TreeChange::Kind;
  const std::vector<TreeChange> expected{
      {.kind = Added, .key = u"a"_s, .place = {QString(), 0}},
      {.kind = Added, .key = u"b"_s, .place = {QString(), 1}},
      {.kind = Added, .key = u"b1"_s, .place = {u"b"_s, 0}},
      {.kind = CaptionSet, .key = u"b1"_s, .former = u"x"_s},
      {.kind = TagSet, .key = u"b1"_s, .former = u"7"_s},
      {.kind = Moved, .key = u"a"_s, .place = {QString(), 1}, .formerPlace = {QString(), 0}},
      {.kind = Removed,
       .key = u"b"_s,
       .formerPlace = {QString(), 0},
       .removed = {Node(u"b"_s), {.Key = u"b1"_s, .Caption = u"y"_s, .Tag = u"8"_s, .Image = kInPlaceNode}},
       .removedParents = {QString(), u"b"_s}},
      {.kind = Cleared},
  };
  EXPECT_EQ(recorder.changes, expected);
  EXPECT_EQ(tree.NodeCount(), 0);
}

TEST(ProjectTree, KeepsItsLinksThroughRandomChanges) {
  QRandomGenerator random(20);
  ProjectTree tree;
  const auto key = [&random] { return QString::number(random.bounded(60)); };
  for (int round = 0; round < 20000; ++round) {
    const auto relation = static_cast<Relation>(random.bounded(5));
    const int choice = random.bounded(16);
    if (choice < 4) {
      tree.Add(Node(key()));
    } else if (choice < 8) {
      tree.Add(Node(key()), key(), relation);
    } else if (choice < 12) {
      tree.Move(key(), key(), relation);
    } else if (choice == 12) {
      tree.Remove(key());
    }
    if (round % 100 != 0) continue;
    qsizetype visited = 0;
    for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
      ++visited;
      ASSERT_EQ(tree.Find(node->Key()), node);
      int children = 0;
      for (const ProjectNode* child = node->FirstChild(); child; child = child->Next()) {
        ++children;
        ASSERT_EQ(child->Parent(), node);
        ASSERT_EQ(child->Next() ? child->Next()->Previous() : node->LastChild(), child);
      }
      ASSERT_EQ(children, node->ChildCount());
    }
    ASSERT_EQ(visited, tree.NodeCount());
  }
}

}  // namespace
}  // namespace torvane
