#pragma once

#include <QString>
#include <optional>

#include "core/finding.h"
#include "media/media_kind.h"

namespace torvane {

struct Settings;

/// What a project wants to use a file as.
enum class MediaUse { Film, Sound, Subtitle, Picture };

/// What stands against a file of the kind in this use: a sentence that names the file, says what it is, and gives a
/// command line that would make of it what a disc of the project's norm takes. An error means that no right disc can
/// come of it; a warning that it may. The key is left to the caller. Nothing when all is well.
///
/// Films: MPEG-1 and MPEG-2, elementary or as a program stream under the ending that says so. Sound: AC3, MPEG layer
/// II, DTS and WAV of 48000 Hz (WAV of 96000 too), WAV with dvdauthor of 16 bits. Subtitles: texts and the SUP files of
/// a disc. Pictures: what is known to be none is refused; whether the others can be drawn is for the one who draws.
std::optional<Finding> MediaFault(const QString& dosPath, const MediaKind& kind, MediaUse use,
                                  const Settings& settings);

/// The same for the file as it now is.
std::optional<Finding> MediaFault(const QString& dosPath, MediaUse use, const Settings& settings);

}  // namespace torvane
