#pragma once

#include <QString>

#include "platform/result.h"

namespace torvane {

// What deletes. No link is ever followed: a link goes itself, and what lies behind it stays. Each failure names the
// path and the reason; what could not be deleted is still there.

/// Deletes one name below a folder: "a.png", or "TempSub.d/a.png" in a folder of it; an empty folder as well. Refused,
/// with nothing deleted, when a part of `relative` leaves the folder or is a link, or when a folder is not empty. Names
/// are those of the host, letter for letter. Nothing of the name there is no failure.
Status RemoveBelow(const QString& dosFolder, const QString& relative);

/// Deletes a folder with everything below it, or the link, where the path is one. Refused, with nothing deleted, for
/// the root, folders directly in it, the user's home, folders that hold the home or the current directory, and mounted
/// file systems. What is mounted below the folder stays, with the folders that lead to it.
Status RemoveTree(const QString& dosPath);

}  // namespace torvane
