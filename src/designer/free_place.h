#pragma once

#include <QPoint>
#include <QRect>
#include <optional>
#include <vector>

#include "designer/button_rectangles.h"
#include "designer/element_nodes.h"

namespace torvane {

/// Finds where a new element of a menu can stand when the user gave no place: the next place of the grid of the
/// settings, or else the first spot of the menu's raster from the top left, where the element lies inside the frame and
/// on no button or label, and a button keeps the rules of the menu's buttons. Pictures and animations may lie beneath.
/// Nothing when the menu is full. The project is not changed.
class PlaceFinder {
 public:
  PlaceFinder(const Project& project, const QString& menu);

  /// Upper left corner for a button with all that is drawn with it: frame, mask, and the label of a combined one.
  std::optional<QPoint> ForButton(const NewButton& button, const TextMeasure& measure) const;

  /// The same for a label or a picture.
  std::optional<QPoint> ForArea(const QSize& size) const;

  /// The place of the grid that comes next, taken or not.
  QPoint NextOfGrid() const { return grid_.empty() ? QPoint() : grid_.front(); }

  /// Pixels by which a button's own area passes the right edge of the frame at this place; 0 or less when it does not.
  int PassesFrame(const NewButton& button, QPoint position, const TextMeasure& measure) const;

 private:
  class Trial;

  template <class Fits>
  std::optional<QPoint> First(Fits fits) const;
  bool IsFree(const QRect& area) const;

  const Project& project_;
  QString menu_;
  QRect frame_;
  std::vector<QPoint> grid_;            ///< in the order in which they are tried
  std::vector<QRect> taken_;            ///< areas of buttons and labels
  std::vector<ButtonRectangle> rules_;  ///< rectangles of the menu's buttons
};

}  // namespace torvane
