#pragma once

#include <QString>

#include "core/project_tree.h"

namespace torvane {

/// Every node in tree order, one a line: depth (0 at the root level), key, image, tag and caption, separated by TAB.
/// Backslash, CR, LF and TAB in a text stand as \\ \r \n \t.
QString TreeText(const ProjectTree& tree);

}  // namespace torvane
