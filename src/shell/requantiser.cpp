#include "shell/requantiser.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>
#include <cmath>

#include "shell/process_chain.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kWorthAnother = 0.02;  // parts of the wanted size
constexpr double kTooLarge = 0.05;
constexpr int kMostTries = 4;
constexpr qint64 kFastest = 9500000;  // bits a second; DVD-Video allows 9.8 million
constexpr double kBlurs[] = {0, 1, 2, 4, 8, 16};

class Requantiser {
 public:
  Requantiser(const QString& input, const QString& output, const MpegVideo& video)
      : input_(input), output_(output), video_(video) {
    const auto has = [&](auto flag) { return std::ranges::any_of(video_.pictures, flag); };
    pulldown_ = has(&PictureFlags::repeats);
    const bool isFilm = !has([](const PictureFlags& picture) { return !picture.progressive; });
    // The two kinds of sequence have rows of macroblocks of the same number only at these heights.
    constexpr int kRowPair = 32;
    const bool mayBeCalledEither = video_.height % kRowPair == 0;
    framesAlone_ = video_.progressive || ((pulldown_ || isFilm) && mayBeCalledEither);
    numerator_ = video_.RateNumerator();
    denominator_ = video_.RateDenominator();
    // Pictures of 3:2 pulldown come at the rate of cinema; a buffer that is filled for that does not run dry.
    constexpr int kFilmOfNtsc = 24000;
    constexpr int kNtsc = 30000;
    if (numerator_ == kNtsc && double(video_.Fields()) / double(video_.pictures.size()) > 2.4) numerator_ = kFilmOfNtsc;
  }

  Result<Requantised> Run(double wanted) {
    if (Program().isEmpty()) return Failure{u"ffmpeg is not installed; install the Debian package ffmpeg"_s};
    for (const double blur : kBlurs) {
      const Result<Outcome> outcome = blur == 0 ? TryTwoPasses(wanted) : TryRates(wanted, Pass::Only, blur);
      if (!outcome) return Failure{outcome.Error()};
      if (*outcome == Outcome::Reached) return Stamped(blur);
    }
    return Failure{
        u"%1: cannot be made as small as %2 bytes; choose a smaller factor"_s.arg(input_).arg(qint64(wanted))};
  }

 private:
  enum class Outcome { Reached, TooLarge };
  enum class Pass { Only, First, Second };

  static QString Program() { return QStandardPaths::findExecutable(u"ffmpeg"_s); }

  double RateFor(double bytes) const {
    const double rate = bytes * 8 * numerator_ / denominator_ / double(video_.pictures.size());
    return std::min(rate, double(kFastest) / 1.05);
  }

  Result<Outcome> TryTwoPasses(double wanted) const {
    if (const Status first = Encode(Pass::First, RateFor(wanted), 0); !first) return Failure{first.Error()};
    const Result<Outcome> outcome = TryRates(wanted, Pass::Second, 0);
    // The encoder gives up, or dies, where it finds the first pass to need more than there is.
    return outcome || IsDiskFull() ? outcome : Outcome::TooLarge;
  }

  Result<Outcome> TryRates(double wanted, Pass pass, double blur) const {
    constexpr double kFollows = 0.97;  // a size that no longer follows the rate is the least there is
    double rate = RateFor(wanted);
    double former = HUGE_VAL;
    for (int left = kMostTries; left > 0; --left) {
      if (const Status encoded = Encode(pass, rate, blur); !encoded) return Failure{encoded.Error()};
      const auto size = double(QFileInfo(output_).size());
      const double miss = (size - wanted) / wanted;
      if (std::abs(miss) <= kWorthAnother || size <= 0) return Outcome::Reached;
      // The first answer to a rate that does not fit is the best guess for the next.
      const double next = std::min(rate * wanted / size, double(kFastest) / 1.05);
      const bool isFloor = miss > 0 && size > former * kFollows;
      if (left == 1 || next == rate || isFloor) return miss <= kTooLarge ? Outcome::Reached : Outcome::TooLarge;
      rate = next;
      former = size;
    }
    return Outcome::TooLarge;
  }

  bool IsDiskFull() const { return QStorageInfo(QFileInfo(output_).absolutePath()).bytesAvailable() == 0; }

  Result<Requantised> Stamped(double blur) const {
    const CodingTools tools = framesAlone_ ? CodingTools::FramesAlone : CodingTools::FramesAndFields;
    MpegVideo shown = video_;
    const Result<MpegVideo> made = ReadMpegVideo(output_);
    if (!made) return Failure{made.Error()};
    const qsizetype lost = shown.pictures.size() - made->pictures.size();
    if (lost > 0) shown.pictures.remove(0, std::min<qsizetype>(lost, video_.orphans));
    const Status stamped = StampPictures(output_, shown, tools);
    return stamped ? Result<Requantised>(Requantised{blur}) : Failure{stamped.Error()};
  }

  /// Pictures between two that stand for themselves: a group is shown for at most 36 fields with NTSC and 30 with PAL.
  int GroupLength() const {
    const int fields = video_.RateNumerator() % 25 == 0 && video_.RateDenominator() == 1 ? 30 : 36;
    return fields / (pulldown_ ? 3 : 2);
  }

  Status Encode(Pass pass, double rate, double blur) const {
    const QString frameRate = u"%1/%2"_s.arg(numerator_).arg(denominator_);
    const qint64 limit = std::min(kFastest, std::max(video_.bitRate, qint64(rate * 1.05)));
    // Each picture once and in step, whatever the repeated fields make of its time.
    QString filter = u"settb=%1/%2,setpts=N"_s.arg(denominator_).arg(numerator_);
    if (blur > 0) filter += u",gblur=sigma=%1"_s.arg(blur);
    QString arguments =
        u"ffmpeg -hide_banner -nostdin -v fatal -stats -y -i %1 -map 0:v:0 -c:v mpeg2video -pix_fmt yuv420p "
        "-vf %2 -r %3 -b:v %4 -maxrate %5 -bufsize 1835008 -g %6 -bf 2 -flags %7 "
        "-sc_threshold 1000000000 -top %8"_s;
    ProcessStage stage;
    stage.program = Program();
    for (const QString& argument : arguments.split(u' ')) stage.arguments << argument;
    const auto fill = [&stage](const QString& place, const QString& value) {
      stage.arguments[stage.arguments.indexOf(place)] = value;
    };
    fill(u"%1"_s, u"file:"_s + input_);
    fill(u"%2"_s, filter);
    fill(u"%3"_s, frameRate);
    fill(u"%4"_s, QString::number(qint64(rate)));
    fill(u"%5"_s, QString::number(limit));
    fill(u"%6"_s, QString::number(GroupLength()));
    fill(u"%7"_s, framesAlone_ ? u"+cgop"_s : u"+cgop+ildct+ilme"_s);
    fill(u"%8"_s, video_.pictures.first().topFirst ? u"1"_s : u"0"_s);
    if (blur > 0) stage.arguments << u"-non_linear_quant"_s << u"1"_s << u"-qmax"_s << u"28"_s;
    if (pass != Pass::Only) stage.arguments << u"-pass"_s << QString::number(int(pass)) << u"-passlogfile"_s << output_;
    if (pass == Pass::First) {
      stage.arguments << u"-f"_s << u"null"_s << u"-"_s;
    } else {
      stage.arguments << u"-f"_s << u"mpeg2video"_s << u"file:"_s + output_;
    }
    const ProcessEnd end = RunProcesses({stage}, [] {}).first();
    if (end.Ok()) return {};
    if (IsDiskFull()) return Failure{u"%1: the disk is full"_s.arg(output_)};
    return Failure{u"%1: ffmpeg could not encode it (%2)"_s.arg(
        input_, end.signal ? u"signal %1"_s.arg(end.signal) : u"status %1"_s.arg(end.exitStatus))};
  }

  QString input_;
  QString output_;
  const MpegVideo& video_;
  bool pulldown_ = false;
  bool framesAlone_ = false;  // no picture is coded in fields
  int numerator_ = 0;         // of the rate at which pictures are coded
  int denominator_ = 0;
};

}  // namespace

Result<Requantised> Requantise(const QString& input, const MpegVideo& video, double wantedBytes,
                               const QString& output) {
  return Requantiser(input, output, video).Run(wantedBytes);
}

QString PassLogOf(const QString& output) {
  return output + u"-0.log"_s;
}

}  // namespace torvane
