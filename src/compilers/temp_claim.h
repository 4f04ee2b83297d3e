#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include "core/prompter.h"
#include "core/settings.h"
#include "run/temp_files.h"

namespace torvane {

/// Whether a run with `AutoDelete` cleans the temporary directory: not when it holds what is not ours. Says so then.
bool CleansTemp(const TempFiles& files, const Settings& settings, Prompter& prompter);

/// Makes the names that the lines of batches write in the temporary directory ours, before the first of them runs.
/// Refused, with all names, when a line would overwrite or erase what is not ours, or a source of the project. Links in
/// the place of our own files are taken away, so that no tool writes through them.
bool ClaimOutputs(TempFiles& files, const QList<QByteArray>& batches, const Settings& settings,
                  const QStringList& sources, Prompter& prompter);

/// All names that the lines of batches write or erase in the temporary directory.
QStringList OutputNames(const QList<QByteArray>& batches, const QString& tempDir);

}  // namespace torvane
