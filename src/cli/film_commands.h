#pragma once

#include "cli/command_line.h"
#include "designer/edit_context.h"

namespace torvane {

// The commands that take media files into a project. Each answers whether it was done; why not has been told.

/// "add-title": prepares a film as its dialog would with nobody there, and adds it with its button.
bool AddTitleOf(const CommandLine& line, EditContext& context, const ElementPlace& place);

/// "edit-title": the same for a film of the project; what no option names stays.
bool EditTitleOf(const CommandLine& line, EditContext& context);

/// "add-audio-titleset": the same for an audio titleset.
bool AddAudioTitleSetOf(const CommandLine& line, EditContext& context, const ElementPlace& place);

}  // namespace torvane
