#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace torvane {

/// What the lines of a batch make or erase in the temporary directory: names below it, with "/" between them.
struct BatchOutputs {
  QStringList names;  ///< files and folders, each once
  QStringList masks;  ///< with wildcards, of erase lines: "*.xml", "TempSub.d/*.*"
};

/// Reads them from the text of a generated batch. What lies elsewhere is left out, and so are lines behind REM.
BatchOutputs OutputsInTemp(const QByteArray& batch, const QString& tempDir);

/// The programs that a batch calls, as it names them: DOS paths that end in ".exe", each once.
QStringList ProgramsOf(const QByteArray& batch);

}  // namespace torvane
