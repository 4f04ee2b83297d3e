#pragma once

#include <QByteArray>
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
  int outputPlace = 0;            ///< where its arguments name the file it writes, from 1; 0 for nowhere
  bool streamsOutput = false;     ///< what it prints on its standard output is its work
  QByteArray ending = {};         ///< what a file that it has written to its end ends with
  bool isMplex = false;           ///< its sound and its delay are made fit for it
  const OwnTool* own = nullptr;   ///< what stands for it when it is a tool of this console
  double patience = 0;  ///< minutes that it may do nothing, where that is not the user's choice; 0 where it is
};

/// The entry of a stem, looked up without regard to case; nullptr for a stem that is not in the table.
const ToolEntry* FindTool(const QString& stem);

}  // namespace torvane
