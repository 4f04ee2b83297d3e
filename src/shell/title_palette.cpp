#include "shell/title_palette.h"

#include "media/palette.h"
#include "media/palette_file.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

Result<QList<int>> ReadTitlePalette(const QString& hostPath) {
  const Result<QString> palette = ReadPaletteFile(HostFiles::ToDos(hostPath));
  if (!palette) return Failure{u"%1: no palette of 16 colours"_s.arg(hostPath)};
  return PaletteColors(*palette);
}

quint32 DrawnColor(int color) {
  const auto rgb = quint32(RgbThatGives(color).value_or(PaletteToRgb(color)));
  return (rgb & 255) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 255);
}

QList<int> FindablePalette(const QList<int>& colors) {
  QList<int> findable;
  for (const int color : colors) findable << (RgbThatGives(color) ? color : RgbToPalette(PaletteToRgb(color)));
  return findable;
}

}  // namespace torvane
