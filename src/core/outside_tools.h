#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// How this machine answers for outside programs. On Linux a tool may be there under another name, as the console that
/// runs the batches knows; that knowledge stands above this room and is passed in.
struct ToolLookup {
  std::function<bool(const QString& dosPath)> hasTool;  ///< by the path that a generated batch names
  std::function<bool()> hasAviSynth;
  std::function<bool()> hasAviSynthPlugins;
};

/// Path of the tool that builds the disc with the engine in use. Without it there is no Create DVD or Create Batch.
QString MainToolPath(const Settings& settings);

/// Warns of what animated menus need and this machine lacks, each in a box of its own (messages 629, 630, 663).
void CheckOutsideTools(const Settings& settings, const ToolLookup& lookup, Prompter& prompter);

}  // namespace torvane
