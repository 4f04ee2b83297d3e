#pragma once

#include <QString>

#include "media/media_file.h"

namespace torvane {

/// Where in the first block a pack header makes a file multiplexed.
enum class PackHeaderAt {
  FrontOfBlock,  ///< not in its last ten bytes
  Anywhere
};

/// What a few blocks of a video file tell: some at its start, until the sequence header is found, and some at its end,
/// until a GOP header is found. Nothing is decoded and nothing is demultiplexed: a start code anywhere counts.
struct VideoSamples {
  qint64 size = 0;
  bool isMultiplexed = false;
  bool hasExtension = false;  ///< an extension start code was seen: MPEG-2
  bool found = false;         ///< there is a sequence header; what follows is valid only then
  qsizetype sequenceAt = 0;   ///< its position when it lies in the first block, else 0
  int ResH = 0;
  int ResV = 0;
  QString Aspect;
  float FPS = 0;
  bool hasNavigationPacks = false;  ///< PCI and DSI packets lie in the block of the sequence header
  qint64 FirstSCR = 0;              ///< 90 kHz ticks; 0 where there is none
  qint64 LastSCR = 0;
  double days = 0;  ///< duration by the GOP headers
};

/// Reads at most 61 blocks of kBlockSize bytes.
VideoSamples SampleVideo(MediaFile& file, PackHeaderAt packs);

}  // namespace torvane
