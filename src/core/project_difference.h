#pragma once

#include <QString>
#include <variant>
#include <vector>

#include "core/project.h"
#include "core/settings_table.h"

namespace torvane {

/// True for a setting that is changed and undone with the project: those with a place in its file, and the intro's,
/// which stands in its tree.
bool BelongsToProject(const SettingRow& row);

/// All of a project that an edit can change beside the tree.
struct ProjectSnapshot {
  explicit ProjectSnapshot(const Project& project);

  ProjectState State;
  std::array<MenuSlot, kMainSubMenuSlots> MainSubMenuTable;
  std::array<MenuSlot, kSubMenuSlots> SubMenuTable;
  torvane::Settings Settings;
};

/// How a project differs from a snapshot of it, small where little differs.
struct ProjectDifference {
  enum class Family { Main, TitleSet };
  enum class Side { Before, After };

  struct Slot {
    Family family;
    int number;
    MenuSlot before;
    MenuSlot after;
  };

  using SettingValue = std::variant<bool, int, double, QString, GifMaskRecord, FontRecord>;
  struct Setting {
    SettingMember member;
    SettingValue before;
    SettingValue after;
  };

  ProjectDifference(const ProjectSnapshot& snapshot, const Project& project);

  /// True when no more differs than the menu shown.
  bool IsEmpty() const;

  /// Puts what differs to what it was on one side; everything else in the project stays.
  void Apply(Project& project, Side side) const;

  ProjectState before;
  ProjectState after;
  std::vector<Slot> slots;
  std::vector<Setting> settings;
};

}  // namespace torvane
