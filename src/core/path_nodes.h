#pragma once

#include <QString>
#include <QStringView>

#include "core/project_tree.h"

namespace torvane {

/// What lies behind a path of a project, which decides where such a file is looked for when it is gone.
enum class PathKind { Background, Picture, Animation, Video, Sound, Subtitle, Mask, Other };

/// Where a node keeps the path of a file.
struct PathPlace {
  PathKind kind = PathKind::Other;
  bool inTag = false;      ///< the tag is the path; else it stands in the caption
  QStringView label = {};  ///< in front of the path in the caption
};

/// The one description of the nodes that hold paths: the place of a node's path, or null for a node without one.
const PathPlace* PathPlaceOf(const ProjectNode& node);

/// The path in that place of the node; "" when it is empty.
QString PathIn(const ProjectNode& node, const PathPlace& place);

}  // namespace torvane
