#pragma once

#include <QString>

#include "media/media_file.h"
#include "platform/result.h"

namespace torvane {

/// What cutting the head off a video needs to know.
struct VideoProbe {
  bool Found = false;      ///< there is a sequence header; the rest is valid only then
  float Fps = 0;           ///< pictures a second
  qint64 FirstSCR = 0;     ///< 90 kHz ticks
  bool ScrUsable = false;  ///< a program stream whose SCR tells nearly the same duration as its GOP headers
  bool operator==(const VideoProbe&) const = default;
};

/// Samples a video file as AnalyseVideoFile does, without a message.
VideoProbe ProbeVideoFile(MediaFile& file);

/// Copies the beginning of a video, in blocks of 100,000 bytes, until it holds `frames` pictures: by the count of
/// picture headers, and by the time stamps where these can be used. An index of the destination (its name with the
/// ending "d2v") is deleted. On failure a former destination stands as it was.
Status CopyVideoHead(int frames, const QString& source, const QString& destination);

}  // namespace torvane
