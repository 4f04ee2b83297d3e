#pragma once

#include "core/prompter.h"
#include "media/media_file.h"
#include "media/mpeg_info.h"

namespace torvane {

/// Judges a video file from a few blocks of it: at most 70 of 100,000 bytes, whatever its size. True: a sequence header
/// was found and the picture fields of `info` are valid. False: the file is no MPEG video, and no message says so; the
/// caller does. Warnings, as message boxes, never change the result.
///
/// Whoever gives the file to a film sets the film's AddSubStream to 0: nothing is known of its subtitle streams.
bool AnalyseVideoFile(const QString& path, MpegInfo& info, Prompter& prompter);

/// The same of bytes that lie elsewhere; `path` is what the record holds, and its ending is judged.
bool AnalyseVideoFile(const QString& path, MediaFile& file, MpegInfo& info, Prompter& prompter);

}  // namespace torvane
