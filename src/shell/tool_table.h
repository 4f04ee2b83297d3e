#pragma once

#include <QString>
#include <QStringList>

#include "shell/own_tool.h"

namespace torvane {

/// An outside program that generated batches call, and what stands for it on this machine.
struct ToolEntry {
  enum class ControlFile { None, Dvdauthor, Spumux };

  QString stem;          ///< in the batch: the file name without ending, in small letters
  QString program = {};  ///< here, or what a tool of this console needs; empty when there is none
  QString package = {};  ///< the Debian package that holds it
  ControlFile controlFile = ControlFile::None;
  QStringList dropped = {};       ///< options that the program here does not know
  QStringList plainValue = {};    ///< options whose value is no path
  QStringList patternValue = {};  ///< options whose value is a printf pattern, so that a "%" must be doubled
  QString outputOption = {};      ///< the option that names the file it writes
  bool isMplex = false;           ///< its sound and its delay are made fit for it
  const OwnTool* own = nullptr;   ///< what stands for it when it is a tool of this console
};

/// The entry of a stem, looked up without regard to case; nullptr for a stem that is not in the table.
const ToolEntry* FindTool(const QString& stem);

}  // namespace torvane
