#pragma once

#include <QString>

#include "platform/result.h"
#include "shell/mpeg_video.h"

namespace torvane {

/// How an encoding came out.
struct Requantised {
  double blur = 0;  ///< how much the pictures were softened, as the radius in points; 0 for not at all
};

/// Encodes an elementary MPEG-2 video anew to a size, picture by picture: norm, aspect, kind of sequence, the order of
/// fields, pulldown and so the time of each picture stay as they are. Groups of pictures are closed and no longer than
/// DVD-Video allows.
///
/// Two passes spread the bits. Where these do not reach the size, since the finest step of the pictures costs more than
/// there is, the pictures are softened, step by step. Fails with the name of the file.
Result<Requantised> Requantise(const QString& input, const MpegVideo& video, double wantedBytes, const QString& output);

/// The file beside the output in which the encoder keeps what the first pass has found.
QString PassLogOf(const QString& output);

}  // namespace torvane
