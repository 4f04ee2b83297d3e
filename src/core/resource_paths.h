#pragma once

#include <QString>
#include <QStringList>

#include "core/project.h"

namespace torvane {

/// Looks for the files that the project's captions and tags name. Where one is gone, but a file of its name lies in
/// one of the directories where such a file may have moved to, the node takes that path. Returns the paths that were
/// found nowhere, each once, in tree order.
QStringList FixResourcePaths(Project& project, const QString& projectDir);

/// The paths that captions and tags name, each once, in tree order; whether they exist or not.
QStringList ResourcePaths(const Project& project);

}  // namespace torvane
