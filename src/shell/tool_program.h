#pragma once

#include <QString>
#include <QStringList>

#include "platform/result.h"
#include "shell/tool_table.h"

namespace torvane {

/// What runs on this machine when a batch names a program.
struct ToolProgram {
  QString name;                      ///< the stem of its file name, for messages
  const ToolEntry* entry = nullptr;  ///< its entry in the tool table, if any
  QString program = {};              ///< host path of the file to start; "" for a tool of this console
  QStringList arguments = {};        ///< what it is started with in front of its own arguments, from its name on
  bool wine = false;                 ///< a Windows program lies at the path named and Wine runs it
};

/// Looks a program up by the name or DOS path that a batch calls it by. Fails with a text that tells what to install.
Result<ToolProgram> FindToolProgram(const QString& named);

/// Why the programs that batches name cannot be run here: a text for each that is missing, once, with the package to
/// install. A tool of this console that needs a program is missing without it.
QStringList MissingPrograms(const QStringList& named);

/// Whether a batch can use the tool at a DOS path: a program that FindToolProgram finds, or a file of another kind that
/// lies there.
bool HasTool(const QString& dosPath);

}  // namespace torvane
