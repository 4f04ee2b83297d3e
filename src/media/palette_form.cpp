#include "media/palette_form.h"

#include <algorithm>

namespace torvane {

PaletteForm::PaletteForm(const QString& list) {
  const QList<int> colors = PaletteColors(list);
  const qsizetype count = std::min<qsizetype>(colors.size(), kPaletteSize);
  std::transform(colors.begin(), colors.begin() + count, Colors.begin(), PaletteToRgb);
}

QString PaletteForm::List() const {
  QList<int> colors;
  for (const int color : Colors) colors << RgbToPalette(color);
  return PaletteList(colors);
}

}  // namespace torvane
