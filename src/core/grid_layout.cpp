#include "core/grid_layout.h"

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

GridLayoutRecord ParseGridLayout(const QString& text) {
  const auto behind = [&text](const QString& label, qsizetype from) {
    const qsizetype at = text.indexOf(label, from);
    return at < 0 ? 0 : ValToInt(QStringView(text).sliced(at + label.size()));
  };
  return {.Rows = behind(u"R"_s, 0),
          .Columns = behind(u"C"_s, 1),
          .StartX = behind(u"PX"_s, 1),
          .StartY = behind(u"PY"_s, 1),
          .DeltaX = behind(u"DX"_s, 1),
          .DeltaY = behind(u"DY"_s, 1)};
}

QString FormatGridLayout(const GridLayoutRecord& grid) {
  return u"R%1C%2PX%3PY%4DX%5DY%6"_s.arg(grid.Rows)
      .arg(grid.Columns)
      .arg(grid.StartX)
      .arg(grid.StartY)
      .arg(grid.DeltaX)
      .arg(grid.DeltaY);
}

}  // namespace torvane
