#pragma once

#include <QList>

#include "core/finding.h"
#include "core/project.h"
#include "run/console.h"

namespace torvane {

/// Commands that dvdauthor cannot parse, each with the button, menu or film that holds it, at most ten. All are errors.
///
/// dvdauthor itself reads them, run by the console in a folder of its own below the system's temporary one: all at
/// once, and only where that fails in ever smaller parts, since its message names no place. Where the console or
/// dvdauthor cannot be run nothing is found. Other engines are not asked.
QList<Finding> CommandFindings(const Project& project, Console& console);

/// The same with the real console.
QList<Finding> CommandFindings(const Project& project);

}  // namespace torvane
