// Budget: judging a 10 GB program stream below 50 ms from at most 7 MB of reads.

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include "media/mpeg_pieces.h"
#include "media/sparse_file.h"
#include "media/video_analysis.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

constexpr qint64 kFileSize = qint64(10) << 30;
constexpr qint64 kMostBytes = 7 * 1000 * 1000;
constexpr int kFirstSequence = 999950;  ///< in the last block that is searched for it

class Silent : public Prompter {
 public:
  Answer Show(const Box& box) override { return box.preselected; }
};

/// Counts what is read of a file.
class CountedFile : public MediaFile {
 public:
  explicit CountedFile(MediaFile& file) : file_(file) {}
  std::optional<qint64> Size() override { return file_.Size(); }
  std::optional<QByteArray> Read(qint64 position, qsizetype count) override {
    std::optional<QByteArray> bytes = file_.Read(position, count);
    if (bytes) bytesRead += bytes->size();
    return bytes;
  }
  qint64 bytesRead = 0;

 private:
  MediaFile& file_;
};

enum class Shape {
  Usual,  ///< headers at the start, a GOP in the last block
  Worst   ///< the sequence header comes late and no GOP is near the end
};

/// A sparse file of its own size on this machine's disk.
QString MakeFile(const QTemporaryDir& dir, Shape shape) {
  QFile file(dir.filePath(u"large.vob"_s));
  if (!file.open(QIODevice::WriteOnly) || !file.resize(kFileSize)) return {};
  const auto put = [&](qint64 at, const QByteArray& bytes) {
    file.seek(at);
    file.write(bytes);
  };
  constexpr qint64 kSeconds = 7200;
  put(0, Pack(90000));
  put(shape == Shape::Usual ? 2048 : kFirstSequence,
      Pack(90100) + Navigation() + VideoPacket() + Sequence(720, 576, 3, 3) + Gop(0, 0, 0, 0) + Pictures(1));
  for (int i = 1; i <= 9; ++i) put(kFileSize * i / 10 + 5000, Pack(90000 * (1 + i * kSeconds / 10)));
  if (shape == Shape::Usual) put(kFileSize - 4000, Pack(90000 * (1 + kSeconds)) + Gop(2, 0, 0, 0));
  return HostFiles::ToDos(file.fileName());
}

void Judge(benchmark::State& state, Shape shape) {
  const QTemporaryDir dir;
  const QString path = MakeFile(dir, shape);
  Silent prompter;
  qint64 bytesRead = 0;
  for (auto _ : state) {
    HostMediaFile host(path);
    CountedFile file(host);
    MpegInfo info;
    if (!AnalyseVideoFile(path, file, info, prompter)) state.SkipWithError("not found");
    bytesRead = file.bytesRead;
  }
  if (bytesRead > kMostBytes) state.SkipWithError("more than 7 MB were read");
  state.counters["MB_read"] = double(bytesRead) / 1e6;
}
BENCHMARK_CAPTURE(Judge, usual, Shape::Usual)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Judge, worst, Shape::Worst)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
