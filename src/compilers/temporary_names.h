#pragma once

#include <QList>

#include "core/finding.h"
#include "core/project.h"

namespace torvane {

/// What breaks the rule that no film's temporary files have the name of another film's or of a file that the program
/// makes, none of the temporary files is a source of the project, and no source lies in the folders that the video
/// batch empties.
QList<Finding> TemporaryNameFindings(const Project& project);

}  // namespace torvane
