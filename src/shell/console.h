#pragma once

#include <QStringList>

namespace torvane {

/// The console program: runs what its arguments (without the program's name) ask for on the standard streams, and
/// gives the exit code: the last ERRORLEVEL, 2 for wrong usage, 128 and the signal after a signal to stop.
int RunConsole(const QStringList& arguments);

}  // namespace torvane
