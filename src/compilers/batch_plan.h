#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "compilers/run_batches.h"
#include "core/project.h"

namespace torvane {

/// One batch of a run.
struct PlannedBatch {
  QString name;  ///< relative to TempDir
  QByteArray text;
};

/// The batches that make the disc, in order of running, up to the one that authors it. `video` is the text of the
/// first.
std::vector<PlannedBatch> DiscBatches(const Project& project, const QByteArray& video, LineValues& values);

/// True when the control file leads to the empty menu, so that its picture and batch are needed.
bool NeedsEmptyMenu(const Settings& settings);

/// Names below `TempDir`, with "/" between them, that the program itself writes for a project, beside its batches.
QStringList WrittenNames(const Project& project);

}  // namespace torvane
