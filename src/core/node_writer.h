#pragma once

#include <QString>
#include <vector>

#include "core/project_tree.h"

namespace torvane {

/// A child as it should be: what the node holds, and whether it should exist at all.
struct WantedNode {
  NodeData node;
  bool present = true;
};

/// Brings the children of a node in line with a list: those that are not wanted go with their subtrees, those that
/// exist take caption and tag, and missing ones are added behind the nearest wanted one in front of them in the list
/// (as first child without one). Children that the list does not name stay where they are.
void WriteChildren(ProjectTree& tree, const QString& parent, const std::vector<WantedNode>& children);

}  // namespace torvane
