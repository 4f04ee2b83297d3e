#pragma once

#include <QString>
#include <array>
#include <optional>
#include <utility>

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

/// Settings that were given for this run of the program and that projects carry as well. They win over a project's own,
/// and a save keeps the project's own.
struct GivenSettings {
  SettingTexts texts = {};         ///< by key
  torvane::Settings without = {};  ///< the user's settings as they are without them
};

/// An open project: the tree, the settings in force for it and the state beside the tree. All of it is changed within
/// an `Edit` (core/edit.h) only, but for the building of another project, which `History.Reset()` ends.
struct Project : ProjectState {
  explicit Project(const torvane::Settings& userSettings, GivenSettings given = {})
      : UserSettings(userSettings),
        Settings(userSettings),
        Given(std::move(given)),
        ProjectFile(DefaultFile(userSettings)),
        History(*this) {}

  /// Empties the tree and resets the state; the settings become the user's again.
  void Reset();

  /// True while nothing differs from what was saved, loaded or newly made.
  bool ProjectSaved() const { return History.IsSaved(); }

  /// "\DVDProject.tvn" in the output directory.
  static QString DefaultFile(const torvane::Settings& settings) { return settings.OutDir + u"\\DVDProject.tvn"; }

  torvane::Settings UserSettings;  ///< as the program started with them
  torvane::Settings Settings;      ///< the same, where the project file does not say otherwise
  GivenSettings Given;             ///< win over the project file
  /// Of a project that was loaded under given settings: its own ones, and those in force when it was loaded.
  struct Loaded {
    torvane::Settings own;
    torvane::Settings inForce;
  };
  std::optional<Loaded> LoadedSettings = {};
  ProjectTree Tree;

  bool ProjectNamed = false;
  QString ProjectFile;  ///< full DOS path
  bool RateWarningDue = true;  ///< nobody has been told yet that a film's frame rate does not fit the project's norm

  std::array<MenuSlot, kMainSubMenuSlots> MainSubMenuTable;
  std::array<MenuSlot, kSubMenuSlots> SubMenuTable;

  torvane::History History;
};

/// The menu's own raster becomes the one in use.
void TakeMenuRaster(Project& project, const QString& menu);

/// Recomputes the total size of the project in megabytes from its films, its intro and an allowance for its menus, and
/// puts it into the node "TS". Nothing happens when there is no such node.
void CalculateTotalSize(Project& project);

}  // namespace torvane
