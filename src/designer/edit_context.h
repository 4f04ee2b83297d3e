#pragma once

#include <QPoint>
#include <QString>
#include <optional>

#include "core/project.h"
#include "core/prompter.h"
#include "designer/element_nodes.h"

namespace torvane {

/// What every editing operation works with. An operation is one named edit: it happens whole, or the project stays as
/// it was and the user has been told why.
struct EditContext {
  torvane::Project& project;
  torvane::Prompter& prompter;
  TextMeasure measure;
};

/// Where a new element goes, and how a new button looks.
struct ElementPlace {
  QString menu = MainMenuKey();
  std::optional<QPoint> position = {};    ///< the next place of the grid when missing
  std::optional<ButtonStyle> style = {};  ///< as the settings say when missing
};

/// The place of the setting `GridLayout` that the menu's next button takes: rows from the top, each from the left, and
/// from the start again when all are taken.
QPoint NextGridPosition(const Project& project, const QString& menu);

/// The place's own values, or what stands for them.
QPoint PositionOf(const Project& project, const ElementPlace& place);
ButtonStyle StyleOf(const Project& project, const ElementPlace& place);

/// Titleset that a menu belongs to; 0 in the main menu family.
int TitleSetOfMenu(const Project& project, const QString& menu);

/// The menu whose "SubMenus" group lists the family's submenus: "MM" or "TS2".
QString FamilyRoot(const Project& project, const QString& menu);

/// The menu that an element or one of its attributes belongs to; empty for any other key.
QString MenuOfNode(const ProjectTree& tree, const QString& key);

/// Makes a menu of the project the current one, with its titleset and raster.
void ShowMenu(Project& project, const QString& key);

/// The same when it may be. Without menus the main menu alone can be shown: another one is answered by message
/// 193. False when the menu shown is not `key` afterwards.
bool SwitchMenu(Project& project, const QString& key, Prompter& prompter);

}  // namespace torvane
