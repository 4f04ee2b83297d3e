#pragma once

#include <QString>

#include "core/project.h"

namespace torvane {

enum class MenuKind { Main, TitleSetRoot, MainSubMenu, TitleSetSubMenu };

/// What a new menu is made with. All but `kind`, `number` and `key` concern additional menus only.
struct NewMenu {
  MenuKind kind = MenuKind::Main;
  int number = 0;  ///< running number in the caption; of a titleset root the titleset
  QString key = {};
  QString type = QStringLiteral("SubMenu");
  QString pause = QStringLiteral("inf");
  QString preCommand = {};
  QString postCommand = {};
  bool loop = false;
  QString action = {};     ///< button action that jumps to this menu
  QString buttonKey = {};  ///< button that leads here
};

/// Adds the nodes of a menu with the defaults of the settings in force, in their stored order. The root node stands
/// where the project's order wants it.
void AddMenuSubtree(Project& project, const NewMenu& menu);

/// Resets the project and builds the default one: total size, intro when one is used, the main menu.
void AddDefaultProject(Project& project);

/// Brings the nodes of the intro in line with the settings: made, changed or removed.
void WriteIntro(Project& project);

/// Transparency in percent of an opacity byte (0 to 255), as a caption holds it: "41%" for 150.
QString TransparencyText(int opacity);

}  // namespace torvane
