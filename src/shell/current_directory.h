#pragma once

#include <QString>

namespace torvane {

/// The current directory as a DOS path: on the drive whose folder holds it, else on drive Z. Without a closing
/// backslash, but for a drive's root.
QString CurrentDosDirectory();

/// A path of a batch made safe to map: one that begins with a backslash lies on the current drive, not in the root of
/// this machine; "C:name" lies in the current directory when that is on C; ".." ends at the drive's root. A plain
/// relative path is returned as it is.
QString ResolveDosPath(const QString& path);

/// True for a path whose directory is the root of this machine's file system, where no batch deletes by wildcard.
bool LiesInMachineRoot(const QString& path);

}  // namespace torvane
