#pragma once

#include <QStringList>

#include "core/project.h"

namespace torvane::test {

/// All fields of all nodes in stored order, a line each, indented by depth.
inline QString TreeLines(const ProjectTree& tree) {
  QStringList lines;
  for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    int depth = 0;
    for (const ProjectNode* above = node->Parent(); above; above = above->Parent()) ++depth;
    lines << QString(depth, u' ') + node->Key() + u'|' + node->Caption() + u'|' + node->Tag() + u'|' +
                 QString::number(node->Image());
  }
  return lines.join(u'\n');
}

/// Everything that an edit can change, comparable.
struct WholeProject {
  explicit WholeProject(const Project& project)
      : tree(TreeLines(project.Tree)),
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
