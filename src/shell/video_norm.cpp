#include "shell/video_norm.h"

#include <QByteArray>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString VideoNormOf(const QString& hostPath) {
  constexpr qint64 kSearched = 4LL * 1048576;
  QFile file(hostPath);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray bytes = file.read(kSearched);
  const qsizetype header = bytes.indexOf(QByteArray("\x00\x00\x01\xB3", 4));
  if (header < 0 || header + 7 > bytes.size()) return {};
  // Behind the start code 12 bits of width and 12 bits of height.
  const int height = ((quint8(bytes[header + 5]) & 0x0F) << 8) | quint8(bytes[header + 6]);
  if (height == 576 || height == 288) return u"PAL"_s;
  if (height == 480 || height == 240) return u"NTSC"_s;
  return {};
}

}  // namespace torvane
