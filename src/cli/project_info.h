#pragma once

#include <QString>

#include "core/project.h"

namespace torvane {

/// What a project holds, for a reader: its format, films and menus with their sizes, and what is wrong with it (files
/// that are missing, menus with too many buttons, what no disc can be made of).
QString ProjectInfo(const Project& project);

}  // namespace torvane
