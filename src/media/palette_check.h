#pragma once

#include <QString>

#include "core/prompter.h"

namespace torvane {

/// Warns of the colours of a palette that change on the way to RGB and back, and offers to replace them by stable ones:
/// Yes replaces them in `list`, No keeps them. False for Cancel. The colour 0 is never reported and never replaced.
bool CheckPaletteRoundTrip(QString& list, Prompter& prompter);

}  // namespace torvane
