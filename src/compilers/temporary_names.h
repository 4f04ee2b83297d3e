#pragma once

#include <QStringList>

#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// No two films share the name of their temporary files, none of these files is a source of the project, and none lies in
/// the folders that the video batch empties.
bool CheckTemporaryNames(const Project& project, Prompter& prompter);
QStringList TemporaryNameFindings(const Project& project);  ///< the same as sentences
}  // namespace torvane
