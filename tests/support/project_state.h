#pragma once

#include "core/project.h"
#include "support/tree_dump.h"

namespace torvane::test {

/// Everything that an edit can change, comparable.
struct WholeProject {
  explicit WholeProject(const Project& project)
      : tree(DumpTree(project.Tree)),
        state(project),
        mainSubMenus(project.MainSubMenuTable.begin(), project.MainSubMenuTable.end()),
        subMenus(project.SubMenuTable.begin(), project.SubMenuTable.end()),
        settings(project.Settings) {}
  bool operator==(const WholeProject&) const = default;

  QString tree;
  ProjectState state;
  std::vector<MenuSlot> mainSubMenus;
  std::vector<MenuSlot> subMenus;
  Settings settings;
};

}  // namespace torvane::test
