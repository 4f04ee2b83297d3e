#pragma once

#include <QString>
#include <vector>

#include "core/menu_view.h"
#include "core/project.h"

namespace torvane {

/// The number by which the player knows a button: its place among the menu's buttons that exist on the disc, from 1;
/// 0 for one that does not.
int PlaceOnDisc(const MenuView& menu, int number);

/// Film buttons of a project without titlesets tell the player which button to highlight on return: "g1=2;". An edit
/// that moves, removes or hides buttons brings these numbers along: make the keeper before it, call Update behind it.
/// A number that was not the button's place is the user's own and stays.
class PlaceKeeper {
 public:
  PlaceKeeper(Project& project, const QString& menu);
  void Update();

 private:
  Project& project_;
  QString menu_;
  std::vector<int> generated_;  ///< numbers of the buttons whose prefix names their own place
};

}  // namespace torvane
