#pragma once

#include <QByteArrayView>
#include <array>
#include <optional>

namespace torvane {

/// kbit a second by the frame size code, of which each rate has two. ATSC A/52, table 5.18.
inline constexpr std::array<int, 19> kAc3Bitrates{32,  40,  48,  56,  64,  80,  96,  112, 128, 160,
                                                  192, 224, 256, 320, 384, 448, 512, 576, 640};

/// kbit a second of MPEG-1 layer II by the bit rate index 1 to 14. ISO/IEC 11172-3, 2.4.2.3.
inline constexpr std::array<int, 14> kLayer2Bitrates{32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};

/// A frame of sound, as its header describes it.
struct SoundFrame {
  int bytes = 0;  ///< with its header
  int samples = 0;
  int sampleRate = 0;  ///< Hz

  double Milliseconds() const { return samples * 1000.0 / sampleRate; }
  bool operator==(const SoundFrame&) const = default;
};

/// The frame of AC3, MPEG-1 layer II or DTS (in words of 16 bits, high byte first) that begins here; nothing when none
/// does. Needs kSoundFrameHead bytes.
std::optional<SoundFrame> ReadSoundFrame(QByteArrayView head);

inline constexpr qsizetype kSoundFrameHead = 10;

}  // namespace torvane
