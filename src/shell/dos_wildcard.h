#pragma once

#include <QString>
#include <QStringList>

namespace torvane {

/// True when a name holds "*" or "?".
bool HasWildcard(const QString& name);

/// Matches a file name as DOS does, without regard to case: "*" any text, "?" one character or none at the end of a
/// part, "*.*" every name, "name.*" also the name without an ending, "name." only the name without an ending.
bool MatchesWildcard(const QString& name, const QString& pattern);

/// DOS paths of the files that a path names, whose last component may hold wildcards. Directories are left out.
QStringList FilesOf(const QString& dosPath);

}  // namespace torvane
