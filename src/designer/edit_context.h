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
  std::optional<QPoint> position = {};    ///< a free one is looked for when missing
  std::optional<ButtonStyle> style = {};  ///< as the settings say when missing
};

/// Gives a new button its style, and its position: the place's own, as it is, or a free one (see PlaceFinder). False
/// when the menu has none, which has been told.
bool PlaceButton(EditContext& context, const ElementPlace& place, NewButton& button);

/// The same for the button of a film: a text that would pass the right edge of the frame is wrapped at its blanks, and
/// shortened where that is not enough; that is told.
bool PlaceFilmButton(EditContext& context, const ElementPlace& place, NewButton& button);

/// Position of a label or picture of this size; nothing when the menu has no free place, which has been told.
std::optional<QPoint> PlaceArea(EditContext& context, const ElementPlace& place, const QSize& size);

/// How a new button looks at this place.
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
