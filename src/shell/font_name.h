#pragma once

#include <QString>

namespace torvane {

/// What spumux of this machine is to be told for a font that a control file names as Windows does, by a file such as
/// "arialbd.ttf": the host path of that file where the user, drive C or this machine has it, else the family and style
/// that it holds ("Arial:bold"), for which the font service finds the nearest font. A name that is no font file stays
/// as it is.
QString NativeFontName(const QString& name);

}  // namespace torvane
