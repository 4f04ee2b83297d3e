#pragma once

#include <QString>

#include "run/child_process.h"

namespace torvane {

/// The program and arguments that a command line stands for on this machine.
///
/// "cmd" and "cmd.exe" are `consoleProgram` (a host path), and what stands behind "/k" or "/c" stays one argument,
/// since the console reads it as a command line of its own. Any other program is looked up by its DOS or host path,
/// or by its name among the programs of the machine; its words are split at blanks outside of double quotes.
ChildCommand ParseCommandLine(const QString& commandLine, const QString& consoleProgram);

}  // namespace torvane
