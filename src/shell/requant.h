#pragma once

#include "shell/own_tool.h"

namespace torvane {

/// `requant FACTOR INPUT OUTPUT`: makes an MPEG-2 elementary video stream smaller by the factor ("1.2500"; up to 1 the
/// stream is copied). ffmpeg encodes it anew in two passes, and again where the size is more than 2 % off. Picture
/// size, aspect, frame rate, interlacing and field order stay; groups of pictures are closed, of 15 pictures (PAL) or
/// 18; the rate stays below the input's own limit and 9.5 Mbit/s.
///
/// A result that is more than 5 % too large is a failure; a smaller one is not, since pictures may need no more. The
/// output takes its name when it is whole.
extern const OwnTool kRequant;

}  // namespace torvane
