#include "media/video_head.h"

#include <QSaveFile>
#include <cmath>

#include "media/media_block.h"
#include "media/media_text.h"
#include "media/video_sampler.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kTicksASecond = 90000.0;
constexpr double kSecondsADay = 86400;

/// Counts the pictures of the blocks copied so far and says when there are enough.
class PictureCount {
 public:
  PictureCount(int frames, const VideoProbe& probe) : frames_(frames), probe_(probe) {}

  bool IsEnough() const { return count_ >= frames_; }

  void Add(const MediaBlock& block) {
    count_ += block.Count(StartCode::Picture);
    if (!probe_.ScrUsable || !IsEnough()) return;
    const qint64 scr = LastSCROf(block);
    if (scr == 0) return;
    const double seconds = double(scr - probe_.FirstSCR) / kTicksASecond;
    // The pictures of a stream that was cut or joined may be counted too high; the clock then asks for more.
    if (seconds < frames_ / double(probe_.Fps)) count_ = frames_ - 1;
  }

 private:
  const int frames_;
  const VideoProbe& probe_;
  qint64 count_ = 0;
};

}  // namespace

VideoProbe ProbeVideoFile(MediaFile& file) {
  const VideoSamples samples = SampleVideo(file, PackHeaderAt::Anywhere);
  if (!samples.found) return {};
  const double span = double(samples.LastSCR - samples.FirstSCR) / kTicksASecond;
  const double duration = FourDecimals(samples.days * kSecondsADay);
  return {.Found = true,
          .Fps = samples.FPS,
          .FirstSCR = samples.FirstSCR,
          .ScrUsable = samples.isMultiplexed && span >= 0 && std::abs(span - duration) < 1.0};
}

Status CopyVideoHead(int frames, const QString& source, const QString& destination) {
  HostFiles::RemoveFile(destination.chopped(std::min<qsizetype>(3, destination.size())) + u"d2v"_s);
  HostMediaFile file(source);
  const std::optional<qint64> size = file.Size();
  if (!size) return Failure{u"The video cannot be read: "_s + source};

  const VideoProbe probe = ProbeVideoFile(file);
  PictureCount pictures(frames, probe);
  QSaveFile copy(HostFiles::ToHost(destination));
  bool written = copy.open(QIODevice::WriteOnly);
  for (qint64 offset = 0; written; offset += kBlockSize) {
    const MediaBlock block(file, offset, std::min<qint64>(*size, kBlockSize));
    const QByteArray bytes = block.Content();
    pictures.Add(MediaBlock(bytes));
    written = copy.write(bytes) == bytes.size();
    if (pictures.IsEnough() || bytes.size() < kBlockSize) break;
  }
  if (!written || !copy.commit()) {
    return Failure{u"The copy of a video cannot be written: %1 (%2)"_s.arg(destination, copy.errorString())};
  }
  return {};
}

}  // namespace torvane
