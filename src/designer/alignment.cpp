#include "designer/alignment.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "core/edit.h"
#include "core/text.h"
#include "designer/edit_values.h"
#include "designer/menu_frame.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kLeastPageGap = 16;

/// One direction of a rectangle.
struct Axis {
  bool horizontal;

  int Start(const QRect& r) const { return horizontal ? r.x() : r.y(); }
  int Length(const QRect& r) const { return horizontal ? r.width() : r.height(); }
  int End(const QRect& r) const { return Start(r) + Length(r); }
  int Page(const QSize& page) const { return horizontal ? page.width() : page.height(); }
  void MoveTo(QRect& r, double start) const {
    if (horizontal) {
      r.moveLeft(RoundToInt(start));
    } else {
      r.moveTop(RoundToInt(start));
    }
  }
};

bool IsHorizontal(Alignment alignment) {
  return alignment == Alignment::Left || alignment == Alignment::Right || alignment == Alignment::HCenter ||
         alignment == Alignment::HPage;
}

std::vector<QRect> RectanglesOf(const Project& project, const QString& menu, const QStringList& elements) {
  std::vector<QRect> rectangles;
  for (const QString& element : elements) rectangles.push_back(RectangleOf(project.Tree, menu, element));
  return rectangles;
}

bool AreElements(const Project& project, const QString& menu, const QStringList& elements) {
  return !elements.isEmpty() && std::all_of(elements.begin(), elements.end(), [&](const QString& element) {
    return project.Tree.Contains(ElementNodeKey(CoordinatesKey(menu, element), drawing_node::Left)) &&
           MenuOfNode(project.Tree, element) == menu;
  });
}

void PlaceAll(Project& project, const QString& menu, const QStringList& elements,
              const std::vector<QRect>& rectangles) {
  std::vector<QPoint> positions;
  for (const QRect& rectangle : rectangles) positions.push_back(rectangle.topLeft());
  PlaceElements(project, menu, elements, positions);
}

}  // namespace

std::vector<QRect> AlignRectangles(std::vector<QRect> rectangles, Alignment alignment, const QSize& page) {
  const Axis axis{IsHorizontal(alignment)};
  int first = std::numeric_limits<int>::max();
  int last = std::numeric_limits<int>::min();
  for (const QRect& r : rectangles) {
    first = std::min(first, axis.Start(r));
    last = std::max(last, axis.End(r));
  }
  for (QRect& r : rectangles) {
    switch (alignment) {
      case Alignment::Left:
      case Alignment::Top:
        axis.MoveTo(r, first);
        break;
      case Alignment::Right:
      case Alignment::Bottom:
        axis.MoveTo(r, last - axis.Length(r));
        break;
      case Alignment::HCenter:
      case Alignment::VCenter:
        axis.MoveTo(r, (first + last) / 2.0 - axis.Length(r) / 2.0);
        break;
      case Alignment::HPage:
      case Alignment::VPage:
        axis.MoveTo(r, axis.Page(page) / 2.0 - axis.Length(r) / 2.0);
        break;
    }
  }
  return rectangles;
}

Result<std::vector<QRect>> DistributeRectangles(std::vector<QRect> rectangles, Distribution distribution,
                                                const QSize& page) {
  const Axis axis{distribution == Distribution::Horizontal || distribution == Distribution::HorizontalPage};
  const bool overPage = distribution == Distribution::HorizontalPage || distribution == Distribution::VerticalPage;
  const int count = int(rectangles.size());
  if (!overPage && count < 3) return Failure{u"Error: 3 or more objects necessary"_s};
  std::vector<std::size_t> order(rectangles.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return axis.Start(rectangles[a]) < axis.Start(rectangles[b]); });
  int total = 0;
  for (const QRect& r : rectangles) total += axis.Length(r);

  double gap = 0;
  double start = 0;
  if (overPage) {
    const int length = axis.Page(page);
    if (double(length - total) / (count + 1) < kLeastPageGap) {
      return Failure{u"Error: Not enough space between objects"_s};
    }
    gap = double(length - (total + 2 * kLeastPageGap)) / (count + 1);
    start = kLeastPageGap + gap;
  } else {
    const int span = axis.End(rectangles[order.back()]) - axis.Start(rectangles[order.front()]);
    if (span < total) return Failure{u"Error: Not enough space between objects"_s};
    gap = double(span - total) / (count - 1);
    start = axis.Start(rectangles[order.front()]);
  }
  for (const std::size_t i : order) {
    axis.MoveTo(rectangles[i], start);
    start += axis.Length(rectangles[i]) + gap;
  }
  return rectangles;
}

bool AlignElements(EditContext& context, const QString& menu, const QStringList& elements, Alignment alignment) {
  Project& project = context.project;
  if (!AreElements(project, menu, elements)) return false;
  const QSize page(kMenuWidth, MenuHeight(project.Settings));
  Edit edit(project, u"Align elements"_s);
  PlaceAll(project, menu, elements, AlignRectangles(RectanglesOf(project, menu, elements), alignment, page));
  edit.Commit();
  return true;
}

bool DistributeElements(EditContext& context, const QString& menu, const QStringList& elements,
                        Distribution distribution) {
  Project& project = context.project;
  if (!AreElements(project, menu, elements)) return false;
  const QSize page(kMenuWidth, MenuHeight(project.Settings));
  const auto placed = DistributeRectangles(RectanglesOf(project, menu, elements), distribution, page);
  if (!placed) {
    context.prompter.Inform(placed.Error());
    return false;
  }
  Edit edit(project, u"Distribute elements"_s);
  PlaceAll(project, menu, elements, *placed);
  edit.Commit();
  return true;
}

}  // namespace torvane
