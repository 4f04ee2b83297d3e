#pragma once

#include <QString>
#include <QStringList>

#include "platform/result.h"

namespace torvane {

/// A program of generated batches that this console brings itself, since no Debian package has it. The arguments are
/// those of its command line with host paths, without the program's name.
struct OwnTool {
  /// Does the work in a process of its own and gives a closing line for the console, "" for none. What it fails with
  /// names the file and the reason; it has then left nothing behind.
  Result<QString> (*run)(const QStringList& arguments) = nullptr;

  /// Removes what a run that was ended in the middle has left unfinished.
  void (*discard)(const QStringList& arguments) = nullptr;
};

/// The name under which a file is written until it is whole.
QString UnfinishedName(const QString& hostPath);

/// Runs the tool and prints its closing line, or its failure behind "ERR:", on the standard streams. Gives the exit
/// status.
int RunOwnTool(const OwnTool& tool, const QString& name, const QStringList& arguments);

}  // namespace torvane
