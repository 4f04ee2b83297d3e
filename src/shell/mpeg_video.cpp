#include "shell/mpeg_video.h"

#include <QFile>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<std::array<int, 2>, 9> kRates{
    {{0, 1}, {24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {50, 1}, {60000, 1001}, {60, 1}}};

class HeaderReader {
 public:
  static constexpr qsizetype kLongest = 12;  // bytes of a header that are looked at, its start code included

  void Take(const char* header) {
    bytes_ = reinterpret_cast<const quint8*>(header);
    switch (bytes_[3]) {
      case 0xB3:
        if (video_.width == 0) TakeSequence();
        break;
      case 0xB5:
        if (bytes_[4] >> 4 == 1) TakeSequenceExtension();
        if (bytes_[4] >> 4 == 8) TakePicture();
        break;
      default:
        break;
    }
  }

  bool IsMpeg2() const { return video_.width > 0 && extended_ && video_.fields > 0; }
  const MpegVideo& Video() const { return video_; }

 private:
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

  void TakePicture() {
    const bool topFirst = (bytes_[7] & 0x80) != 0;
    const bool repeats = (bytes_[7] & 2) != 0;
    if (video_.fields == 0) video_.topFieldFirst = topFirst;
    if ((bytes_[6] & 3) != 3) {
      video_.fields += 1;
    } else if (video_.progressive) {
      video_.fields += !repeats ? 2 : topFirst ? 6 : 4;
    } else {
      video_.fields += repeats ? 3 : 2;
    }
  }

  const quint8* bytes_ = nullptr;
  MpegVideo video_;
  bool extended_ = false;
};

}  // namespace

int MpegVideo::RateNumerator() const {
  return kRates[size_t(rateCode)][0];
}

int MpegVideo::RateDenominator() const {
  return kRates[size_t(rateCode)][1];
}

double MpegVideo::Seconds() const {
  return double(fields) / 2 * RateDenominator() / RateNumerator();
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
  if (!reader.IsMpeg2()) return Failure{u"%1: no MPEG-2 video"_s.arg(hostPath)};
  return reader.Video();
}

}  // namespace torvane
