#include "designer/free_place.h"

#include <algorithm>

#include "core/grid_layout.h"
#include "designer/menu_frame.h"

namespace torvane {
namespace {

constexpr int kDefaultRaster = 16;
constexpr int kFinestStep = 4;  ///< of a search through the raster, in pixels

/// Places of the grid, rows from the top, each from the left, beginning behind the number of those that are taken.
std::vector<QPoint> GridPlaces(const GridLayoutRecord& grid, int taken) {
  constexpr int kMostPlaces = 1000;  // no menu has room for more
  const int columns = std::clamp(grid.Columns, 1, kMostPlaces);
  const int count = std::clamp(grid.Rows, 1, kMostPlaces / columns) * columns;
  std::vector<QPoint> places;
  for (int i = 0; i < count; ++i) {
    const int place = (taken + i) % count;
    places.emplace_back(WithinReach(grid.StartX) + place % columns * WithinReach(grid.DeltaX),
                        WithinReach(grid.StartY) + place / columns * WithinReach(grid.DeltaY));
  }
  return places;
}

int RasterStep(const MenuView& menu, Attribute attribute) {
  const int raster = menu.Integer(attribute, kDefaultRaster);
  if (raster < 1) return kDefaultRaster;
  return raster * ((kFinestStep + raster - 1) / raster);
}

}  // namespace

/// A new button by itself in a menu of the same kind, so that its rectangles are those that it will have.
class PlaceFinder::Trial {
 public:
  Trial(const Project& project, const QString& menu, const NewButton& button, const TextMeasure& measure)
      : scratch_(project.Settings), menu_(menu) {
    ProjectTree& tree = scratch_.Tree;
    tree.Add({menu, {}});
    for (const Attribute group : {menu_node::Buttons, menu_node::Labels}) {
      tree.Add({MenuNodeKey(menu, group), {}}, menu, Relation::Child);
    }
    for (const Attribute form : {menu_node::HighLightFill, menu_node::HighLightFrame}) {
      const ProjectNode* node = project.Tree.Find(MenuNodeKey(menu, form));
      if (node) tree.Add({node->Key(), node->Caption()}, menu, Relation::Child);
    }
    number_ = AddButtonNodes(scratch_, menu, button, measure);
    const std::vector<LabelView> labels = MenuView(tree, menu).Labels();
    if (!labels.empty()) label_ = ElementRectangle(labels.front().Drawing()).size();
  }

  void MoveTo(QPoint position) {
    const QString key = ButtonPropertiesKey(menu_, number_);
    SetCoordinate(scratch_.Tree, key, drawing_node::Left, position.x());
    SetCoordinate(scratch_.Tree, key, drawing_node::Top, position.y());
  }

  QRect Area() const { return ElementRectangle(DrawingView(scratch_.Tree, ButtonPropertiesKey(menu_, number_))); }
  std::optional<QRect> LabelArea() const {
    if (!label_) return std::nullopt;
    return QRect(ButtonLabelPosition(Area(), *label_, scratch_.Settings), *label_);
  }
  std::vector<ButtonRectangle> Rectangles() const {
    return ButtonRectangles(MenuView(scratch_.Tree, menu_), scratch_.Settings);
  }

 private:
  Project scratch_;
  QString menu_;
  int number_ = 0;
  std::optional<QSize> label_;
};

PlaceFinder::PlaceFinder(const Project& project, const QString& menu)
    : project_(project), menu_(menu), frame_(0, 0, kMenuWidth, MenuHeight(project.Settings)) {
  const MenuView view(project.Tree, menu);
  int buttons = 0;
  for (const ButtonView& button : view.Buttons()) {
    buttons += button.Number() != kBackButton;
    if (button.ExistsOnDisc()) taken_.push_back(ElementRectangle(button.Drawing()));
  }
  for (const LabelView& label : view.Labels()) taken_.push_back(ElementRectangle(label.Drawing()));
  rules_ = ButtonRectangles(view, project.Settings);
  grid_ = GridPlaces(ParseGridLayout(project.Settings.GridLayout), buttons);
}

std::optional<QPoint> PlaceFinder::ForButton(const NewButton& button, const TextMeasure& measure) const {
  Trial trial(project_, menu_, button, measure);
  const QSize size = trial.Area().size();
  std::vector<ButtonRectangle> rules = rules_;
  return First([&](QPoint place) {
    if (!IsFree(QRect(place, size))) return false;
    trial.MoveTo(place);
    const std::optional<QRect> label = trial.LabelArea();
    if (label && !IsFree(*label)) return false;
    rules.resize(rules_.size());
    std::ranges::copy(trial.Rectangles(), std::back_inserter(rules));
    return rules.size() == rules_.size() || FaultsOf(rules, rules_.size(), frame_.height()).empty();
  });
}

std::optional<QPoint> PlaceFinder::ForArea(const QSize& size) const {
  return First([&](QPoint place) { return IsFree(QRect(place, size)); });
}

int PlaceFinder::PassesFrame(const NewButton& button, QPoint position, const TextMeasure& measure) const {
  Trial trial(project_, menu_, button, measure);
  trial.MoveTo(position);
  int right = QRect(trial.LabelArea().value_or(trial.Area())).right() + 1;
  for (const ButtonRectangle& rectangle : trial.Rectangles()) right = std::max(right, rectangle.Check.Right);
  return right - frame_.width();
}

template <class Fits>
std::optional<QPoint> PlaceFinder::First(Fits fits) const {
  for (const QPoint place : grid_) {
    if (fits(place)) return place;
  }
  const MenuView menu(project_.Tree, menu_);
  const int stepX = RasterStep(menu, menu_node::BackgroundRasterX);
  const int stepY = RasterStep(menu, menu_node::BackgroundRasterY);
  for (int y = 0; y < frame_.height(); y += stepY) {
    for (int x = 0; x < frame_.width(); x += stepX) {
      if (fits(QPoint(x, y))) return QPoint(x, y);
    }
  }
  return std::nullopt;
}

bool PlaceFinder::IsFree(const QRect& area) const {
  return frame_.contains(area) &&
         std::ranges::none_of(taken_, [&area](const QRect& other) { return other.intersects(area); });
}

}  // namespace torvane
