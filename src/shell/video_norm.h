#pragma once

#include <QString>

namespace torvane {

/// "PAL" or "NTSC" by the picture height in the first MPEG sequence header of a file: 576 and 288 lines are PAL, 480
/// and 240 are NTSC. "" for any other height, without a header in the first 4 MiB, and for a file that cannot be read.
/// ISO/IEC 13818-2, 6.2.2.1.
QString VideoNormOf(const QString& hostPath);

}  // namespace torvane
