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

/// Message 155 with the name of the menu whose buttons break the rules.
QString ButtonRulesText(const MenuView& menu);

}  // namespace torvane
