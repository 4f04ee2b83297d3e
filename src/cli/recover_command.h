#pragma once

#include "cli/command_line.h"
#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// Whether the arguments behind the command `recover` are "list", "save JOURNAL OUT.tvn" or "discard JOURNAL". Fails
/// with a text for the user.
Status CheckRecoverArguments(const QStringList& arguments);

/// Lists, saves or discards the unsaved work that killed programs left to the profile. What is saved is discarded.
/// Returns the exit code of the program.
int RunRecoverCommand(const CommandLine& line, const Settings& settings, Prompter& prompter);

}  // namespace torvane
