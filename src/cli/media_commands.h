#pragma once

#include "cli/command_line.h"
#include "core/prompter.h"

namespace torvane {

/// True for the commands that look at media files and need no project: analyse, chapters, palette.
bool IsMediaCommand(QStringView command);

/// Runs one of them and returns the exit code of the program.
int RunMediaCommand(const CommandLine& line, Prompter& prompter);

/// Tells which chapters of a list lie behind the end of a film of `duration` seconds.
void WarnOfLateChapters(const QString& list, double duration, Prompter& prompter);

}  // namespace torvane
