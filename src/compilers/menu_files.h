#pragma once

#include <QString>

#include "platform/result.h"
#include "render/compositor.h"

namespace torvane {

/// Writes what a composed menu is made of into a directory (DOS path): its pictures and its subpicture control files,
/// each whole or not at all. Stops at the first that cannot be written.
Status WriteMenuFiles(const ComposedMenu& menu, const QString& dir);

/// The names of these files.
QStringList MenuFileNames(const ComposedMenu& menu);

}  // namespace torvane
