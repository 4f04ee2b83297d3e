#pragma once

#include <QStringList>

namespace torvane {

/// Asks torvane-cmd, which stands beside this program, which of the programs (as batches name them) it cannot run.
/// Answers with a sentence for each, with the Debian package to install; a console that does not answer is one itself.
QStringList MissingTools(const QStringList& programs);

}  // namespace torvane
