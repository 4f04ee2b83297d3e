#pragma once

#include <QList>

#include "core/finding.h"
#include "core/project.h"
#include "media/media_file.h"

namespace torvane {

/// What keeps the films of a project from playing as they should although each file is sound: too many chapters, norms,
/// picture sizes and aspects that one titleset or the disc mixes, and multiplexed films whose clock starts again.
/// Errors are what no player can make good; the rest warns. Norm, size and aspect are those that the nodes hold.
QList<Finding> FilmFindings(const Project& project);

/// True for a program stream whose clock goes back within the file, as it does where recordings were joined end to end.
/// Looks at a few dozen packs, spread over the file.
bool ClockGoesBack(MediaFile& file);

}  // namespace torvane
