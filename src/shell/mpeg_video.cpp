#include "shell/mpeg_video.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<std::array<int, 2>, 9> kRates{
    {{0, 1}, {24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {50, 1}, {60000, 1001}, {60, 1}}};

// The last byte of a start code, and the number in the first four bits of an extension.
constexpr quint8 kPicture = 0x00;
constexpr quint8 kSequence = 0xB3;
constexpr quint8 kExtension = 0xB5;
constexpr quint8 kGroup = 0xB8;
constexpr int kSequenceExtension = 1;
constexpr int kPictureExtension = 8;

int TemporalReference(const quint8* header) {
  return header[4] << 2 | header[5] >> 6;
}

class HeaderReader {
 public:
  static constexpr qsizetype kLongest = 12;  // bytes of a header that are looked at, its start code included

  void Take(const char* header) {
    bytes_ = reinterpret_cast<const quint8*>(header);
    switch (bytes_[3]) {
      case kSequence:
        if (video_.width == 0) TakeSequence();
        break;
      case kGroup:
        EndGroup();
        break;
      case kPicture:
        TakePicture();
        break;
      case kExtension:
        if (bytes_[4] >> 4 == kSequenceExtension) TakeSequenceExtension();
        if (bytes_[4] >> 4 == kPictureExtension) TakePictureExtension();
        break;
      default:
        break;
    }
  }

  void End() { EndGroup(); }

  bool IsMpeg2() const { return video_.width > 0 && extended_ && !video_.pictures.isEmpty(); }
  const MpegVideo& Video() const { return video_; }

 private:
  struct Numbered {
    int place;
    PictureFlags flags;
  };

  void TakeSequence() {
    if (bytes_[7] % 16 >= int(kRates.size()) || bytes_[7] % 16 == 0) return;
    video_.width = bytes_[4] << 4 | bytes_[5] >> 4;
    video_.height = (bytes_[5] & 15) << 8 | bytes_[6];
    video_.aspect = bytes_[7] >> 4;
    video_.rateCode = bytes_[7] & 15;
    video_.bitRate = 400LL * (bytes_[8] << 10 | bytes_[9] << 2 | bytes_[10] >> 6);
  }

  void TakeSequenceExtension() {
    extended_ = true;
    video_.progressive = (bytes_[5] & 8) != 0;
  }

  /// A temporal reference counts from the group's header on and begins anew behind 1023.
  void TakePicture() {
    constexpr int kTurn = 1024;
    place_ = TemporalReference(bytes_) + turns_ * kTurn;
    if (!group_.empty() && place_ < group_.back().place - kTurn / 2)
      place_ = TemporalReference(bytes_) + ++turns_ * kTurn;
  }

  void TakePictureExtension() {
    constexpr int kTopField = 1;
    constexpr int kFrame = 3;
    const int structure = bytes_[6] & 3;
    if (structure != kFrame && !group_.empty() && group_.back().place == place_ && halfShown_) {
      halfShown_ = false;
      return;
    }
    halfShown_ = structure != kFrame;
    const bool topFirst = structure == kFrame ? (bytes_[7] & 0x80) != 0 : structure == kTopField;
    group_.push_back({place_, {topFirst, structure == kFrame && (bytes_[7] & 2) != 0, (bytes_[8] & 0x80) != 0}});
  }

  void EndGroup() {
    if (video_.pictures.isEmpty() && !group_.empty()) {
      const int first = group_.front().place;
      video_.orphans =
          int(std::ranges::count_if(group_, [=](const Numbered& picture) { return picture.place < first; }));
    }
    std::ranges::stable_sort(group_, {}, &Numbered::place);
    for (const Numbered& picture : group_) video_.pictures << picture.flags;
    group_.clear();
    turns_ = 0;
    halfShown_ = false;
  }

  const quint8* bytes_ = nullptr;
  MpegVideo video_;
  bool extended_ = false;
  std::vector<Numbered> group_;  // in the order of coding
  int place_ = 0;                // of the picture whose header came last
  int turns_ = 0;
  bool halfShown_ = false;  // the last picture is the first of two fields
};

void SetBits(quint8& byte, quint8 mask, bool value) {
  byte = quint8(value ? byte | mask : byte & ~mask);
}

/// A time code of 25 or 30 pictures a second, none dropped. ISO/IEC 13818-2, 6.3.8.
void WriteTimeCode(quint8* group, qint64 frames, int rate) {
  const auto pictures = quint32(frames % rate);
  const auto seconds = quint32(frames / rate % 60);
  const auto minutes = quint32(frames / rate / 60 % 60);
  const auto hours = quint32(frames / rate / 3600 % 24);
  const quint32 code = hours << 26 | minutes << 20 | 1U << 19 | seconds << 13 | pictures << 7;
  for (int i = 0; i < 3; ++i) group[4 + i] = quint8(code >> (24 - 8 * i));
  group[7] = quint8((code & 0x80) | (group[7] & 0x7F));
}

class Stamper {
 public:
  Stamper(const MpegVideo& video, CodingTools tools) : video_(video), tools_(tools) {}

  void Stamp(quint8* header) {
    switch (header[3]) {
      case kSequence:
        header[7] = quint8((header[7] & 0xF0) | video_.rateCode);
        break;
      case kGroup:
        StampGroup(header);
        break;
      case kPicture:
        place_ = base_ + TemporalReference(header);
        ++count_;
        break;
      case kExtension:
        if (header[4] >> 4 == kSequenceExtension) SetBits(header[5], 8, video_.progressive);
        if (header[4] >> 4 == kPictureExtension) StampPicture(header);
        break;
      default:
        break;
    }
  }

 private:
  void StampGroup(quint8* header) {
    for (qint64 i = 0; i < count_; ++i) fields_ += video_.FieldsOf(PictureAt(base_ + i));
    base_ += count_;
    count_ = 0;
    WriteTimeCode(header, fields_ / 2, (video_.RateNumerator() + 500) / video_.RateDenominator());
  }

  const PictureFlags& PictureAt(qint64 place) const {
    return video_.pictures[std::min(place, qint64(video_.pictures.size()) - 1)];
  }

  void StampPicture(quint8* header) {
    const PictureFlags& flags = PictureAt(place_);
    const bool isProgressive = flags.progressive && (tools_ == CodingTools::FramesAlone || flags.repeats);
    SetBits(header[7], 0x80, flags.topFirst);
    SetBits(header[7], 2, flags.repeats);
    SetBits(header[7], 1, isProgressive);  // chroma_420_type follows it
    SetBits(header[8], 0x80, isProgressive);
  }

  const MpegVideo& video_;
  CodingTools tools_;
  qint64 base_ = 0;   // place of the group's first picture
  qint64 count_ = 0;  // pictures of the group so far
  qint64 place_ = 0;
  qint64 fields_ = 0;  // shown before the group
};

}  // namespace

int MpegVideo::RateNumerator() const {
  return kRates[size_t(rateCode)][0];
}

int MpegVideo::RateDenominator() const {
  return kRates[size_t(rateCode)][1];
}

int MpegVideo::FieldsOf(const PictureFlags& picture) const {
  if (!picture.repeats) return 2;
  if (!progressive) return 3;
  return picture.topFirst ? 6 : 4;
}

qint64 MpegVideo::Fields() const {
  return std::accumulate(pictures.begin(), pictures.end(), qint64(0),
                         [this](qint64 sum, const PictureFlags& picture) { return sum + FieldsOf(picture); });
}

double MpegVideo::Seconds() const {
  return double(Fields()) / 2 * RateDenominator() / RateNumerator();
}

Result<MpegVideo> ReadMpegVideo(const QString& hostPath) {
  constexpr qint64 kChunk = 1048576;
  QFile file(hostPath);
  if (!file.open(QIODevice::ReadOnly)) return Failure{hostPath + u": "_s + file.errorString()};
  HeaderReader reader;
  const QByteArray startCode("\0\0\1", 3);
  QByteArray bytes;
  for (;;) {
    const QByteArray more = file.read(kChunk);
    if (more.isEmpty()) break;
    bytes += more;
    qsizetype at = 0;
    for (;; ++at) {
      at = bytes.indexOf(startCode, at);
      if (at < 0 || at + HeaderReader::kLongest > bytes.size()) break;
      reader.Take(bytes.constData() + at);
    }
    bytes = at < 0 ? bytes.right(2) : bytes.sliced(at);
  }
  if (file.error() != QFileDevice::NoError) return Failure{hostPath + u": "_s + file.errorString()};
  reader.End();
  if (!reader.IsMpeg2()) return Failure{u"%1: no MPEG-2 video"_s.arg(hostPath)};
  return reader.Video();
}

Status StampPictures(const QString& hostPath, const MpegVideo& video, CodingTools tools) {
  QFile file(hostPath);
  if (!file.open(QIODevice::ReadWrite)) return Failure{hostPath + u": "_s + file.errorString()};
  uchar* const bytes = file.map(0, file.size());
  if (!bytes) return Failure{hostPath + u": "_s + file.errorString()};
  const QByteArrayView view(bytes, file.size());
  Stamper stamper(video, tools);
  const QByteArrayView startCode("\0\0\1", 3);
  for (qsizetype at = view.indexOf(startCode); at >= 0 && at + HeaderReader::kLongest <= view.size();
       at = view.indexOf(startCode, at + 3)) {
    stamper.Stamp(bytes + at);
  }
  return file.unmap(bytes) && file.flush() ? Status() : Failure{hostPath + u": "_s + file.errorString()};
}

}  // namespace torvane
