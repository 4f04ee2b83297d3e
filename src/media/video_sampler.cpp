#include "media/video_sampler.h"

#include <algorithm>
#include <array>

#include "media/media_block.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kBlockMargin = 10;  ///< blocks overlap, and headers in the last bytes are cut off
constexpr int kMoreBlocks = 10;
constexpr int kTailBlocks = 50;
constexpr qsizetype kMostFromPacket = 100;  ///< from a video packet to the sequence header in it

/// Lengths of the two packets of a navigation pack.
constexpr int kPciLength = 0x03D4;
constexpr int kDsiLength = 0x03FA;

constexpr float kNtscRate = 29.97F;
constexpr double kNtscStretch = 1.001001001;

/// ISO/IEC 13818-2, table 6-4. An unknown code counts as 25.
float RateOf(int code) {
  static constexpr std::array<float, 9> kRates{25, 23.976F, 24, 25, kNtscRate, 30, 50, 59.94F, 60};
  return code < int(kRates.size()) ? kRates[code] : kRates[0];
}

QString AspectOf(int code) {
  switch (code) {
    case 1:
      return u"1:1"_s;
    case 3:
      return u"16:9"_s;
    case 4:
      return u"2.21:1"_s;
    default:
      return u"4:3"_s;
  }
}

/// Time code of a GOP header. ISO/IEC 13818-2, 6.2.2.6.
struct GopTime {
  bool drop = false;
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  int pictures = 0;
};

GopTime ReadGopTime(const MediaBlock& block, qsizetype at) {
  const int b0 = block.At(at + 4);
  const int b1 = block.At(at + 5);
  const int b2 = block.At(at + 6);
  const int b3 = block.At(at + 7);
  return {.drop = (b0 & 0x80) != 0,
          .hours = (b0 & 0x7C) / 4,
          .minutes = (b0 & 0x03) * 16 + (b1 & 0xF0) / 16,
          .seconds = (b1 & 0x07) * 8 + (b2 & 0xE0) / 32,
          .pictures = (b2 & 0x1F) * 2 + (b3 & 0x80) / 128};
}

/// A GOP header has its marker bit, no bits behind its flags and less than 24 hours; anything else only looks like one.
bool IsGop(const MediaBlock& block, qsizetype at) {
  return (block.At(at + 5) & 0x08) != 0 && (block.At(at + 7) & 0x1F) == 0 && (block.At(at + 4) & 0x7C) < 0x60;
}

double DaysOf(const GopTime& time, float fps) {
  return time.minutes / 1440.0 + time.hours / 24.0 + time.seconds / 86400.0 + time.pictures / 86400.0 / double(fps);
}

bool HasPrivatePacket(const MediaBlock& block, int length) {
  for (qsizetype at = block.Find(StartCode::PrivateStream2); at != 0;
       at = block.Find(StartCode::PrivateStream2, at + 1)) {
    if (block.At(at + 4) == length >> 8 && block.At(at + 5) == (length & 0xFF)) return true;
  }
  return false;
}

class Sampler {
 public:
  Sampler(MediaFile& file, PackHeaderAt packs) : file_(file), packs_(packs) {}

  VideoSamples Run() {
    samples_.size = FileSizeOf(file_);
    FirstBlock();
    MoreBlocks();
    if (!samples_.found) return samples_;
    SequenceHeader();
    samples_.hasNavigationPacks =
        samples_.isMultiplexed && HasPrivatePacket(block_, kPciLength) && HasPrivatePacket(block_, kDsiLength);
    FirstGop();
    if (samples_.size < kBlockSize) {
      CountSmallFile();
    } else {
      ScanTail();
    }
    Duration();
    return samples_;
  }

 private:
  void FirstBlock() {
    const qsizetype count = std::min<qint64>(samples_.size, kBlockSize);
    block_ = MediaBlock(file_, 0, count);
    const qsizetype pack = block_.Find(StartCode::Pack);
    samples_.isMultiplexed = pack != 0 && (packs_ == PackHeaderAt::Anywhere || pack < count - kBlockMargin);
    if (samples_.isMultiplexed) samples_.FirstSCR = GetSCR(block_, pack);
    FindSequence(0);
    samples_.sequenceAt = sequence_;
  }

  void MoreBlocks() {
    for (int i = 1; i <= kMoreBlocks && !samples_.found; ++i) {
      const qint64 offset = i * (kBlockSize - kBlockMargin);
      if (samples_.size <= offset + kBlockSize) return;
      block_ = MediaBlock(file_, offset, kBlockSize);
      FindSequence(offset);
    }
  }

  /// Looks for the sequence header in the block that begins at `offset`. In a program stream it must lie closely behind
  /// the start of a video packet, or else it is a pattern in some other packet.
  void FindSequence(qint64 offset) {
    if (block_.Find(StartCode::Extension) != 0) samples_.hasExtension = true;
    qsizetype packet = 0;
    qsizetype nextPacket = block_.Find(StartCode::Video);
    for (qsizetype hit = block_.Find(StartCode::Sequence); hit != 0; hit = block_.Find(StartCode::Sequence, hit + 1)) {
      while (nextPacket != 0 && nextPacket < hit) {
        packet = nextPacket;
        nextPacket = block_.Find(StartCode::Video, nextPacket + 1);
      }
      const bool counts = !samples_.isMultiplexed || (packet != 0 ? hit - packet <= kMostFromPacket
                                                                  : hit < kMostFromPacket && BeginsInside(offset));
      if (counts) {
        sequence_ = hit;
        samples_.found = true;
        return;
      }
    }
  }

  /// True when the packet around the start of a later block is a video packet.
  bool BeginsInside(qint64 offset) {
    if (offset == 0) return false;
    const MediaBlock around(file_, offset - kMostFromPacket, 2 * kMostFromPacket);
    return around.Find(StartCode::Video) != 0;
  }

  void SequenceHeader() {
    const auto b = [&](int i) { return int(block_.At(sequence_ + 4 + i)); };
    samples_.ResH = b(0) * 16 + (b(1) & 0xF0) / 16;
    samples_.ResV = (b(1) & 0x0F) * 256 + b(2);
    samples_.Aspect = AspectOf(b(3) >> 4);
    samples_.FPS = RateOf(b(3) & 0x0F);
  }

  void FirstGop() {
    firstGop_ = block_.Find(StartCode::Group);
    while (firstGop_ != 0 && !IsGop(block_, firstGop_)) firstGop_ = block_.Find(StartCode::Group, firstGop_ + 1);
    if (firstGop_ != 0) first_ = ReadGopTime(block_, firstGop_);
    last_ = first_;
  }

  void CountSmallFile() {
    if (firstGop_ != 0) pictures_ = block_.Count(StartCode::Picture, firstGop_);
    if (!samples_.isMultiplexed) return;
    const qsizetype pack = block_.FindBack(StartCode::Pack, block_.Size());
    if (pack != 0 && pack < samples_.size - kBlockMargin) samples_.LastSCR = GetSCR(block_, pack);
  }

  /// From the end backwards, until a GOP header is found: its time and the pictures behind it make the last time.
  void ScanTail() {
    int pictures = 0;
    qint64 back = kBlockSize;
    for (int round = 1; round <= kTailBlocks; ++round) {
      const MediaBlock block(file_, samples_.size - back, kBlockSize);
      if (samples_.isMultiplexed && samples_.LastSCR == 0) samples_.LastSCR = LastSCROf(block);

      qsizetype lastHeader = 0;
      qsizetype lastValid = 0;
      for (qsizetype at = block.Find(StartCode::Group); at != 0; at = block.Find(StartCode::Group, at + 1)) {
        lastHeader = at;
        if (IsGop(block, at)) lastValid = at;
      }
      if (lastValid != 0) {
        last_ = ReadGopTime(block, lastValid);
        pictures_ = pictures + block.Count(StartCode::Picture, lastHeader);
        return;
      }
      pictures += block.Count(StartCode::Picture);
      back += kBlockSize - round * kBlockMargin;
      if (back > samples_.size) return;
    }
  }

  void Duration() {
    last_.pictures = qint16(last_.pictures + pictures_);
    samples_.days = DaysOf(last_, samples_.FPS) - DaysOf(first_, samples_.FPS);
    if (samples_.FPS == kNtscRate && !first_.drop) samples_.days /= kNtscStretch;
  }

  MediaFile& file_;
  const PackHeaderAt packs_;
  VideoSamples samples_;
  MediaBlock block_;
  qsizetype sequence_ = 0;
  qsizetype firstGop_ = 0;
  GopTime first_;
  GopTime last_;
  int pictures_ = 0;
};

}  // namespace

VideoSamples SampleVideo(MediaFile& file, PackHeaderAt packs) {
  return Sampler(file, packs).Run();
}

}  // namespace torvane
