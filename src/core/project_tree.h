#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

#include "core/observer_list.h"

namespace torvane {

/// Icon class of a node, and at the same time its edit class. The numbers are part of the project file.
enum NodeImage {
  kPlainNode = 1,
  kInPlaceNode = 2,
  kBackgroundNode = 3,
  kColorNode = 4,
  kVideoNode = 6,
  kHeadNode = 7,
};

/// One node of the project. Nodes are made and changed by their tree only, which never moves one in memory: a pointer
/// stays good until its node is removed. Reading renews nothing, so that several threads may read a tree that nobody
/// changes.
class ProjectNode {
 public:
  const QString& Key() const { return key_; }
  const QString& Caption() const { return caption_; }
  /// A number is held as its decimal text.
  const QString& Tag() const { return tag_ ? *tag_ : kNoTag; }
  int Image() const { return image_; }

  /// Null at the root level.
  const ProjectNode* Parent() const { return parent_->parent_ ? parent_ : nullptr; }
  /// Place among its siblings, from 0.
  int Row() const { return row_; }
  int ChildCount() const { return children_ ? int(children_->size()) : 0; }
  /// Null for a row that is not there.
  const ProjectNode* ChildAt(int row) const { return row >= 0 && row < ChildCount() ? (*children_)[row] : nullptr; }
  const ProjectNode* FirstChild() const { return ChildAt(0); }
  const ProjectNode* LastChild() const { return ChildAt(ChildCount() - 1); }
  const ProjectNode* Next() const { return parent_->ChildAt(row_ + 1); }
  const ProjectNode* Previous() const { return parent_->ChildAt(row_ - 1); }

  /// The caption behind a label: the caption's text from position `labelLength` on.
  QString Value(qsizetype labelLength) const { return caption_.mid(labelLength); }

 private:
  friend class ProjectTree;

  static inline const QString kNoTag;

  void SetTag(const QString& tag) { tag_ = tag.isEmpty() ? nullptr : std::make_unique<QString>(tag); }

  QString key_;
  QString caption_;
  std::unique_ptr<QString> tag_;  ///< null for "", as most nodes have none
  int image_ = kPlainNode;
  int row_ = 0;
  ProjectNode* parent_ = nullptr;                        ///< of a root the invisible top, which alone has none
  std::unique_ptr<std::vector<ProjectNode*>> children_;  ///< null for none, as most nodes have none
};

/// Where a node is put, seen from its relative.
enum class Relation {
  Last,      ///< as last sibling of the relative
  Next,      ///< directly behind the relative
  Previous,  ///< directly in front of the relative
  First,     ///< as first sibling of the relative
  Child,     ///< as last child of the relative
};

/// A place in a tree: the key of the parent ("" is the root level) and the row among its children, from 0.
struct TreePlace {
  QString parent = {};
  int row = 0;
  bool operator==(const TreePlace&) const = default;
};

/// What a new node holds.
struct NodeData {
  QString Key;
  QString Caption;
  QString Tag = {};
  int Image = kPlainNode;
  bool operator==(const NodeData&) const = default;
};

/// The nodes that a tree held before it was cleared, as they stood.
class ClearedNodes {
 public:
  /// The nodes in tree order, as `ProjectTree::NextInOrder` gives them.
  const ProjectNode* NextInOrder(const ProjectNode* node) const;

 private:
  friend class ProjectTree;

  std::unique_ptr<ProjectNode> top_;
  std::vector<std::unique_ptr<ProjectNode[]>> blocks_;
};

/// One real change of the tree, with all that is needed to take it back and to tell an item model of it. Fields that do
/// not belong to the kind are empty.
struct TreeChange {
  enum Kind { Added, Removed, Moved, CaptionSet, TagSet, Cleared };

  Kind kind;
  QString key = {};             ///< the node; of a removed subtree its root
  QString former = {};          ///< CaptionSet, TagSet: the text before the change
  TreePlace place = {};         ///< Added, Moved: where the node stands after the change
  TreePlace formerPlace = {};   ///< Removed, Moved: where it stands before the change
  std::vector<NodeData> removed = {};        ///< Removed: all nodes that go, in tree order
  std::vector<QString> removedParents = {};  ///< Removed: their parent keys
  /// Cleared: all nodes, which who keeps the change keeps; null in the notice before the change, as the tree has them.
  std::shared_ptr<const ClearedNodes> cleared = {};
  bool operator==(const TreeChange&) const = default;

  /// Moved: the row that the node is put in front of, counted while it still stands at its former place. So wants it
  /// `QAbstractItemModel::beginMoveRows`.
  int DestinationRow() const;
};

/// Is told of each change, twice: while the tree is still as it was, and when the change has been made. Both notices
/// carry the same change. Between the two stands nothing but the change itself.
///
/// Each change lies between an EditBegan and an EditEnded, whoever makes it: an `Edit`, with all edits within it, is
/// one such group, and so are undo, redo, the taking back of an edit, the loading of a project, and a change outside of
/// all of these. What is dear, such as drawing, waits for EditEnded; a group may also turn out to hold no change.
///
/// An observer must not change the tree from inside a notice: the tree refuses all its primitives meanwhile, with a
/// warning on the log, and an edit, undo or redo begun there does nothing. It may come, leave and be deleted there, as
/// core/observer_list.h tells; both pairs of notices are kept, so that nobody hears of an end without the beginning.
class TreeObserver {
 public:
  virtual ~TreeObserver() = default;
  virtual void EditBegan() {}
  virtual void TreeWillChange(const TreeChange& /*change*/) {}
  virtual void TreeChanged(const TreeChange& /*change*/) {}
  /// The project is whole again; its history has told what became of the edit.
  virtual void EditEnded() {}
};

/// The one and only store of a project: nodes with unique keys in stored order, looked up by hash.
///
/// It changes through six primitives: Add, Remove, Move, SetCaption, SetTag, Clear. A primitive that cannot be done
/// (a key that is empty or exists, a relative that does not) answers false or null and changes nothing, and one that would leave
/// everything as it is tells no observer.
class ProjectTree {
 public:
  ProjectTree() = default;
  ~ProjectTree() = default;
  ProjectTree(const ProjectTree&) = delete;
  ProjectTree& operator=(const ProjectTree&) = delete;
  ProjectTree(ProjectTree&&) = delete;
  ProjectTree& operator=(ProjectTree&&) = delete;

  /// Adds a node at the end of the root level.
  const ProjectNode* Add(const NodeData& data);
  const ProjectNode* Add(const NodeData& data, const QString& relativeKey, Relation relation);
  /// At a row that becomes the new node's, 0 to the number of its siblings.
  const ProjectNode* Add(const NodeData& data, const TreePlace& place);
  /// Removes a node with its subtree.
  bool Remove(const QString& key);
  /// Puts a node with its subtree elsewhere. Refused when the relative lies in that subtree.
  bool Move(const QString& key, const QString& relativeKey, Relation relation);
  /// To a row that becomes the node's, 0 to the number of its siblings there. Refused below the node itself.
  bool Move(const QString& key, const TreePlace& place);
  bool SetCaption(const QString& key, const QString& caption);
  bool SetTag(const QString& key, const QString& tag);
  void Clear();

  /// Null for a key that is not there, which is an ordinary answer.
  const ProjectNode* Find(const QString& key) const { return Node(key); }
  bool Contains(const QString& key) const { return index_.contains(KeyRef{&key}); }
  const ProjectNode* FirstRoot() const { return top_->FirstChild(); }
  const ProjectNode* LastRoot() const { return top_->LastChild(); }
  int RootCount() const { return top_->ChildCount(); }
  const ProjectNode* RootAt(int row) const { return top_->ChildAt(row); }
  qsizetype NodeCount() const { return index_.size(); }

  /// The node that follows in tree order (children before siblings), null after the last; null starts at the first.
  const ProjectNode* NextInOrder(const ProjectNode* node) const;

  void AddObserver(TreeObserver* observer) { observers_.Add(observer); }
  void RemoveObserver(TreeObserver* observer) { observers_.Remove(observer); }
  /// True inside a notice, when nothing can be changed.
  bool IsTelling() const { return observers_.IsTelling(); }

 private:
  friend class ChangeGroup;

  /// A key in the index: the one that the node holds, not a copy.
  struct KeyRef {
    const QString* key;
    friend bool operator==(KeyRef a, KeyRef b) { return *a.key == *b.key; }
    friend std::size_t qHash(KeyRef ref, std::size_t seed) { return qHash(QStringView(*ref.key), seed); }
  };

  struct Place {
    ProjectNode* parent = nullptr;  ///< null when there is no such place
    int row = 0;                    ///< of the sibling that will follow, as the rows are before the change
  };

  ProjectNode* Node(const QString& key) const { return index_.value(KeyRef{&key}, nullptr); }
  Place FindPlace(const QString& relativeKey, Relation relation) const;
  const ProjectNode* Insert(const NodeData& data, Place place);
  bool Relocate(ProjectNode* node, Place place);
  static void Link(ProjectNode* node, Place place);
  static void Unlink(ProjectNode* node);
  static void Renumber(const ProjectNode& parent, int first);
  static void CollectSubtree(const ProjectNode* root, TreeChange& change);
  void Delete(ProjectNode* subtree);
  ProjectNode* NewNode();
  bool RefusesChanges() const;
  template <class Make>
  void Change(TreeChange& change, const Make& make);
  void BeginGroup();
  void EndGroup();

  std::unique_ptr<ProjectNode> top_ = std::make_unique<ProjectNode>();  ///< invisible parent of the roots
  QHash<KeyRef, ProjectNode*> index_;
  std::vector<std::unique_ptr<ProjectNode[]>> blocks_;  ///< nodes live in blocks and are used again
  std::vector<ProjectNode*> free_;
  ObserverList<TreeObserver> observers_;
  int groups_ = 0;                                     ///< open groups, each within the one before
  ObserverList<TreeObserver>::Moment groupBegan_ = 0;  ///< the outermost one
};

/// Makes one group of all changes of a tree during its life: the observers hear one EditBegan and one EditEnded around
/// them. A group within another one joins it. Every `Edit` is one; who builds a whole project outside of an edit opens
/// one for it.
class [[nodiscard]] ChangeGroup {
 public:
  explicit ChangeGroup(ProjectTree& tree) : tree_(tree) { tree_.BeginGroup(); }
  ~ChangeGroup() { tree_.EndGroup(); }
  ChangeGroup(const ChangeGroup&) = delete;
  ChangeGroup& operator=(const ChangeGroup&) = delete;

 private:
  ProjectTree& tree_;
};

}  // namespace torvane
