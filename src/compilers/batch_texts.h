#pragma once

#include <QStringList>

#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// No name, path or delay of the project holds a character that ends its place in a batch line: a quote, a line break or
/// any other control character; a film's name, the stem of its temporary files, no path separator either. Nothing is
/// asked: such a run is refused, with the nodes.
bool CheckBatchTexts(const Project& project, Prompter& prompter);
QStringList BatchTextFindings(const Project& project);  ///< the same as sentences
}  // namespace torvane
