#pragma once

#include <QList>
#include <QString>

#include "platform/result.h"

namespace torvane {

/// How one picture is shown; both fields of a picture that is coded in two count as one.
struct PictureFlags {
  bool topFirst = false;
  bool repeats = false;      ///< repeat_first_field
  bool progressive = false;  ///< progressive_frame
  bool operator==(const PictureFlags&) const = default;
};

/// What the headers of an MPEG-2 elementary video stream state, and how long it is shown. ISO/IEC 13818-2, 6.2.2.
struct MpegVideo {
  int width = 0;
  int height = 0;
  int aspect = 0;                     ///< aspect_ratio_information: 2 is 4:3, 3 is 16:9
  int rateCode = 0;                   ///< frame_rate_code: 3 is 25, 4 is 30000/1001
  qint64 bitRate = 0;                 ///< bits a second, of the first header
  bool progressive = false;           ///< progressive_sequence
  QList<PictureFlags> pictures = {};  ///< in the order of showing
  int orphans = 0;                    ///< pictures at the start that refer to one before it, and so cannot be decoded

  /// Pictures a second as a fraction, which is also how ffmpeg is told.
  int RateNumerator() const;
  int RateDenominator() const;

  qint64 Fields() const;  ///< shown, repeated ones counted
  double Seconds() const;

  /// Fields for which one picture is shown.
  int FieldsOf(const PictureFlags& picture) const;
};

/// Reads the whole file. Fails with its name for one that cannot be read, holds no MPEG-2 video, or has no picture.
Result<MpegVideo> ReadMpegVideo(const QString& hostPath);

/// What the pictures of a stream were coded with.
enum class CodingTools {
  FramesAndFields,
  FramesAlone  ///< no field was told apart, so that each picture may be called progressive
};

/// Gives an elementary stream, of which each group of pictures begins with its header and is closed, the frame rate
/// code and kind of sequence of `video` and picture by picture its flags, and each group its time code. Pictures coded
/// with FramesAndFields stay interlaced, but for those of which a field is repeated. Fails with the name; the file then
/// is of no use.
Status StampPictures(const QString& hostPath, const MpegVideo& video, CodingTools tools);

}  // namespace torvane
