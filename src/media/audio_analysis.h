#pragma once

#include <QString>

#include "media/media_file.h"

namespace torvane {

/// What is known of an audio file.
struct AudioInfo {
  int Bitrate = 0;          ///< kbit a second; 0 where unknown
  int SampleFreq = 0;       ///< Hz; 0 where unknown
  QString Duration = {};    ///< "hh:mm:ss.mmm", or "???" for DTS
  double AudioSeconds = 0;  ///< four decimals; 0 where unknown
  int SizeMB = 0;           ///< of 1048576 bytes
  bool operator==(const AudioInfo&) const = default;
};

/// True for the endings that an audio track of a title may have: ac3, mp2, mpa, m2p, dts and wav, in any case.
bool IsAudioFile(const QString& path);

/// Reads the head of an audio file. The ending decides what it must be: DTS (which is not opened), WAV (PCM), AC3, and
/// MPEG audio for any other. The playing time comes from the size and the first bit rate. False: it is no such file;
/// `info` then stays as it was, but for the size of a WAV file.
bool AnalyseAudioFile(const QString& path, AudioInfo& info);

/// The same of bytes that lie elsewhere.
bool AnalyseAudioFile(const QString& path, MediaFile& file, AudioInfo& info);

}  // namespace torvane
