#include "shell/requant.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "shell/mpeg_video.h"
#include "shell/requantiser.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

Result<Requantised> Shrink(double factor, const QString& input, const QString& unfinished) {
  if (factor <= 1) {
    QFile file(input);
    return file.copy(unfinished) ? Result<Requantised>(Requantised()) : Failure{input + u": "_s + file.errorString()};
  }
  const Result<MpegVideo> video = ReadMpegVideo(input);
  if (!video) return Failure{video.Error()};
  const double wanted = double(QFileInfo(input).size()) / factor;
  Result<Requantised> encoded = Requantise(input, *video, wanted, unfinished);
  if (!encoded) return encoded;
  const Result<MpegVideo> made = ReadMpegVideo(unfinished);
  if (!made) return Failure{made.Error()};
  // What ffmpeg cannot decode it may leave out and still end well.
  if (std::abs(made->Seconds() - video->Seconds()) <= std::max(1.0, video->Seconds() * 0.001)) return encoded;
  return Failure{u"%1: %2 s of it became %3 s; it is damaged"_s.arg(input)
                     .arg(video->Seconds(), 0, 'f', 1)
                     .arg(made->Seconds(), 0, 'f', 1)};
}

void Discard(const QStringList& arguments) {
  if (arguments.size() != 3) return;
  RemoveOrdinaryFile(UnfinishedName(arguments[2]));
  RemoveOrdinaryFile(PassLogOf(UnfinishedName(arguments[2])));
}

Result<QString> Run(const QStringList& arguments) {
  bool isNumber = false;
  const double factor = arguments.value(0).toDouble(&isNumber);
  if (arguments.size() != 3 || !isNumber || !(factor > 0) || !std::isfinite(factor)) {
    return Failure{u"usage: requant FACTOR INPUT OUTPUT, with a factor such as 1.25"_s};
  }
  Discard(arguments);
  const QString unfinished = UnfinishedName(arguments[2]);
  Result<Requantised> done = Shrink(factor, arguments[1], unfinished);
  const double before = double(QFileInfo(arguments[1]).size());
  const double reached = before / double(std::max<qint64>(1, QFileInfo(unfinished).size()));
  if (done &&
      std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(arguments[2]).constData()) != 0) {
    done = Failure{arguments[2] + u": "_s + qt_error_string()};
  }
  Discard(arguments);
  if (!done) return Failure{done.Error()};
  const QString text = u"smaller by %1"_s.arg(reached, 0, 'f', 4);
  return done->blur > 0 ? u"%1; the pictures had to be softened for it"_s.arg(text) : text;
}

}  // namespace

const OwnTool kRequant{Run, Discard};

}  // namespace torvane
