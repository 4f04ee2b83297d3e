#pragma once

#include <QString>
#include <QStringList>

#include "core/project.h"

namespace torvane {

/// Gives every path that a node holds its DOS form, relative ones being relative to the project's folder. What is no
/// path stays as it is.
void NormalizeResourcePaths(ProjectTree& tree, const QString& projectDir);

/// Looks for the files that the project's nodes name. Where one is gone, but a file of its name lies in one of the
/// directories where such a file may have moved to, the node takes that path. Returns the paths that were found
/// nowhere, each once, in tree order.
QStringList FixResourcePaths(Project& project, const QString& projectDir);

/// The paths that nodes hold, each once, in tree order; whether they exist or not.
QStringList ResourcePaths(const Project& project);

}  // namespace torvane
