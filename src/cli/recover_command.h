#pragma once

#include "cli/command_line.h"
#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// Whether the arguments behind the command `recover` are "list", "disc", "save JOURNAL OUT.tvn" or "discard JOURNAL".
/// Fails with a text for the user.
Status CheckRecoverArguments(const QStringList& arguments);

/// Lists, saves or discards the unsaved work that killed programs left to the profile; what is saved is discarded. The
/// disc that a killed run set aside in `OutDir` is listed as "disc", and put back by that action.
/// Returns the exit code of the program.
int RunRecoverCommand(const CommandLine& line, const Settings& settings, Prompter& prompter);

}  // namespace torvane
