#pragma once

#include "cli/command_line.h"
#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// Whether the arguments behind the command `settings` are "list", "get KEY" or "set KEY=VALUE...", or one of these
/// behind "project P.tvn", with keys that exist and values that their settings take. Fails with a text for the user.
Status CheckSettingsArguments(const QStringList& arguments);

/// The same for the command `preset`: "save FILE" or "load FILE".
Status CheckPresetArguments(const QStringList& arguments);

/// Prints or changes the store of the profile. A setting that is not stored is shown with its default. Returns the exit
/// code of the program.
int RunSettingsCommand(const CommandLine& line, Prompter& prompter);

/// Prints or changes what a loaded project carries, and saves it then. Given settings are left out of account.
int RunProjectSettingsCommand(const CommandLine& line, Project& project, Prompter& prompter);

/// Saves the settings in force as a preset, or puts the values of a preset into the store of the profile.
int RunPresetCommand(const CommandLine& line, const Settings& settings, Prompter& prompter);

}  // namespace torvane
