#pragma once

#include "shell/own_tool.h"

namespace torvane {

/// `sup2png FILE.sup [FILE.pal]`: takes a subtitle stream in DVD form apart. The folder "FILE.d" beside it, which
/// replaces one that an earlier run left, then holds a PNG picture for each subtitle and "spumux.xml", the control file
/// by which spumux puts them into a film: times, places, forced ones marked.
///
/// The stream is a row of "SP", the presentation time (90 kHz, 4 bytes from the low one on), 4 bytes that do not count,
/// and a subpicture unit. The pictures have the colours of the palette file, so that dvdauthor finds them in the
/// title's palette; without one the first colour is black, the second nearly so, the third white and the others grey.
///
/// Fails with the number and place of the first subtitle that is broken, and when the file shows none. The folder then
/// is as it was.
extern const OwnTool kSup2Png;

}  // namespace torvane
