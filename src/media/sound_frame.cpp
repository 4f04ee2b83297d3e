#include "media/sound_frame.h"

namespace torvane {
namespace {

/// ATSC A/52, 5.4.1.
std::optional<SoundFrame> Ac3Frame(const quint8* head) {
  static constexpr std::array<int, 4> kRates{48000, 44100, 32000, 0};
  constexpr int kSamples = 1536;
  const int rate = kRates[head[4] >> 6];
  const int code = head[4] & 0x3F;
  if (rate == 0 || code >= 2 * int(kAc3Bitrates.size())) return std::nullopt;
  const int words = kAc3Bitrates[size_t(code) / 2] * 96000 / rate + (rate == 44100 ? code & 1 : 0);
  return SoundFrame{2 * words, kSamples, rate};
}

/// ISO/IEC 11172-3, 2.4.1.3 and 2.4.3.1.
std::optional<SoundFrame> Layer2Frame(const quint8* head) {
  static constexpr std::array<int, 4> kRates{44100, 48000, 32000, 0};
  constexpr int kSamples = 1152;
  const int rate = kRates[head[2] >> 2 & 3];
  const int index = head[2] >> 4;
  if (rate == 0 || index == 0 || index == 15) return std::nullopt;
  return SoundFrame{144000 * kLayer2Bitrates[size_t(index) - 1] / rate + (head[2] >> 1 & 1), kSamples, rate};
}

/// ETSI TS 102 114, 5.3.1.
std::optional<SoundFrame> DtsFrame(const quint8* head) {
  static constexpr std::array<int, 16> kRates{0,     8000, 16000, 32000, 0,     0,     11025, 22050,
                                              44100, 0,    0,     12000, 24000, 48000, 96000, 192000};
  const int rate = kRates[head[8] >> 2 & 15];
  const int blocks = ((head[4] & 1) << 6 | head[5] >> 2) + 1;
  const int bytes = ((head[5] & 3) << 12 | head[6] << 4 | head[7] >> 4) + 1;
  if (rate == 0 || bytes < kSoundFrameHead) return std::nullopt;
  return SoundFrame{bytes, blocks * 32, rate};
}

}  // namespace

std::optional<SoundFrame> ReadSoundFrame(QByteArrayView head) {
  if (head.size() < kSoundFrameHead) return std::nullopt;
  const auto* bytes = reinterpret_cast<const quint8*>(head.data());
  if (bytes[0] == 0x0B && bytes[1] == 0x77) return Ac3Frame(bytes);
  if (bytes[0] == 0xFF && (bytes[1] & 0xFE) == 0xFC) return Layer2Frame(bytes);
  if (head.startsWith("\x7F\xFE\x80\x01")) return DtsFrame(bytes);
  return std::nullopt;
}

}  // namespace torvane
