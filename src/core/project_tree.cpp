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

QString ParentKey(const ProjectNode* node) {
  return node->Parent() ? node->Parent()->Key() : QString();
}

}  // namespace

int TreeChange::DestinationRow() const {
  const bool down = place.parent == formerPlace.parent && place.row > formerPlace.row;
  return down ? place.row + 1 : place.row;
}

const ProjectNode* ClearedNodes::NextInOrder(const ProjectNode* node) const {
  return node ? Following(node) : top_->FirstChild();
}

const ProjectNode* ProjectTree::Add(const NodeData& data) {
  return Insert(data, {top_.get(), RootCount()});
}

const ProjectNode* ProjectTree::Add(const NodeData& data, const QString& relativeKey, Relation relation) {
  return Insert(data, FindPlace(relativeKey, relation));
}

const ProjectNode* ProjectTree::Add(const NodeData& data, const TreePlace& place) {
  return Insert(data, {place.parent.isEmpty() ? top_.get() : Node(place.parent), place.row});
}

const ProjectNode* ProjectTree::Insert(const NodeData& data, Place place) {
  if (!place.parent || place.row < 0 || place.row > place.parent->ChildCount()) return nullptr;
  if (data.Key.isEmpty() || Contains(data.Key) || RefusesChanges()) return nullptr;
  ProjectNode* node = NewNode();
  node->key_ = data.Key;
  node->caption_ = data.Caption;
  node->SetTag(data.Tag);
  node->image_ = data.Image;
  TreeChange change{.kind = TreeChange::Added, .key = data.Key, .place = {place.parent->key_, place.row}};
  Change(change, [&] {
    Link(node, place);
    index_.insert(KeyRef{&node->key_}, node);
  });
  return node;
}

bool ProjectTree::Remove(const QString& key) {
  ProjectNode* node = Node(key);
  if (!node || RefusesChanges()) return false;
  TreeChange change{.kind = TreeChange::Removed, .key = node->key_, .formerPlace = {ParentKey(node), node->row_}};
  CollectSubtree(node, change);
  Change(change, [&] {
    Unlink(node);
    Delete(node);
  });
  return true;
}

bool ProjectTree::Move(const QString& key, const QString& relativeKey, Relation relation) {
  return key != relativeKey && Relocate(Node(key), FindPlace(relativeKey, relation));
}

bool ProjectTree::Move(const QString& key, const TreePlace& place) {
  ProjectNode* node = Node(key);
  ProjectNode* parent = place.parent.isEmpty() ? top_.get() : Node(place.parent);
  const bool down = node && node->parent_ == parent && place.row > node->row_;
  return Relocate(node, {parent, down ? place.row + 1 : place.row});
}

bool ProjectTree::Relocate(ProjectNode* node, Place place) {
  if (!node || !place.parent || place.row < 0 || place.row > place.parent->ChildCount()) return false;
  for (const ProjectNode* above = place.parent; above; above = above->parent_) {
    if (above == node) return false;
  }
  if (RefusesChanges()) return false;
  const bool sameParent = place.parent == node->parent_;
  if (sameParent && (place.row == node->row_ || place.row == node->row_ + 1)) return true;

  if (sameParent && place.row > node->row_) --place.row;
  TreeChange change{.kind = TreeChange::Moved,
                    .key = node->key_,
                    .place = {place.parent->key_, place.row},
                    .formerPlace = {ParentKey(node), node->row_}};
  Change(change, [&] {
    Unlink(node);
    Link(node, place);
  });
  return true;
}

bool ProjectTree::SetCaption(const QString& key, const QString& caption) {
  ProjectNode* node = Node(key);
  if (!node || RefusesChanges()) return false;
  if (node->caption_ == caption) return true;
  TreeChange change{.kind = TreeChange::CaptionSet, .key = node->key_, .former = node->caption_};
  Change(change, [&] { node->caption_ = caption; });
  return true;
}

bool ProjectTree::SetTag(const QString& key, const QString& tag) {
  ProjectNode* node = Node(key);
  if (!node || RefusesChanges()) return false;
  if (node->Tag() == tag) return true;
  TreeChange change{.kind = TreeChange::TagSet, .key = node->key_, .former = node->Tag()};
  Change(change, [&] { node->SetTag(tag); });
  return true;
}

void ProjectTree::Clear() {
  if (!FirstRoot() || RefusesChanges()) return;
  TreeChange change{.kind = TreeChange::Cleared};
  Change(change, [&] {
    const auto cleared = std::make_shared<ClearedNodes>();
    cleared->top_ = std::exchange(top_, std::make_unique<ProjectNode>());
    cleared->blocks_ = std::exchange(blocks_, {});
    index_.clear();
    free_.clear();
    change.cleared = cleared;
  });
}

const ProjectNode* ProjectTree::NextInOrder(const ProjectNode* node) const {
  return node ? Following(node) : FirstRoot();
}

ProjectTree::Place ProjectTree::FindPlace(const QString& relativeKey, Relation relation) const {
  ProjectNode* relative = Node(relativeKey);
  if (!relative) return {};
  ProjectNode* parent = relative->parent_;
  switch (relation) {
    case Relation::Last:
      return {parent, parent->ChildCount()};
    case Relation::Next:
      return {parent, relative->row_ + 1};
    case Relation::Previous:
      return {parent, relative->row_};
    case Relation::First:
      return {parent, 0};
    case Relation::Child:
      return {relative, relative->ChildCount()};
  }
  return {};
}

void ProjectTree::Link(ProjectNode* node, Place place) {
  node->parent_ = place.parent;
  auto& siblings = place.parent->children_;
  if (!siblings) siblings = std::make_unique<std::vector<ProjectNode*>>();
  siblings->insert(siblings->begin() + place.row, node);
  Renumber(*place.parent, place.row);
}

void ProjectTree::Unlink(ProjectNode* node) {
  std::vector<ProjectNode*>& siblings = *node->parent_->children_;
  siblings.erase(siblings.begin() + node->row_);
  Renumber(*node->parent_, node->row_);
}

void ProjectTree::Renumber(const ProjectNode& parent, int first) {
  for (int row = first; row < parent.ChildCount(); ++row) (*parent.children_)[row]->row_ = row;
}

void ProjectTree::CollectSubtree(const ProjectNode* root, TreeChange& change) {
  for (const ProjectNode* node = root; node;) {
    change.removed.push_back({node->key_, node->caption_, node->Tag(), node->image_});
    change.removedParents.push_back(ParentKey(node));
    if (node->FirstChild()) {
      node = node->FirstChild();
      continue;
    }
    while (node != root && !node->Next()) node = node->parent_;
    node = node == root ? nullptr : node->Next();
  }
}

void ProjectTree::Delete(ProjectNode* subtree) {
  // Without recursion, as a damaged file may nest as deep as it likes.
  std::vector<ProjectNode*> pending{subtree};
  while (!pending.empty()) {
    ProjectNode* node = pending.back();
    pending.pop_back();
    if (node->children_) pending.insert(pending.end(), node->children_->begin(), node->children_->end());
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

bool ProjectTree::RefusesChanges() const {
  if (!IsTelling()) return false;
  qWarning("A change of the project from inside one of its notices has been refused.");
  return true;
}

template <class Make>
void ProjectTree::Change(TreeChange& change, const Make& make) {
  const ChangeGroup group(*this);
  const auto moment = observers_.Now();
  observers_.Tell(moment, [&](TreeObserver& observer) { observer.TreeWillChange(change); });
  make();
  observers_.Tell(moment, [&](TreeObserver& observer) { observer.TreeChanged(change); });
}

void ProjectTree::BeginGroup() {
  if (groups_++ > 0) return;
  groupBegan_ = observers_.Now();
  observers_.Tell(groupBegan_, [](TreeObserver& observer) { observer.EditBegan(); });
}

void ProjectTree::EndGroup() {
  // The group counts as open until everybody has heard of its end.
  if (groups_ == 1) observers_.Tell(groupBegan_, [](TreeObserver& observer) { observer.EditEnded(); });
  --groups_;
}

}  // namespace torvane
