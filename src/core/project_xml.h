#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include "core/project_tree.h"
#include "core/settings_project.h"
#include "platform/result.h"

namespace torvane {

/// A project file as read, before any of it has become a project.
struct ProjectXml {
  struct Node {
    NodeData data;
    int parent = -1;  ///< index in `nodes`, -1 at the root level
  };

  ElementAttributes elements;  ///< the settings elements
  std::vector<Node> nodes;     ///< in tree order
};

/// Version of a project file in thousandths (1.07 is 1070), from its second line as plain text; nothing when that line
/// names none.
std::optional<int> ReadFileVersion(const QByteArray& file);

/// Reads the XML. Fails with line, column and the parser's reason. The attribute name 169MODE, which no XML parser
/// takes, is read as _169MODE.
Result<ProjectXml> ReadProjectXml(const QByteArray& file);

}  // namespace torvane
