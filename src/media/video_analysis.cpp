#include "media/video_analysis.h"

#include <array>
#include <cmath>

#include "core/messages.h"
#include "core/text.h"
#include "media/media_block.h"
#include "media/media_text.h"
#include "media/video_sampler.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kTicksASecond = 90000.0;
constexpr double kSecondsADay = 86400;
constexpr double kMostDifference = 1.0;        ///< seconds between the two clocks of a sound file
constexpr double kTrustedSpan = 50.0;          ///< seconds from which on the SCR is believed
constexpr qint64 kLeastSampledSize = 2000000;  ///< a smaller file is not sampled at its tenths
constexpr qsizetype kLateSequence = 10000;
constexpr qint64 kPaddingFromEnd = 12;
constexpr qsizetype kPaddingSize = 8;

class Analyser {
 public:
  Analyser(const QString& path, MediaFile& file, MpegInfo& info, Prompter& prompter)
      : path_(path), file_(file), info_(info), prompter_(prompter) {}

  bool Run() {
    const bool opens = file_.Size().has_value();
    samples_ = SampleVideo(file_, PackHeaderAt::FrontOfBlock);
    Record();
    bool scrIsSound = samples_.size >= kLeastSampledSize && samples_.isMultiplexed;
    if (samples_.found) {
      scrIsSound = scrIsSound && samples_.hasNavigationPacks;
      if (samples_.isMultiplexed) scrIsSound = CompareClocks() && scrIsSound;
    }
    if (scrIsSound) CheckScrOrder();
    CheckEnds();
    if (opens) CheckExtension();
    return samples_.found;
  }

 private:
  void Record() {
    info_.VideoFile = path_;
    info_.SizeMB = SizeInMB(samples_.size);
    info_.Mux = samples_.isMultiplexed ? 1 : 0;
    info_.MuxOK = samples_.found && samples_.hasNavigationPacks ? 1 : 0;
    info_.MpegVersion = samples_.hasExtension ? u"2"_s : u"1"_s;
    if (!samples_.found) return;
    info_.ResH = samples_.ResH;
    info_.ResV = samples_.ResV;
    info_.Aspect = samples_.Aspect;
    info_.FPS = samples_.FPS;
    info_.Duration = FormatTimecode(samples_.days, TimecodeStyle::Hundredths);
    info_.DurationSec = FourDecimals(samples_.days * kSecondsADay);
  }

  /// Compares the span of the SCR with that of the GOP headers. False when they contradict each other.
  bool CompareClocks() {
    const double span = double(samples_.LastSCR - samples_.FirstSCR) / kTicksASecond;
    if (span < 0) {
      prompter_.Fail(GetMessage(425) + u"  SCR="_s + TwoDecimals(span));
      return true;
    }
    if (std::abs(span - info_.DurationSec) <= kMostDifference) return true;

    const bool trusted = span >= kTrustedSpan;
    const double days = span / kSecondsADay;
    Warn(GetMessage(426, {{u"|1", trusted ? TimeOfDayText(days) : TwoDecimals(span)},
                          {u"|2", trusted ? TimeOfDayText(samples_.days) : TwoDecimals(info_.DurationSec)}}) +
         u"\r\n"_s + GetMessage(427, {{u"|1", u"\r\n"_s}, {u"|2", trusted ? u"SCR"_s : u"GOP"_s}}));
    if (trusted) {
      info_.DurationSec = span;
      info_.Duration = FormatTimecode(days, TimecodeStyle::Hundredths);
    }
    return false;
  }

  /// Compares the SCR at the tenths of the file, each with the next.
  void CheckScrOrder() {
    std::array<qint64, 10> samples{};
    for (int i = 1; i <= 9; ++i) {
      const auto tenths = float(i * 0.1);
      const auto offset = qint64(RoundHalfEven(double(samples_.size) * double(tenths)));
      samples[i] = LastSCROf(MediaBlock(file_, offset, kBlockSize));
    }
    for (int i = 1; i <= 8; ++i) {
      if (samples[i] == 0 || samples[i + 1] == 0 || samples[i] <= samples[i + 1]) continue;
      prompter_.Fail(GetMessage(688, {{u"|1", TwoDecimals(double(samples[i + 1] - samples[i]) / kTicksASecond)},
                                      {u"|2", QString::number(i)}}));
      warned_ = true;
      return;
    }
  }

  /// A whole film ends with padding and begins with its sequence header; a part of a vobset does not.
  void CheckEnds() {
    if (samples_.size <= 20 || warned_ || info_.Mux != 1 || info_.MuxOK != 1) return;
    const MediaBlock end(file_, samples_.size - kPaddingFromEnd, kPaddingSize);
    const bool padded =
        end.Content() == QByteArray(kPaddingSize, '\0') || end.Content() == QByteArray(kPaddingSize, '\xFF');
    if (!padded) {
      Warn(GetMessage(689, {{u"|1", u"\r\n"_s}}));
    } else if (samples_.sequenceAt == 0 || samples_.sequenceAt > kLateSequence) {
      Warn(GetMessage(690, {{u"|1", u"\r\n"_s}}));
    }
  }

  void CheckExtension() {
    if (info_.Mux == 1 || warned_) return;
    const QString ending = path_.right(3).toLower();
    if (ending == u"vob" || ending == u"mpg") Warn(GetMessage(691, {{u"|1", ending}}));
  }

  void Warn(const QString& text) {
    prompter_.Warn(text);
    warned_ = true;
  }

  const QString& path_;
  MediaFile& file_;
  MpegInfo& info_;
  Prompter& prompter_;
  VideoSamples samples_;
  bool warned_ = false;
};

}  // namespace

bool AnalyseVideoFile(const QString& path, MpegInfo& info, Prompter& prompter) {
  HostMediaFile file(path);
  return AnalyseVideoFile(path, file, info, prompter);
}

bool AnalyseVideoFile(const QString& path, MediaFile& file, MpegInfo& info, Prompter& prompter) {
  return Analyser(path, file, info, prompter).Run();
}

}  // namespace torvane
