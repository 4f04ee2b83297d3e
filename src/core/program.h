#pragma once

#include <QString>

namespace torvane {

/// Directory of the running program as a DOS path: AppPath, where the data files lie.
QString ProgramDir();

/// Where the program writes what belongs beside it: `appPath` itself, or the user's data directory (which is then
/// made) where the user may not write there. DOS path.
QString WritableProgramDir(const QString& appPath);

/// The user's documents directory as a DOS path, "" when there is none.
QString DocumentsDir();

}  // namespace torvane
