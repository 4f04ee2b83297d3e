#pragma once

#include <QString>

#include "platform/result.h"

namespace torvane {

/// What the headers of an MPEG-2 elementary video stream state, and how long it is shown. ISO/IEC 13818-2, 6.2.2.
struct MpegVideo {
  int width = 0;
  int height = 0;
  int aspect = 0;              ///< aspect_ratio_information: 2 is 4:3, 3 is 16:9
  int rateCode = 0;            ///< frame_rate_code: 3 is 25, 4 is 30000/1001
  qint64 bitRate = 0;          ///< bits a second, of the first header
  bool progressive = false;    ///< progressive_sequence
  bool topFieldFirst = false;  ///< of the first picture
  qint64 fields = 0;           ///< shown, repeated ones counted

  /// Pictures a second as a fraction, which is also how ffmpeg is told.
  int RateNumerator() const;
  int RateDenominator() const;
  double Seconds() const;
};

/// Reads the whole file. Fails with its name for one that cannot be read, holds no MPEG-2 video, or has no picture.
Result<MpegVideo> ReadMpegVideo(const QString& hostPath);

}  // namespace torvane
