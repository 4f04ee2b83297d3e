#pragma once

#include "shell/own_tool.h"

namespace torvane {

/// `insnav -o OUTPUT INPUT`: writes an MPEG program stream of 2048-byte packs, as "mplex -f 8" makes it, with a
/// navigation pack at the start of each video object unit (VOBU). A unit begins where the input has a navigation pack,
/// at each sequence header that begins a packet, and behind the last picture with the first sound that is due half a
/// second after the unit's begin. So a still picture with minutes of sound becomes a title that can be searched. A last
/// unit of less than 0.4 s stays part of the one before.
///
/// The packs name what is known without a disc: their own place, the unit's times and size, and the distance of the
/// neighbouring units; dvdauthor fills in the rest. Packs behind an added one are sent later where the stream leaves no
/// gap for it. The file is read twice, pack by pack, and the output takes its name when it is whole.
extern const OwnTool kInsnav;

}  // namespace torvane
