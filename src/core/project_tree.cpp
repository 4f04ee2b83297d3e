#include "core/project_tree.h"

#include <utility>

namespace torvane {
namespace {

constexpr int kBlockSize = 256;

const ProjectNode* Following(const ProjectNode* node) {
  if (node->FirstChild()) return node->FirstChild();
  while (node && !node->Next()) node = node->Parent();
  return node ? node->Next() : nullptr;
}

}  // namespace

const ProjectNode* ClearedNodes::NextInOrder(const ProjectNode* node) const {
  return node ? Following(node) : firstRoot_;
}

const ProjectNode* ProjectTree::Add(const NodeData& data) { return Insert(data, {&top_, top_.lastChild_}); }

const ProjectNode* ProjectTree::Add(const NodeData& data, const QString& relativeKey, Relation relation) {
  return Insert(data, FindPlace(relativeKey, relation));
}

const ProjectNode* ProjectTree::Insert(const NodeData& data, Place place) {
  if (!place.parent || data.Key.isEmpty() || Contains(data.Key)) return nullptr;
  ProjectNode* node = NewNode();
  node->key_ = data.Key;
  node->caption_ = data.Caption;
  node->SetTag(data.Tag);
  node->image_ = data.Image;
  Link(node, place);
  index_.insert(KeyRef{&node->key_}, node);
  if (!observers_.empty()) Tell({.kind = TreeChange::Added, .key = node->key_});
  return node;
}

bool ProjectTree::Remove(const QString& key) {
  ProjectNode* node = Node(key);
  if (!node) return false;
  TreeChange change{.kind = TreeChange::Removed, .key = node->key_};
  if (!observers_.empty()) {
    change.formerParent = ParentKey(node);
    change.formerPrevious = node->previous_ ? node->previous_->key_ : QString();
    CollectSubtree(node, change);
  }
  Unlink(node);
  Delete(node);
  Tell(change);
  return true;
}

bool ProjectTree::Move(const QString& key, const QString& relativeKey, Relation relation) {
  ProjectNode* node = Node(key);
  if (!node) return false;
  for (const ProjectNode* above = Find(relativeKey); above; above = above->parent_) {
    if (above == node) return false;
  }
  Place place = FindPlace(relativeKey, relation);
  if (!place.parent) return false;
  if (place.previous == node) place.previous = node->previous_;
  const ProjectNode* newParent = place.parent == &top_ ? nullptr : place.parent;
  if (newParent == node->parent_ && place.previous == node->previous_) return true;

  TreeChange change{.kind = TreeChange::Moved, .key = node->key_};
  change.formerParent = ParentKey(node);
  change.formerPrevious = node->previous_ ? node->previous_->key_ : QString();
  Unlink(node);
  Link(node, place);
  Tell(change);
  return true;
}

bool ProjectTree::SetCaption(const QString& key, const QString& caption) {
  ProjectNode* node = Node(key);
  if (!node) return false;
  if (node->caption_ == caption) return true;
  const TreeChange change{.kind = TreeChange::CaptionSet, .key = node->key_, .former = node->caption_};
  node->caption_ = caption;
  Tell(change);
  return true;
}

bool ProjectTree::SetTag(const QString& key, const QString& tag) {
  ProjectNode* node = Node(key);
  if (!node) return false;
  if (node->Tag() == tag) return true;
  const TreeChange change{.kind = TreeChange::TagSet, .key = node->key_, .former = node->Tag()};
  node->SetTag(tag);
  Tell(change);
  return true;
}

void ProjectTree::Clear() {
  if (!top_.firstChild_) return;
  const auto cleared = std::make_shared<ClearedNodes>();
  cleared->firstRoot_ = top_.firstChild_;
  cleared->blocks_ = std::exchange(blocks_, {});
  top_ = ProjectNode();
  index_.clear();
  free_.clear();
  Tell({.kind = TreeChange::Cleared, .cleared = cleared});
}

const ProjectNode* ProjectTree::NextInOrder(const ProjectNode* node) const {
  return node ? Following(node) : top_.firstChild_;
}

ProjectTree::Place ProjectTree::FindPlace(const QString& relativeKey, Relation relation) {
  ProjectNode* relative = Node(relativeKey);
  if (!relative) return {};
  ProjectNode* parent = relative->parent_ ? relative->parent_ : &top_;
  switch (relation) {
    case Relation::Last:
      return {parent, parent->lastChild_};
    case Relation::Next:
      return {parent, relative};
    case Relation::Previous:
      return {parent, relative->previous_};
    case Relation::First:
      return {parent, nullptr};
    case Relation::Child:
      return {relative, relative->lastChild_};
  }
  return {};
}

void ProjectTree::Link(ProjectNode* node, Place place) {
  ProjectNode* next = place.previous ? place.previous->next_ : place.parent->firstChild_;
  // The roots show no parent, the invisible one is the tree's own affair.
  node->parent_ = place.parent == &top_ ? nullptr : place.parent;
  node->previous_ = place.previous;
  node->next_ = next;
  (place.previous ? place.previous->next_ : place.parent->firstChild_) = node;
  (next ? next->previous_ : place.parent->lastChild_) = node;
  ++place.parent->childCount_;
}

void ProjectTree::Unlink(ProjectNode* node) {
  ProjectNode* parent = node->parent_ ? node->parent_ : &top_;
  (node->previous_ ? node->previous_->next_ : parent->firstChild_) = node->next_;
  (node->next_ ? node->next_->previous_ : parent->lastChild_) = node->previous_;
  --parent->childCount_;
  node->next_ = node->previous_ = node->parent_ = nullptr;
}

void ProjectTree::CollectSubtree(const ProjectNode* root, TreeChange& change) const {
  for (const ProjectNode* node = root; node;) {
    change.removed.push_back({node->key_, node->caption_, node->Tag(), node->image_});
    change.removedParents.push_back(ParentKey(node));
    if (node->firstChild_) {
      node = node->firstChild_;
      continue;
    }
    while (node != root && !node->next_) node = node->parent_;
    node = node == root ? nullptr : node->next_;
  }
}

void ProjectTree::Delete(ProjectNode* subtree) {
  // Without recursion, as a damaged file may nest as deep as it likes.
  std::vector<ProjectNode*> pending{subtree};
  while (!pending.empty()) {
    ProjectNode* node = pending.back();
    pending.pop_back();
    for (ProjectNode* child = node->firstChild_; child; child = child->next_) pending.push_back(child);
    index_.remove(KeyRef{&node->key_});
    *node = ProjectNode();
    free_.push_back(node);
  }
}

ProjectNode* ProjectTree::NewNode() {
  if (free_.empty()) {
    blocks_.push_back(std::make_unique<ProjectNode[]>(kBlockSize));
    for (int i = kBlockSize; i-- > 0;) free_.push_back(&blocks_.back()[i]);
  }
  ProjectNode* node = free_.back();
  free_.pop_back();
  return node;
}

void ProjectTree::Tell(const TreeChange& change) const {
  for (TreeObserver* observer : observers_) observer->TreeChanged(change);
}

QString ProjectTree::ParentKey(const ProjectNode* node) const {
  return node->parent_ ? node->parent_->key_ : QString();
}

}  // namespace torvane
