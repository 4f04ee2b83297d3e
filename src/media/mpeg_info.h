#pragma once

#include <QString>

namespace torvane {

/// What is known of a video file. A field that an analysis does not reach stays as it was.
struct MpegInfo {
  QString VideoFile = {};
  int SizeMB = 0;  ///< of 1048576 bytes
  int ResH = 0;    ///< pixels, from the sequence header
  int ResV = 0;
  QString Aspect = {};       ///< "1:1", "4:3", "16:9" or "2.21:1"
  float FPS = 0;             ///< pictures a second
  QString Duration = {};     ///< "hh:mm:ss.cc"
  double DurationSec = 0;    ///< four decimals
  QString MpegVersion = {};  ///< "1" or "2"
  int Mux = 0;               ///< 1: program stream with pack headers, 0: elementary stream
  int MuxOK = 0;             ///< 1: DVD navigation packs stand beside the sequence header
  bool operator==(const MpegInfo&) const = default;
};

}  // namespace torvane
