#include "media/sound_kind.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

quint8 At(QByteArrayView bytes, qsizetype at) {
  return at < bytes.size() ? quint8(bytes[at]) : 0;
}

bool Begins(QByteArrayView bytes, std::initializer_list<int> pattern) {
  qsizetype at = 0;
  for (const int byte : pattern) {
    if (at >= bytes.size() || quint8(bytes[at++]) != byte) return false;
  }
  return true;
}

quint32 LittleEndian(QByteArrayView bytes, qsizetype at, int count) {
  quint32 number = 0;
  for (int i = count - 1; i >= 0; --i) number = number << 8 | At(bytes, at + i);
  return number;
}

MediaKind Other(const QString& name, int sampleRate = 0) {
  return {.type = MediaType::OtherSound, .name = name, .sampleRate = sampleRate};
}

/// ATSC A/52, 5.4: from bit stream identification 11 on it is Annex E, which DVD-Video does not know.
MediaKind Ac3(QByteArrayView head) {
  static constexpr std::array<int, 4> kRates{48000, 44100, 32000, 0};
  constexpr int kLastOfAc3 = 10;
  const int rate = kRates[At(head, 4) >> 6];
  if (At(head, 5) >> 3 > kLastOfAc3) return Other(u"E-AC3 (Dolby Digital Plus) sound"_s, rate);
  return {.type = MediaType::Ac3, .name = u"AC3 sound"_s, .sampleRate = rate};
}

/// ETSI TS 102 114, 5.3.1.
MediaKind Dts(QByteArrayView head) {
  static constexpr std::array<int, 16> kRates{0,     8000, 16000, 32000, 0,     0,     11025, 22050,
                                              44100, 0,    0,     12000, 24000, 48000, 96000, 192000};
  return {.type = MediaType::Dts, .name = u"DTS sound"_s, .sampleRate = kRates[At(head, 8) >> 2 & 15]};
}

/// ISO/IEC 11172-3, 2.4.1.3, with the half and quarter rates of 13818-3 and later.
std::optional<MediaKind> MpegAudio(QByteArrayView head) {
  static constexpr std::array<int, 3> kRates{44100, 48000, 32000};
  if (At(head, 0) != 0xFF || (At(head, 1) & 0xE0) != 0xE0) return std::nullopt;
  const int version = At(head, 1) >> 3 & 3;  // 0: 2.5, 2: MPEG-2, 3: MPEG-1
  const int layer = 4 - (At(head, 1) >> 1 & 3);
  const int rateIndex = At(head, 2) >> 2 & 3;
  if (version == 1 || rateIndex == 3 || At(head, 2) >> 4 == 15) return std::nullopt;
  const int rate = kRates[rateIndex] / (version == 3 ? 1 : version == 2 ? 2 : 4);
  switch (layer) {
    case 1:
      return Other(u"MPEG layer I sound"_s, rate);
    case 2:
      return MediaKind{.type = MediaType::MpegLayer2, .name = u"MPEG layer II sound"_s, .sampleRate = rate};
    case 3:
      return Other(u"MP3 (MPEG layer III) sound"_s, rate);
    default:
      return std::nullopt;  // a fourth layer has never been; AAC has these bits
  }
}

MediaKind Wave(QByteArrayView head) {
  constexpr quint32 kPcm = 1;
  constexpr quint32 kExtensible = 0xFFFE;  // the kind then stands behind
  for (qsizetype at = 12; at + 8 <= head.size();) {
    const qsizetype size = LittleEndian(head, at + 4, 4);
    if (head.sliced(at).startsWith("fmt ")) {
      quint32 kind = LittleEndian(head, at + 8, 2);
      if (kind == kExtensible) kind = LittleEndian(head, at + 8 + 24, 2);
      const int rate = int(LittleEndian(head, at + 12, 4));
      if (kind != kPcm) return Other(u"a WAV file whose sound is compressed or of floating numbers"_s, rate);
      return {.type = MediaType::Wave,
              .name = u"a WAV file"_s,
              .sampleRate = rate,
              .bits = int(LittleEndian(head, at + 22, 2)),
              .channels = int(LittleEndian(head, at + 10, 2))};
    }
    at += 8 + size + size % 2;
  }
  return Other(u"a WAV file without a format"_s);
}

}  // namespace

qint64 LeadingTagSize(QByteArrayView head) {
  constexpr qsizetype kHeader = 10;
  if (!head.startsWith("ID3") || head.size() < kHeader) return 0;
  qint64 size = kHeader + ((At(head, 5) & 0x10) != 0 ? kHeader : 0);
  for (int i = 0; i < 4; ++i) size += qint64(At(head, 6 + i) & 0x7F) << (7 * (3 - i));
  return size;
}

std::optional<MediaKind> IdentifySound(QByteArrayView head) {
  static const struct {
    std::initializer_list<int> begin;
    QString name;
  } kOthers[] = {
      {{0x77, 0x0B}, u"AC3 sound with its bytes swapped"_s},
      {{0xFE, 0x7F, 0x01, 0x80}, u"DTS sound with its bytes swapped"_s},
      {{0x1F, 0xFF, 0xE8, 0x00}, u"DTS sound in words of 14 bits"_s},
      {{0xFF, 0x1F, 0x00, 0xE8}, u"DTS sound in words of 14 bits"_s},
      {{0x64, 0x58, 0x20, 0x25}, u"DTS-HD sound"_s},
      {{'D', 'T', 'S', 'H', 'D', 'H', 'D', 'R'}, u"DTS-HD sound"_s},
      {{'f', 'L', 'a', 'C'}, u"FLAC sound"_s},
      {{'O', 'g', 'g', 'S'}, u"an Ogg file"_s},
      {{'F', 'O', 'R', 'M'}, u"an AIFF file"_s},
      {{'w', 'v', 'p', 'k'}, u"WavPack sound"_s},
      {{'M', 'A', 'C', ' '}, u"Monkey's Audio sound"_s},
      {{'c', 'a', 'f', 'f'}, u"a CAF file"_s},
      {{'R', 'F', '6', '4'}, u"an RF64 file"_s},
  };
  if (Begins(head, {0x0B, 0x77})) return Ac3(head);
  if (Begins(head, {0x7F, 0xFE, 0x80, 0x01})) return Dts(head);
  if (head.startsWith("RIFF") && head.sliced(std::min<qsizetype>(8, head.size())).startsWith("WAVE")) return Wave(head);
  for (const auto& other : kOthers) {
    if (Begins(head, other.begin)) return Other(other.name);
  }
  const QByteArrayView behindLength = head.sliced(std::min<qsizetype>(4, head.size()));
  if (Begins(behindLength, {0xF8, 0x72, 0x6F, 0xBA})) return Other(u"Dolby TrueHD sound"_s);
  const bool isAdts = At(head, 0) == 0xFF && (At(head, 1) & 0xF6) == 0xF0;
  const bool isLoas = At(head, 0) == 0x56 && (At(head, 1) & 0xE0) == 0xE0;
  if (isAdts || (isLoas && head.size() > 3)) return Other(u"AAC sound"_s);
  return MpegAudio(head);
}

}  // namespace torvane
