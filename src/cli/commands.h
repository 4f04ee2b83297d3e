#pragma once

#include "cli/command_line.h"

namespace torvane {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

/// Does what a command line says and returns the exit code of the program.
int RunCommand(const CommandLine& line);

/// The same from the arguments behind the program's name, with help and errors of usage.
int RunCli(const QStringList& arguments);

}  // namespace torvane
