#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "designer/edit_context.h"

namespace torvane {

/// What the user sets of a new submenu.
struct SubMenuChoice {
  QString type = QStringLiteral("SubMenu");
  QString buttonText = QStringLiteral("Next Menu");
};

/// "SubMenu", "Chapter(ptt)", "Audio", "Subtitle", "Angle".
QStringList MenuTypes();

/// The types that a new submenu made from `menu` may have: in a titleset all but "SubMenu" exist once, in the main
/// family "SubMenu" is the only one.
QStringList AvailableMenuTypes(const Project& project, const QString& menu);

/// Adds a submenu to the family of the place's menu, with the button there that leads to it and a Back button in it.
/// Refused with messages 184 and 137 when there are enough; false as well for a type that is in use.
bool AddMenu(EditContext& context, const SubMenuChoice& choice, const ElementPlace& place);

/// Deletes the submenu of an entry of a "SubMenus" group ("MMM2") with the button that leads to it, after asking. Only
/// the last of a family may go, and in the main family only one without films.
bool DeleteSubMenu(EditContext& context, const QString& entry);

/// One entry of the menu "Go to".
struct GotoEntry {
  QString Caption;
  QString Tag;  ///< key of the menu; "XX" for the mark that there are more
  bool Ticked = false;
  bool operator==(const GotoEntry&) const = default;
};

inline constexpr QStringView kTooManyMenus = u"XX";

/// The menus to go to, from the main menu on. At most 30 titleset menus and submenus are listed.
std::vector<GotoEntry> RebuildGotoMenu(const Project& project);

}  // namespace torvane
