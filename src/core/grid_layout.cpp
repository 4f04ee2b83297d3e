#include "core/grid_layout.h"

#include <QRegularExpression>

#include "core/messages.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMostLines = 35;
constexpr int kLeastStart = 16;
constexpr int kLeastDelta = 10;
constexpr int kRightLimit = 700;
constexpr int kBottomMargin = 20;
constexpr int kDeltaLimitX = 600;
constexpr int kDeltaLimitY = 400;

/// One number of a grid with its limits: not below `least`, and below `limit`.
struct GridNumber {
  int value;
  QString name;
  int least;
  int limit;
  int tooSmall;  ///< message
  int tooLarge;
};

void Judge(const GridNumber& number, QStringList& faults) {
  QString fault;
  if (number.value < number.least) {
    fault = GetMessage(number.tooSmall, {{u"|1", QString::number(number.least - 1)}});
  } else if (number.value >= number.limit) {
    fault = GetMessage(number.tooLarge, {{u"|1", QString::number(number.limit)}});
  } else {
    return;
  }
  faults << u"%1=%2: %3"_s.arg(number.name).arg(number.value).arg(fault);
}

}  // namespace

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

QStringList GridLayoutFaults(const QString& text, int menuHeight) {
  static const QRegularExpression form(u"^R-?\\d+C-?\\d+PX-?\\d+PY-?\\d+DX-?\\d+DY-?\\d+$"_s);
  if (!form.match(text).hasMatch()) {
    return {
        u"A grid is written like R10C1PX100PY100DX300DY64 (rows, columns, first place, distances), not \"%1\"."_s.arg(
            text)};
  }
  const GridLayoutRecord grid = ParseGridLayout(text);
  QStringList faults;
  for (const GridNumber& number : {
           GridNumber{grid.Rows, u"R"_s, 1, kMostLines + 1, 469, 470},
           GridNumber{grid.Columns, u"C"_s, 1, kMostLines + 1, 469, 470},
           GridNumber{grid.StartX, u"PX"_s, kLeastStart, kRightLimit, 520, 521},
           GridNumber{grid.StartY, u"PY"_s, kLeastStart, menuHeight - kBottomMargin, 520, 521},
           GridNumber{grid.DeltaX, u"DX"_s, kLeastDelta, kDeltaLimitX, 520, 521},
           GridNumber{grid.DeltaY, u"DY"_s, kLeastDelta, kDeltaLimitY, 520, 521},
       }) {
    Judge(number, faults);
  }
  return faults;
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
