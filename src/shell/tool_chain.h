#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "shell/tool_command.h"

namespace torvane {

/// What came of commands joined by "|".
struct ChainOutcome {
  int errorLevel = 0;       ///< the status of the last one; 128 and the signal when a signal ended it
  QStringList complaints;   ///< one text for each program that failed, but for the one below
  QString statusComplaint;  ///< the last one ended with a status other than 0, which a batch may expect and ask about
};

/// Runs the commands at once and judges how they ended. The files that they make by name are removed before; where one
/// of them is read as well, nothing is run.
///
/// A program fails by a status other than 0, by a signal, by filling its disk, by doing nothing for too long, and by
/// what it promised and did not leave: whole, new and not empty; spumux by adding no subpicture. One that was ended
/// because the program behind it no longer reads has not failed itself. After a failure, or a signal to stop, what the
/// programs wrote is removed: `created` and what they make by name.
///
/// `patience` is the user's choice in minutes: how long all of them may neither print, read nor write; 0 is for ever.
ChainOutcome RunToolChain(const QList<ToolCommand>& commands, const QStringList& created, double patience,
                          const std::function<void()>& release);

}  // namespace torvane
