#pragma once

#include <QString>

#include "platform/result.h"

namespace torvane {

/// Writes the samples of a WAV file as DVD-Video has them, from the high byte on and without any header, and gives what
/// mplex must be told about them: "48000:2:16". `leftOut` milliseconds are left out at the start. Takes 16-bit samples
/// of 48 or 96 kHz in up to eight channels. Fails with the name of the file and the reason; the target then is not
/// whole.
Result<QString> WriteRawSound(const QString& waveHostPath, const QString& targetHostPath, double leftOut = 0);

}  // namespace torvane
