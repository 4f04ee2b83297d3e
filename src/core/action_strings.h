#pragma once

#include <QString>
#include <optional>

#include "core/project.h"

namespace torvane {

/// The one action that both engines share: plays all titles one after the other.
inline constexpr QStringView kPlayAllAction = u"Play_all";

/// Every action that the program itself gives to a button, and the pre commands of new submenus.
enum class GeneratedAction {
  FilmSingle,           ///< film without titlesets: {place}, {title}
  FilmTitleSet,         ///< film in a titleset whose menu is shown: {title}
  FilmTitleSetDirect,   ///< film in a titleset that starts with its title: {title}
  AudioTitleSet,        ///< {title}
  Chapter,              ///< chapter of the titleset's title: {titleset}, {chapter}
  Track,                ///< title of an audio titleset that has a title for each: {titleset}, {chapter}
  PlayListSingle,       ///< playlist without titlesets: {title}, {playlist}
  PlayListTitleSet,     ///< playlist in a titleset: {title}, {playlist}
  MainSubMenu,          ///< {menu}: running number of the submenu
  TitleSetSubMenu,      ///< {titleset}, {menu}
  BackToMainMenu,       ///< from a main submenu
  BackToTitleSetMenu,   ///< from a submenu of the titleset: {titleset}
  BackFromTitleSet,     ///< from a titleset's root menu to the main menu
  BackFromTitleSetSub,  ///< from a titleset's root menu to a main submenu: {menu}
  PreOfMainSubMenu,     ///< with titlesets in use
  PreOfSubMenu,         ///< of any other submenu
};

/// What stands for the marks in braces. Those that an action does not name do not matter.
struct ActionNumbers {
  int place = 0;  ///< of the button among the menu's buttons on the disc, from 1
  int title = 0;
  int titleSet = 0;
  int chapter = 0;
  int playList = 0;
  int menu = 0;
};

/// The action in the dialect of the engine in use. Empty where the engine knows no such action.
QString ActionText(GeneratedAction action, const ActionNumbers& numbers, const Settings& settings);

// Which of them a new element gets.

QString FilmButtonAction(int film, int place, const Settings& settings);
/// A chapter of the titleset's film, or a title of its audio titleset.
QString ChapterButtonAction(const ProjectTree& tree, int titleSet, int chapter, const Settings& settings);
QString PlayListButtonAction(int film, int playList, const Settings& settings);
/// Button to submenu number `menu` of a titleset, or of the main menu with titleset 0.
QString MenuButtonAction(int titleSet, int menu, const Settings& settings);
/// Back button of a titleset's root menu, the film's button being in `holder`.
QString BackFromTitleSetAction(const QString& holder, const Settings& settings);
/// Back button of a submenu that was made from the menu `previous`.
QString BackAction(const Project& project, const QString& previous);
QString SubMenuPreCommand(bool mainFamily, const Settings& settings);

/// Where an action leads.
struct ActionTarget {
  QString MenuKey;  ///< empty when the menu is not there
  QString Name;     ///< as shown to the user
  bool operator==(const ActionTarget&) const = default;
};

/// The menu that an action of a button of `menu` jumps to; nothing for an action that opens no menu.
std::optional<ActionTarget> FindActionTarget(const Project& project, const QString& menu, const QString& action);

}  // namespace torvane
