#pragma once

#include <span>

#include "cli/command_line.h"
#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// The commands that change a project: load it, do one editing operation, save it.
std::span<const CommandHelp> EditCommands();

/// Does one of them to a loaded project. False when it was refused, which has been told.
bool RunEditCommand(const CommandLine& line, Project& project, Prompter& prompter);

}  // namespace torvane
