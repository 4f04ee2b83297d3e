#include "designer/element_limits.h"

#include "core/messages.h"

namespace torvane {
namespace {

bool Check(const MenuView& menu, Attribute group, int limit, int message, Prompter& prompter) {
  const ProjectNode* node = menu.Tree().Find(MenuNodeKey(menu.Key(), group));
  if (!node || node->ChildCount() < limit) return true;
  prompter.Inform(GetMessage(message, {{u"|1", QString::number(limit)}}));
  return false;
}

}  // namespace

int ButtonLimit(const MenuView& menu, const Settings& settings) {
  constexpr int kLetterboxAndPanScan = 1;
  if (!menu.IsWide(settings)) return 36;
  return settings.Def169Mode == kLetterboxAndPanScan ? 12 : 18;
}

bool CheckButtonLimit(const MenuView& menu, const Settings& settings, Prompter& prompter) {
  return Check(menu, menu_node::Buttons, ButtonLimit(menu, settings), 132, prompter);
}

bool CheckImageLimit(const MenuView& menu, Prompter& prompter) {
  return Check(menu, menu_node::Images, 50, 133, prompter);
}

bool CheckAnimLimit(const MenuView& menu, Prompter& prompter) {
  return Check(menu, menu_node::Animations, 50, 134, prompter);
}

bool CheckLabelLimit(const MenuView& menu, Prompter& prompter) {
  return Check(menu, menu_node::Labels, 36, 135, prompter);
}

}  // namespace torvane
