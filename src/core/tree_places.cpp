#include "core/tree_places.h"

namespace torvane {
namespace {

/// The place seen from a relative, as the tree's primitives want it; without relative it is the end of the root level.
struct Seen {
  bool exists = true;
  QString relative = {};
  Relation relation = Relation::Child;
};

Seen SeenFromRelative(const ProjectTree& tree, const TreePlace& place) {
  if (!place.previous.isEmpty()) return {tree.Contains(place.previous), place.previous, Relation::Next};
  const ProjectNode* parent = tree.Find(place.parent);
  if (!parent && !place.parent.isEmpty()) return {.exists = false};
  const ProjectNode* first = parent ? parent->FirstChild() : tree.FirstRoot();
  if (first) return {true, first->Key(), Relation::Previous};
  return {true, place.parent, Relation::Child};
}

}  // namespace

TreePlace PlaceOf(const ProjectNode& node) {
  const auto keyOf = [](const ProjectNode* other) { return other ? other->Key() : QString(); };
  return {keyOf(node.Parent()), keyOf(node.Previous())};
}

bool AddAt(ProjectTree& tree, const NodeData& data, const TreePlace& place) {
  const Seen seen = SeenFromRelative(tree, place);
  if (!seen.exists) return false;
  return seen.relative.isEmpty() ? tree.Add(data) != nullptr : tree.Add(data, seen.relative, seen.relation) != nullptr;
}

bool MoveTo(ProjectTree& tree, const QString& key, const TreePlace& place) {
  const Seen seen = SeenFromRelative(tree, place);
  return seen.exists && tree.Move(key, seen.relative, seen.relation);
}

}  // namespace torvane
