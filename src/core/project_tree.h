#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

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

/// One node of the project. Nodes are made and changed by their tree only.
class ProjectNode {
 public:
  const QString& Key() const { return key_; }
  const QString& Caption() const { return caption_; }
  /// A number is held as its decimal text.
  const QString& Tag() const { return tag_ ? *tag_ : kNoTag; }
  int Image() const { return image_; }

  const ProjectNode* Parent() const { return parent_; }
  const ProjectNode* FirstChild() const { return firstChild_; }
  const ProjectNode* LastChild() const { return lastChild_; }
  const ProjectNode* Next() const { return next_; }
  const ProjectNode* Previous() const { return previous_; }
  int ChildCount() const { return childCount_; }

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
  int childCount_ = 0;
  ProjectNode* parent_ = nullptr;
  ProjectNode* firstChild_ = nullptr;
  ProjectNode* lastChild_ = nullptr;
  ProjectNode* next_ = nullptr;
  ProjectNode* previous_ = nullptr;
};

/// Where a node is put, seen from its relative.
enum class Relation {
  Last,      ///< as last sibling of the relative
  Next,      ///< directly behind the relative
  Previous,  ///< directly in front of the relative
  First,     ///< as first sibling of the relative
  Child,     ///< as last child of the relative
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

  ProjectNode* firstRoot_ = nullptr;
  std::vector<std::unique_ptr<ProjectNode[]>> blocks_;
};

/// One real change of the tree, with all that is needed to take it back. Text fields that do not belong to the kind
/// are empty.
struct TreeChange {
  enum Kind { Added, Removed, Moved, CaptionSet, TagSet, Cleared };

  Kind kind;
  QString key = {};             ///< the node; of a removed subtree its root
  QString former = {};          ///< CaptionSet, TagSet: the text before the change
  QString formerParent = {};    ///< Moved, Removed: parent key before the change, "" at the root level
  QString formerPrevious = {};  ///< Moved, Removed: key of the sibling in front before the change, "" for the first
  std::vector<NodeData> removed = {};        ///< Removed: all nodes that went, in tree order
  std::vector<QString> removedParents = {};  ///< Removed: their parent keys
  std::shared_ptr<const ClearedNodes> cleared = {};  ///< Cleared: all nodes, which who keeps the change keeps
  bool operator==(const TreeChange&) const = default;
};

/// Is told of each change, after it has been made. It must not change the tree from inside the call.
class TreeObserver {
 public:
  virtual ~TreeObserver() = default;
  virtual void TreeChanged(const TreeChange& change) = 0;
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
  /// Removes a node with its subtree.
  bool Remove(const QString& key);
  /// Puts a node with its subtree elsewhere. Refused when the relative lies in that subtree.
  bool Move(const QString& key, const QString& relativeKey, Relation relation);
  bool SetCaption(const QString& key, const QString& caption);
  bool SetTag(const QString& key, const QString& tag);
  void Clear();

  /// Null for a key that is not there, which is an ordinary answer.
  const ProjectNode* Find(const QString& key) const { return Node(key); }
  bool Contains(const QString& key) const { return index_.contains(KeyRef{&key}); }
  const ProjectNode* FirstRoot() const { return top_.firstChild_; }
  const ProjectNode* LastRoot() const { return top_.lastChild_; }
  qsizetype NodeCount() const { return index_.size(); }

  /// The node that follows in tree order (children before siblings), null after the last; null starts at the first.
  const ProjectNode* NextInOrder(const ProjectNode* node) const;

  void AddObserver(TreeObserver* observer) { observers_.push_back(observer); }
  void RemoveObserver(TreeObserver* observer) { std::erase(observers_, observer); }

 private:
  /// A key in the index: the one that the node holds, not a copy.
  struct KeyRef {
    const QString* key;
    friend bool operator==(KeyRef a, KeyRef b) { return *a.key == *b.key; }
    friend std::size_t qHash(KeyRef ref, std::size_t seed) { return qHash(QStringView(*ref.key), seed); }
  };

  struct Place {
    ProjectNode* parent = nullptr;  ///< null when there is no such place
    ProjectNode* previous = nullptr;
  };

  ProjectNode* Node(const QString& key) const { return index_.value(KeyRef{&key}, nullptr); }
  Place FindPlace(const QString& relativeKey, Relation relation);
  void Link(ProjectNode* node, Place place);
  void Unlink(ProjectNode* node);
  const ProjectNode* Insert(const NodeData& data, Place place);
  void CollectSubtree(const ProjectNode* root, TreeChange& change) const;
  void Delete(ProjectNode* subtree);
  ProjectNode* NewNode();
  void Tell(const TreeChange& change) const;
  QString ParentKey(const ProjectNode* node) const;

  ProjectNode top_;  ///< invisible parent of the roots
  QHash<KeyRef, ProjectNode*> index_;
  std::vector<std::unique_ptr<ProjectNode[]>> blocks_;  ///< nodes live in blocks and are used again
  std::vector<ProjectNode*> free_;
  std::vector<TreeObserver*> observers_;
};

}  // namespace torvane
