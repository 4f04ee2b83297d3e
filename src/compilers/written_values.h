#pragma once

#include <QList>

#include "core/finding.h"
#include "core/line_values.h"
#include "core/project.h"

namespace torvane {

/// What the writers of a run say to a project.
struct WrittenValues {
  QList<Finding> Refused;        ///< values that would break out of their place in a batch or control file
  QList<TempFile> TempFiles;     ///< what the batches and control files name in `TempDir`; some more than once
  QList<NodeCommands> Commands;  ///< of all menus and films
};

/// Lets every writer of batches and control files write, and keeps nothing of the text. Nothing else knows which values
/// go where.
WrittenValues TryWriters(const Project& project);

}  // namespace torvane
