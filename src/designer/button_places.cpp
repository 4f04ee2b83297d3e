#include "designer/button_places.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QRegularExpressionMatch MatchGenerated(const QString& action) {
  static const QRegularExpression form(u"^g1=(\\d+);jump title (\\d+);$"_s);
  return form.match(action);
}

}  // namespace

int PlaceOnDisc(const MenuView& menu, int number) {
  int place = 0;
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.IsWritten()) continue;
    ++place;
    if (button.Number() == number) return place;
  }
  return 0;
}

PlaceKeeper::PlaceKeeper(Project& project, const QString& menu) : project_(project), menu_(menu) {
  int place = 0;
  for (const ButtonView& button : MenuView(project.Tree, menu).Buttons()) {
    if (!button.IsWritten()) continue;
    ++place;
    const auto match = MatchGenerated(button.Action().value_or(QString()));
    if (match.hasMatch() && match.captured(1).toInt() == place) generated_.push_back(button.Number());
  }
}

void PlaceKeeper::Update() {
  const MenuView menu(project_.Tree, menu_);
  for (const int number : generated_) {
    const QString key = ElementNodeKey(ButtonKey(menu_, number), element_node::Action);
    const ProjectNode* action = project_.Tree.Find(key);
    const int place = PlaceOnDisc(menu, number);
    if (!action || place == 0) continue;
    const auto match = MatchGenerated(action->Value(element_node::Action.Label.size()));
    if (!match.hasMatch()) continue;
    project_.Tree.SetCaption(key,
                             element_node::Action.Label + u"g1=%1;jump title %2;"_s.arg(place).arg(match.captured(2)));
  }
}

}  // namespace torvane
