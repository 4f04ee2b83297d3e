#include "media/audio_analysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/text.h"
#include "media/media_block.h"
#include "media/media_text.h"
#include "media/sound_frame.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kWavHeaderSize = 40;
constexpr qint64 kHeadSize = 10000;

/// kbit a second by the layer I, II, III and the bit rate index 1 to 14, as the MPEG-1 streams of ISO/IEC 11172-3 have
/// them, and for MPEG-2 the rates that the program has always assumed.
constexpr std::array<std::array<int, 14>, 6> kMpegBitrates{{
    {32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    kLayer2Bitrates,
    {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
    {32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    kLayer2Bitrates,
    {8, 16, 24, 32, 64, 80, 56, 64, 128, 160, 112, 128, 256, 320},
}};

struct AudioHead {
  int bitrate = 0;
  int sampleFreq = 0;
};

/// Everything behind the last "." of the path; nothing without one.
std::optional<QString> ExtensionOf(const QString& path) {
  const qsizetype dot = path.lastIndexOf(u'.');
  if (dot < 0) return std::nullopt;
  return path.sliced(dot + 1).toUpper();
}

std::optional<AudioHead> ReadAc3Head(const MediaBlock& head) {
  static constexpr std::array<int, 4> kFrequencies{48000, 44100, 32000, 0};
  if (head.At(1) != 0x0B || head.At(2) != 0x77) return std::nullopt;
  const int frequency = kFrequencies[head.At(5) >> 6];
  const int sizeCode = head.At(5) & 0x3F;
  if (frequency == 0 || sizeCode >= 2 * int(kAc3Bitrates.size())) return std::nullopt;
  return AudioHead{kAc3Bitrates[sizeCode / 2], frequency};
}

/// The row of kMpegBitrates by the version and layer bits of the second byte, or -1.
int MpegRow(int versionAndLayer) {
  switch (versionAndLayer) {
    case 30:
      return 0;
    case 28:
      return 1;
    case 26:
      return 2;
    case 22:
      return 3;
    case 20:
      return 4;
    case 18:
      return 5;
    default:
      return -1;
  }
}

std::optional<AudioHead> ReadMpegHead(const MediaBlock& head) {
  static constexpr std::array<int, 4> kFrequencies{44100, 48000, 32000, 0};
  if (head.At(1) != 0xFF || (head.At(2) & 0xE0) != 0xE0) return std::nullopt;
  const int row = MpegRow(head.At(2) & 0x1E);
  const int index = head.At(3) >> 4;
  // Free format (0) and the forbidden index (15) tell no bit rate, and so no playing time.
  if (row < 0 || index == 0 || index == 15) return std::nullopt;
  const bool isMpeg1 = row <= 2;
  return AudioHead{kMpegBitrates[row][index - 1], isMpeg1 ? kFrequencies[(head.At(3) >> 2) & 3] : 0};
}

/// "hh:mm:ss.mmm" of seconds that have four decimals; the last one rounds.
QString DurationText(double seconds) {
  constexpr qint64 kMillisecondsADay = 86400000;
  const auto milliseconds = (qint64(std::round(seconds * 10000)) + 5) / 10;
  // A quarter of a millisecond keeps the division from falling below the whole number.
  return FormatTimecode((double(milliseconds % kMillisecondsADay) + 0.25) / double(kMillisecondsADay),
                        TimecodeStyle::Milliseconds);
}

void SetTime(double seconds, AudioInfo& info) {
  info.AudioSeconds = FourDecimals(seconds);
  info.Duration = DurationText(info.AudioSeconds);
}

bool AnalyseWav(MediaFile& file, qint64 size, AudioInfo& info) {
  if (size < kWavHeaderSize) return false;
  info.SizeMB = SizeInMB(size);
  const MediaBlock head(file, 0, kWavHeaderSize);
  const QByteArray bytes = head.Content();
  if (bytes.first(std::min<qsizetype>(4, bytes.size())) != "RIFF" || bytes.mid(8, 7) != "WAVEfmt" || head.At(21) != 1) {
    return false;
  }
  const auto number = [&](qsizetype at) { return head.At(at) + head.At(at + 1) * 256 + head.At(at + 2) * 65536; };
  const int bytesASecond = number(29);
  if (bytesASecond == 0) return false;
  info.SampleFreq = number(25);
  info.Bitrate = RoundToInt(bytesASecond / 125.0);
  SetTime(double(size) / bytesASecond, info);
  return true;
}

}  // namespace

bool IsAudioFile(const QString& path) {
  const QString extension = GetExtensionUpper(path);
  return extension == u"AC3" || extension == u"MP2" || extension == u"MPA" || extension == u"M2P" ||
         extension == u"DTS" || extension == u"WAV";
}

bool AnalyseAudioFile(const QString& path, AudioInfo& info) {
  HostMediaFile file(path);
  return AnalyseAudioFile(path, file, info);
}

bool AnalyseAudioFile(const QString& path, MediaFile& file, AudioInfo& info) {
  const std::optional<QString> extension = ExtensionOf(path);
  if (!extension) return false;
  const qint64 size = FileSizeOf(file);
  if (*extension == u"DTS") {
    info = {.Duration = u"???"_s, .SizeMB = SizeInMB(size)};
    return true;
  }
  if (*extension == u"WAV") return AnalyseWav(file, size, info);

  const MediaBlock head(file, 0, qsizetype(std::min(size, kHeadSize)));
  const std::optional<AudioHead> audio = *extension == u"AC3" ? ReadAc3Head(head) : ReadMpegHead(head);
  if (!audio) return false;
  info.Bitrate = audio->bitrate;
  info.SampleFreq = audio->sampleFreq;
  info.SizeMB = SizeInMB(size);
  SetTime(double(size) * 8 / (audio->bitrate * 1000.0), info);
  return true;
}

}  // namespace torvane
