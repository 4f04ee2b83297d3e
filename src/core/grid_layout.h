#pragma once

#include <QString>
#include <QStringList>

namespace torvane {

/// The six numbers of the setting `GridLayout`: where a grid of menu elements starts and how far apart they stand,
/// in pixels.
struct GridLayoutRecord {
  int Rows = 0;
  int Columns = 0;
  int StartX = 0;
  int StartY = 0;
  int DeltaX = 0;
  int DeltaY = 0;
  bool operator==(const GridLayoutRecord&) const = default;
};

/// Reads "R10C1PX100PY100DX300DY64". A number that is missing is 0.
GridLayoutRecord ParseGridLayout(const QString& text);

/// What is wrong with such a text as a grid of menus of the given height, a sentence for each number; nothing for a
/// sound one. Messages 469, 470, 520 and 521.
QStringList GridLayoutFaults(const QString& text, int menuHeight);

QString FormatGridLayout(const GridLayoutRecord& grid);

}  // namespace torvane
