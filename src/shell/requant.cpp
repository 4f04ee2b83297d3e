#include "shell/requant.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "shell/mpeg_video.h"
#include "shell/process_chain.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kWorthAnother = 0.02;  // parts of the wanted size
constexpr double kTooLarge = 0.05;
constexpr int kMostPasses = 4;
constexpr qint64 kFastest = 9500000;  // bits a second; DVD-Video allows 9.8 million

class Requantiser {
 public:
  Requantiser(const QString& input, const QString& unfinished, const MpegVideo& video)
      : input_(input), unfinished_(unfinished), video_(video) {}

  Status Run(double wanted) {
    double rate = std::min(wanted * 8 / video_.Seconds(), double(kFastest) / 1.05);
    if (Status first = Encode(1, rate); !first) return first;
    for (int pass = 2;; ++pass) {
      if (Status encoded = Encode(2, rate); !encoded) return encoded;
      const double size = double(QFileInfo(unfinished_).size());
      const double miss = (size - wanted) / wanted;
      if (std::abs(miss) <= kWorthAnother) return {};
      // The first answer to a rate that does not fit is the best guess for the next.
      if (pass < kMostPasses && size > 0) {
        rate = std::min(rate * wanted / size, double(kFastest) / 1.05);
        continue;
      }
      if (miss <= kTooLarge) return {};
      return Failure{u"%1: cannot be made smaller than %2 bytes of the wanted %3; choose a smaller factor"_s.arg(input_)
                         .arg(qint64(size))
                         .arg(qint64(wanted))};
    }
  }

 private:
  Status Encode(int pass, double rate) const {
    const bool pal = video_.rateCode == 3;
    const qint64 limit = std::min(kFastest, std::max(video_.bitRate, qint64(rate * 1.05)));
    QString flags = u"+cgop"_s;
    if (!video_.progressive) flags += u"+ildct+ilme"_s;
    ProcessStage stage;
    stage.program = QStandardPaths::findExecutable(u"ffmpeg"_s);
    stage.arguments = QStringList{u"ffmpeg"_s,
                                  u"-hide_banner"_s,
                                  u"-nostdin"_s,
                                  u"-v"_s,
                                  u"error"_s,
                                  u"-stats"_s,
                                  u"-y"_s,
                                  u"-i"_s,
                                  QString(u"file:"_s + input_),
                                  u"-map"_s,
                                  u"0:v:0"_s,
                                  u"-c:v"_s,
                                  u"mpeg2video"_s,
                                  u"-pix_fmt"_s,
                                  u"yuv420p"_s,
                                  u"-r"_s,
                                  u"%1/%2"_s.arg(video_.RateNumerator()).arg(video_.RateDenominator()),
                                  u"-b:v"_s,
                                  QString::number(qint64(rate)),
                                  u"-maxrate"_s,
                                  QString::number(limit),
                                  u"-bufsize"_s,
                                  u"1835008"_s,
                                  u"-g"_s,
                                  pal ? u"15"_s : u"18"_s,
                                  u"-bf"_s,
                                  u"2"_s,
                                  u"-flags"_s,
                                  flags,
                                  u"-sc_threshold"_s,
                                  u"1000000000"_s,
                                  u"-top"_s,
                                  video_.topFieldFirst ? u"1"_s : u"0"_s,
                                  u"-pass"_s,
                                  QString::number(pass),
                                  u"-passlogfile"_s,
                                  unfinished_};
    if (pass == 1) {
      stage.arguments << u"-f"_s << u"null"_s << u"-"_s;
    } else {
      stage.arguments << u"-f"_s << u"mpeg2video"_s << u"file:"_s + unfinished_;
    }
    if (stage.program.isEmpty()) return Failure{u"ffmpeg is not installed; install the Debian package ffmpeg"_s};
    const ProcessEnd end = RunProcesses({stage}, [] {}).first();
    if (end.Ok()) return {};
    return Failure{u"%1: ffmpeg could not encode it (%2)"_s.arg(
        input_, end.signal ? u"signal %1"_s.arg(end.signal) : u"status %1"_s.arg(end.exitStatus))};
  }

  QString input_;
  QString unfinished_;
  const MpegVideo& video_;
};

Status Shrink(double factor, const QString& input, const QString& unfinished) {
  if (factor <= 1) {
    QFile file(input);
    return file.copy(unfinished) ? Status() : Failure{input + u": "_s + file.errorString()};
  }
  const Result<MpegVideo> video = ReadMpegVideo(input);
  if (!video) return Failure{video.Error()};
  if (Status encoded = Requantiser(input, unfinished, *video).Run(double(QFileInfo(input).size()) / factor); !encoded) {
    return encoded;
  }
  const Result<MpegVideo> made = ReadMpegVideo(unfinished);
  if (!made) return Failure{made.Error()};
  // What ffmpeg cannot decode it may leave out and still end well.
  if (std::abs(made->Seconds() - video->Seconds()) <= std::max(1.0, video->Seconds() * 0.001)) return {};
  return Failure{u"%1: %2 s of it became %3 s; it is damaged"_s.arg(input)
                     .arg(video->Seconds(), 0, 'f', 1)
                     .arg(made->Seconds(), 0, 'f', 1)};
}

void Discard(const QStringList& arguments) {
  if (arguments.size() != 3) return;
  RemoveOrdinaryFile(UnfinishedName(arguments[2]));
  RemoveOrdinaryFile(UnfinishedName(arguments[2]) + u"-0.log"_s);
}

Result<QString> Run(const QStringList& arguments) {
  bool isNumber = false;
  const double factor = arguments.value(0).toDouble(&isNumber);
  if (arguments.size() != 3 || !isNumber || !(factor > 0) || !std::isfinite(factor)) {
    return Failure{u"usage: requant FACTOR INPUT OUTPUT, with a factor such as 1.25"_s};
  }
  Discard(arguments);
  const QString unfinished = UnfinishedName(arguments[2]);
  Status done = Shrink(factor, arguments[1], unfinished);
  const double before = double(QFileInfo(arguments[1]).size());
  const double reached = before / double(std::max<qint64>(1, QFileInfo(unfinished).size()));
  if (done &&
      std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(arguments[2]).constData()) != 0) {
    done = Failure{arguments[2] + u": "_s + qt_error_string()};
  }
  Discard(arguments);
  if (!done) return Failure{done.Error()};
  return u"smaller by %1"_s.arg(reached, 0, 'f', 4);
}

}  // namespace

const OwnTool kRequant{Run, Discard};

}  // namespace torvane
