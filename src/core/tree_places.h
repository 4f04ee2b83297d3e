#pragma once

#include <QString>

#include "core/project_tree.h"

namespace torvane {

/// A place in a tree as a change names it: the key of the parent ("" is the root level) and of the sibling in front
/// ("" for the first place).
struct TreePlace {
  QString parent = {};
  QString previous = {};
};

TreePlace PlaceOf(const ProjectNode& node);

/// Adds or moves a node to a place. False when the tree refuses, also for a parent or sibling that does not exist.
bool AddAt(ProjectTree& tree, const NodeData& data, const TreePlace& place);
bool MoveTo(ProjectTree& tree, const QString& key, const TreePlace& place);

}  // namespace torvane
