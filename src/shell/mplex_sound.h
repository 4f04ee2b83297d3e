#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "platform/result.h"

namespace torvane {

enum class MplexKind { Native, Wine };

/// What mplex is started with in place of the arguments of a batch line.
struct MplexArguments {
  QStringList arguments = {};
  std::shared_ptr<QTemporaryDir> scratch = {};  ///< holds files that the arguments name, for the run alone
};

/// Makes the sound of an mplex line fit for it.
///
/// In a line `-O 500ms` makes the sound half a second later than the picture. mplex counts the other way, so that it is
/// given the negated number. Where the sound shall be earlier by so much that mplex could not hold the picture back for
/// it (0.9 s and more), whole frames are left out at the start of each sound, and mplex is given the rest, by which the
/// sound then is late. Tracks whose frames are of other lengths than those of the first come within half of one.
///
/// The native mplex does not read WAV files and is given their samples.
///
/// `arguments` are those behind the program's name, as it is given them (DOS paths with Wine). Changed sound is
/// written to a folder beside `output`, the host path of the film that is made. Fails with the name of a sound and what
/// is wrong with it.
Result<MplexArguments> PrepareMplexSound(const QStringList& arguments, const QString& output, MplexKind kind);

}  // namespace torvane
