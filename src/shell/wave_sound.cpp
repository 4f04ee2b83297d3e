#include "shell/wave_sound.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kChunkHeader = 8;
constexpr qint64 kPiece = 1048576;

struct WaveFormat {
  int kind = 0;
  int channels = 0;
  int rate = 0;
  int bits = 0;
  qint64 samples = -1;  // where they begin; -1: nowhere
  qint64 size = 0;
};

WaveFormat ReadFormat(QFile& file) {
  WaveFormat format;
  const QByteArray head = file.read(12);
  if (!head.startsWith("RIFF") || !head.endsWith("WAVE")) return format;
  while (file.pos() + kChunkHeader <= file.size()) {
    const QByteArray header = file.read(kChunkHeader);
    const qint64 size = qFromLittleEndian<quint32>(header.constData() + 4);
    const qint64 begin = file.pos();
    if (header.startsWith("data")) {
      // A program that writes to a pipe cannot know the size.
      format.samples = begin;
      format.size = std::min(size == 0 ? file.size() : size, file.size() - begin);
      break;
    }
    if (header.startsWith("fmt ")) {
      const QByteArray fields = file.read(std::min<qint64>(size, 26)).leftJustified(26, '\0');
      const auto number = [&fields](int at) { return int(qFromLittleEndian<quint16>(fields.constData() + at)); };
      constexpr int kExtensible = 0xFFFE;  // the kind then stands behind
      format.kind = number(0) == kExtensible ? number(24) : number(0);
      format.channels = number(2);
      format.rate = int(qFromLittleEndian<quint32>(fields.constData() + 4));
      format.bits = number(14);
    }
    if (!file.seek(begin + size + size % 2)) break;
  }
  return format;
}

}  // namespace

Result<QString> WriteRawSound(const QString& waveHostPath, const QString& targetHostPath, double leftOut) {
  constexpr int kPcm = 1;
  QFile file(waveHostPath);
  if (!file.open(QIODevice::ReadOnly)) return Failure{waveHostPath + u": "_s + file.errorString()};
  const WaveFormat format = ReadFormat(file);
  if (format.samples < 0 || format.kind != kPcm) return Failure{waveHostPath + u": no WAV file with samples"_s};
  if (format.bits != 16 || (format.rate != 48000 && format.rate != 96000) || format.channels < 1 ||
      format.channels > 8) {
    return Failure{
        u"%1: %2 Hz, %3 bits, %4 channels; a DVD takes 48000 Hz and 16 bits, so convert it"_s.arg(waveHostPath)
            .arg(format.rate)
            .arg(format.bits)
            .arg(format.channels)};
  }
  QFile target(targetHostPath);
  if (!target.open(QIODevice::WriteOnly)) return Failure{targetHostPath + u": "_s + target.errorString()};
  const qint64 frame = 2 * format.channels;
  const qint64 from = qint64(leftOut / 1000 * format.rate) * frame;
  if (from > 0 && from >= format.size) return Failure{waveHostPath + u": the delay leaves nothing of this sound"_s};
  file.seek(format.samples + from);
  for (qint64 left = format.size - format.size % frame - from; left > 0;) {
    QByteArray piece = file.read(std::min(left, kPiece));
    if (piece.size() < 2) return Failure{waveHostPath + u": "_s + file.errorString()};
    for (qsizetype i = 0; i + 1 < piece.size(); i += 2) std::swap(piece[i], piece[i + 1]);
    if (target.write(piece) != piece.size()) return Failure{targetHostPath + u": "_s + target.errorString()};
    left -= piece.size();
  }
  if (!target.flush()) return Failure{targetHostPath + u": "_s + target.errorString()};
  return u"%1:%2:%3"_s.arg(format.rate).arg(format.channels).arg(format.bits);
}

}  // namespace torvane
