#include "designer/edit_context.h"

#include <algorithm>

#include "core/grid_layout.h"
#include "core/messages.h"
#include "core/text.h"

namespace torvane {

QPoint NextGridPosition(const Project& project, const QString& menu) {
  const GridLayoutRecord grid = ParseGridLayout(project.Settings.GridLayout);
  const int rows = std::max(grid.Rows, 1);
  const int columns = std::max(grid.Columns, 1);
  int taken = 0;
  for (const ButtonView& button : MenuView(project.Tree, menu).Buttons()) taken += button.Number() != kBackButton;
  const int place = taken % (rows * columns);
  return {grid.StartX + place % columns * grid.DeltaX, grid.StartY + place / columns * grid.DeltaY};
}

QPoint PositionOf(const Project& project, const ElementPlace& place) {
  return place.position ? *place.position : NextGridPosition(project, place.menu);
}

ButtonStyle StyleOf(const Project& project, const ElementPlace& place) {
  return place.style ? *place.style : StyleOf(project.Settings);
}

int TitleSetOfMenu(const Project& project, const QString& menu) {
  if (IsTitleSetMenu(menu)) return ValToInt(menu.mid(2));
  const ProjectNode* root = project.Tree.Find(menu);
  return IsSubMenu(menu) && root ? ValToInt(root->Tag().mid(2)) : 0;
}

QString FamilyRoot(const Project& project, const QString& menu) {
  const int titleSet = TitleSetOfMenu(project, menu);
  return titleSet == 0 ? MainMenuKey() : TitleSetMenuKey(titleSet);
}

QString MenuOfNode(const ProjectTree& tree, const QString& key) {
  const ProjectNode* node = tree.Find(key);
  if (!node) return {};
  while (node->Parent()) node = node->Parent();
  const QString root = node->Key();
  return IsMainMenuFamily(root) || IsTitleSetMenu(root) || IsSubMenu(root) ? root : QString();
}

void ShowMenu(Project& project, const QString& key) {
  project.CurrentMenuKey = key;
  project.CurrentTitleSet = TitleSetOfMenu(project, key);
  TakeMenuRaster(project, key);
}

bool SwitchMenu(Project& project, const QString& key, Prompter& prompter) {
  if (project.Settings.NoMenus && key != MainMenuKey()) {
    ShowMenu(project, MainMenuKey());
    prompter.Inform(GetMessage(193));
    return false;
  }
  if (MenuOfNode(project.Tree, key) != key) return false;
  ShowMenu(project, key);
  return true;
}

}  // namespace torvane
