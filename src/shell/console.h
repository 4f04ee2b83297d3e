#pragma once

#include <QStringList>

namespace torvane {

/// The console program: runs what its arguments (without the program's name) ask for on the standard streams, and
/// gives the exit code: the last ERRORLEVEL, but with /k 0 or kComplained; 2 for wrong usage, 128 and the signal after
/// a signal to stop.
int RunConsole(const QStringList& arguments);

/// What a console that keeps its prompt (/k), as a run of batches uses it, ends with when it has printed a line that
/// begins with "*ERROR". No ERRORLEVEL of a batch comes out of it, so this cannot be taken for one.
constexpr int kComplained = 120;

}  // namespace torvane
