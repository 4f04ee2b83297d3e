#pragma once

#include <QString>
#include <array>

#include "core/history.h"
#include "core/keys.h"
#include "core/project_tree.h"
#include "core/settings.h"

namespace torvane {

/// One additional menu. Slot number i owns the menu key "SM" & i or "MM" & i.
struct MenuSlot {
  bool Used = false;
  int TitleSet = 0;   ///< owning titleset; 0 in the main menu family
  QString MenuKey = {};
  QString Action = {};     ///< button action that jumps to this menu
  QString ButtonKey = {};  ///< button in the previous menu that leads here
  bool operator==(const MenuSlot&) const = default;
};

/// What stands beside the tree and follows from it or from the menu shown.
struct ProjectState {
  QString CurrentMenuKey = MainMenuKey();
  int FilmCount = 0;
  int TitleSetCount = 0;
  int CurrentTitleSet = 0;
  bool ProjectHasVideos = false;

  /// Video format of the first film, for the format checks of the next one; empty and 0 without films.
  QString ProjectAspect;
  int ProjectResH = 0;
  int ProjectResV = 0;
  double ProjectFps = 0;

  bool operator==(const ProjectState&) const = default;
};

/// An open project: the tree, the settings in force for it and the state beside the tree. All of it is changed within
/// an `Edit` (core/edit.h) only, but for the building of another project, which `History.Reset()` ends.
struct Project : ProjectState {
  explicit Project(const torvane::Settings& userSettings)
      : UserSettings(userSettings), Settings(userSettings), ProjectFile(DefaultFile(userSettings)), History(*this) {}

  /// Empties the tree and resets the state; the settings become the user's again.
  void Reset();

  /// True while nothing differs from what was saved, loaded or newly made.
  bool ProjectSaved() const { return History.IsSaved(); }

  /// "\DVDProject.tvn" in the output directory.
  static QString DefaultFile(const torvane::Settings& settings) { return settings.OutDir + u"\\DVDProject.tvn"; }

  torvane::Settings UserSettings;  ///< as the program started with them
  torvane::Settings Settings;      ///< the same, where the project file does not say otherwise
  ProjectTree Tree;

  bool ProjectNamed = false;
  QString ProjectFile;  ///< full DOS path
  bool RateWarningDue = true;  ///< nobody has been told yet that a film's frame rate does not fit the project's norm

  std::array<MenuSlot, kMainSubMenuSlots> MainSubMenuTable;
  std::array<MenuSlot, kSubMenuSlots> SubMenuTable;

  torvane::History History;
};

/// Recomputes the total size of the project in megabytes from its films, its intro and an allowance for its menus, and
/// puts it into the node "TS". Nothing happens when there is no such node.
void CalculateTotalSize(Project& project);

}  // namespace torvane
