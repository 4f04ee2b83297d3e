#pragma once

#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// Tells that a path has characters that the authoring tool may not take; the tool's name is the engine's.
void WarnOfSpecialCharacters(const Settings& settings, Prompter& prompter);

}  // namespace torvane
