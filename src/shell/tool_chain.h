#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "shell/tool_command.h"

namespace torvane {

/// What came of commands joined by "|".
struct ChainOutcome {
  int errorLevel = 0;      ///< the status of the last one; 128 and the signal when a signal ended it
  QStringList complaints;  ///< one text for each program that failed
};

/// Runs the commands at once and judges how they ended. A program fails by a status other than 0, by a signal, by
/// filling its disk, and spumux by adding no subpicture. One that was ended because the program behind it no longer
/// reads has not failed itself. After a failure, or a signal to stop, what the programs wrote is removed: `created` and
/// the outputs that their options name.
ChainOutcome RunToolChain(const QList<ToolCommand>& commands, const QStringList& created,
                          const std::function<void()>& release);

}  // namespace torvane
