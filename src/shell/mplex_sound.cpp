#include "shell/mplex_sound.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <cmath>

#include "media/sound_frame.h"
#include "platform/host_files.h"
#include "shell/wave_sound.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kMplexHolds = 900;  // ms; with sound of 448 kbit a second mplex has run dry at 990

/// Copies a file of sound frames without the first of them. Fails when nothing is left.
Status CopyWithoutFrames(const QString& sound, int frames, const QString& target) {
  constexpr qint64 kPiece = 1048576;
  QFile file(sound);
  if (!file.open(QIODevice::ReadOnly)) return Failure{sound + u": "_s + file.errorString()};
  qint64 at = 0;
  for (int left = frames; left > 0; --left) {
    const std::optional<SoundFrame> frame = file.seek(at) ? ReadSoundFrame(file.read(kSoundFrameHead)) : std::nullopt;
    if (!frame && at >= file.size()) break;
    if (!frame)
      return Failure{u"%1: no frame of sound at byte %2, which the delay would leave out"_s.arg(sound).arg(at)};
    at += frame->bytes;
  }
  if (at >= file.size()) return Failure{sound + u": the delay leaves nothing of this sound"_s};
  QFile copy(target);
  if (!copy.open(QIODevice::WriteOnly)) return Failure{target + u": "_s + copy.errorString()};
  file.seek(at);
  for (QByteArray piece = file.read(kPiece); !piece.isEmpty(); piece = file.read(kPiece)) {
    if (copy.write(piece) != piece.size()) return Failure{target + u": "_s + copy.errorString()};
  }
  if (file.error() != QFileDevice::NoError) return Failure{sound + u": "_s + file.errorString()};
  return copy.flush() ? Status() : Failure{target + u": "_s + copy.errorString()};
}

class Preparation {
 public:
  Preparation(const QStringList& arguments, const QString& output, MplexKind kind)
      : output_(output), kind_(kind), made_{.arguments = arguments} {}

  Result<MplexArguments> Run() {
    TakeDelay();
    for (QString& argument : made_.arguments) {
      if (const Status done = Prepare(argument); !done) return Failure{done.Error()};
    }
    if (delayAt_ >= 0) made_.arguments[delayAt_] = QString::number(0 - delay_, 'g', 10) + unit_;
    if (!waves_.isEmpty()) made_.arguments = QStringList{u"-L"_s, waves_.join(u',')} + made_.arguments;
    return made_;
  }

 private:
  void TakeDelay() {
    static const QRegularExpression kValue(u"^([-+]?[0-9.]+)(ms|s|mpt|)$"_s);
    const qsizetype option = made_.arguments.indexOf(u"-O");
    if (option < 0 || option + 1 >= made_.arguments.size()) return;
    const QRegularExpressionMatch match = kValue.match(made_.arguments[option + 1]);
    if (!match.hasMatch()) return;
    delayAt_ = option + 1;
    delay_ = match.captured(1).toDouble();
    unit_ = match.captured(2);
    const bool isMilliseconds = unit_ == u"ms" || unit_.isEmpty();
    if (isMilliseconds && delay_ <= -kMplexHolds) leftOut_ = -delay_;
  }

  Status Prepare(QString& argument) {
    const QString path = kind_ == MplexKind::Wine ? HostFiles::ToHost(argument) : argument;
    if (argument.startsWith(u'-') || path == output_ || !QFileInfo(path).isFile()) return {};
    const bool isWave = path.endsWith(u".wav", Qt::CaseInsensitive);
    if (isWave && kind_ == MplexKind::Native) return UnpackWave(argument);
    return leftOut_ > 0 ? LeaveOut(path, argument) : Status();
  }

  Result<QString> ScratchFile(const QString& ending) {
    if (!made_.scratch) {
      const QString beside = QFileInfo(output_).absolutePath();
      made_.scratch = std::make_shared<QTemporaryDir>(beside + u"/torvane-cmd-XXXXXX"_s);
      if (!made_.scratch->isValid()) return Failure{beside + u": "_s + made_.scratch->errorString()};
    }
    return made_.scratch->filePath(u"%1.%2"_s.arg(files_++).arg(ending));
  }

  Status UnpackWave(QString& argument) {
    const Result<QString> raw = ScratchFile(u"lpcm"_s);
    if (!raw) return Failure{raw.Error()};
    const Result<QString> written = WriteRawSound(argument, *raw, leftOut_);
    if (!written) return Failure{written.Error()};
    waves_ << *written;
    argument = *raw;
    if (!rested_) delay_ += leftOut_;
    rested_ = true;
    return {};
  }

  /// The first sound says what is left for mplex.
  Status LeaveOut(const QString& path, QString& argument) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Failure{path + u": "_s + file.errorString()};
    const std::optional<SoundFrame> frame = ReadSoundFrame(file.read(kSoundFrameHead));
    if (!frame) return {};  // the picture
    const double count = leftOut_ / frame->Milliseconds();
    const int frames = int(rested_ ? std::round(count) : std::ceil(count));
    const Result<QString> rest = ScratchFile(QFileInfo(path).suffix());
    if (!rest) return Failure{rest.Error()};
    if (const Status copied = CopyWithoutFrames(path, frames, *rest); !copied) return copied;
    argument = kind_ == MplexKind::Wine ? HostFiles::ToDos(*rest) : *rest;
    if (!rested_) {
      delay_ += frames * frame->Milliseconds();
      leftOut_ = frames * frame->Milliseconds();
    }
    rested_ = true;
    return {};
  }

  QString output_;
  MplexKind kind_;
  MplexArguments made_;
  QStringList waves_;  // what mplex must be told of the samples
  qsizetype delayAt_ = -1;
  double delay_ = 0;  // positive is late, in units
  QString unit_;
  double leftOut_ = 0;   // milliseconds at the start of each sound
  bool rested_ = false;  // a sound has decided what mplex is given of the delay
  int files_ = 0;
};

}  // namespace

Result<MplexArguments> PrepareMplexSound(const QStringList& arguments, const QString& output, MplexKind kind) {
  return Preparation(arguments, output, kind).Run();
}

}  // namespace torvane
