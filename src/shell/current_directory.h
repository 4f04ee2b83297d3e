#pragma once

#include <QString>

namespace torvane {

/// A path of a batch made safe to map: one that begins with a backslash lies on the current drive, not in the root of
/// this machine; "C:name" lies in the current directory when that is on C; ".." ends at the drive's root. A plain
/// relative path is returned as it is.
QString ResolveDosPath(const QString& path);

/// True for a path whose directory is the root of this machine's file system, where no batch deletes by wildcard.
bool LiesInMachineRoot(const QString& path);

}  // namespace torvane
