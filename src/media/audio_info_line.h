#pragma once

#include <QString>

#include "media/audio_analysis.h"

namespace torvane {

/// An audio file in the words that a dialog shows under its name.
struct AudioFileLine {
  bool Known = false;  ///< the kind of the file is known, and `Info` valid
  AudioInfo Info = {};
  QString Text = {};  ///< "Bitrate=192  Sampl.Freq=48000  Duration=00:00:24.000  Size=1MB", or that it is not known
};

AudioFileLine DescribeAudioFile(const QString& path);

}  // namespace torvane
