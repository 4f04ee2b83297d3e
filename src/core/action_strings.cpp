#include "core/action_strings.h"

#include <QRegularExpression>
#include <array>

#include "core/engine.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

struct Row {
  GeneratedAction action;
  QStringView dvdauthor;
  QStringView looping;  ///< dvdauthor with LoopSyntax
  QStringView muxMan;
};

// {menu+1} is the submenu's number as a menu: the root menu of the family is menu 1.
constexpr std::array<Row, 16> kRows{{
    {GeneratedAction::FilmSingle, u"g1={place};jump title {title};", u"g1={place};jump title {title};",
     u"JumpTT TitleSet1_Title{title}"},
    {GeneratedAction::FilmTitleSet, u"jump titleset {title} menu;", u"g3=1;jump titleset {title} menu;",
     u"JumpSS vts_{title}, vts_ttn_1 : RootMenu"},
    {GeneratedAction::FilmTitleSetDirect, u"jump titleset {title} menu;", u"g3=1;jump titleset {title} menu;",
     u"JumpTT TitleSet{title}_Title1"},
    {GeneratedAction::AudioTitleSet, u"jump titleset {title} menu;", u"jump titleset {title} menu;",
     u"JumpSS vts_{title}, vts_ttn_1 : RootMenu"},
    {GeneratedAction::Chapter, u"jump title 1 chapter {chapter};", u"jump title 1 chapter {chapter};",
     u"JumpVTS_PTT TitleSet{titleset}_Title1_chapter{chapter}"},
    {GeneratedAction::Track, u"jump title {chapter};", u"jump title {chapter};",
     u"JumpVTS_PTT TitleSet{titleset}_Title1_chapter{chapter}"},
    {GeneratedAction::PlayListSingle, u"", u"", u"JumpTT TitleSet1_Title{title}_PL{playlist}"},
    {GeneratedAction::PlayListTitleSet, u"", u"", u"JumpTT TitleSet{title}_Title1_PL{playlist}"},
    {GeneratedAction::MainSubMenu, u"jump menu {menu+1};", u"g1=1;jump menu {menu+1};", u"LinkPGCN MainSubMenu{menu}"},
    {GeneratedAction::TitleSetSubMenu, u"jump menu {menu+1};", u"g1=1;jump menu {menu+1};",
     u"LinkPGCN TS{titleset}SubMenu{menu}"},
    {GeneratedAction::BackToMainMenu, u"jump menu 1;", u"g1=1;jump menu 1;", u"LinkPGCN MainMenu"},
    {GeneratedAction::BackToTitleSetMenu, u"jump titleset {titleset} menu;", u"g1=1;jump titleset {titleset} menu;",
     u"LinkPGCN TitleSet{titleset}Menu"},
    {GeneratedAction::BackFromTitleSet, u"jump vmgm menu;", u"g1=1; g3=1;jump vmgm menu;", u"JumpSS MainMenu"},
    {GeneratedAction::BackFromTitleSetSub, u"jump vmgm menu {menu+1};", u"g1=1; g3=1;jump vmgm menu {menu+1};",
     u"JumpSS MainSubMenu{menu}"},
    {GeneratedAction::PreOfMainSubMenu, u"g1=1; button=1024;", u"g3=1; if (g1 eq 0) g1=1; button=g1*1024;",
     u"SetHL_BTNN HL_BTNN=1"},
    {GeneratedAction::PreOfSubMenu, u"button=1024;", u"g3=1; if (g1 eq 0) g1=1; button=g1*1024;",
     u"SetHL_BTNN HL_BTNN=1"},
}};

const Row& RowOf(GeneratedAction action) {
  for (const Row& row : kRows) {
    if (row.action == action) return row;
  }
  return kRows.front();
}

/// Submenu of a type among those of a titleset, in their order.
QString SubMenuOfType(const Project& project, int titleSet, QStringView type) {
  const MenuView root(project.Tree, TitleSetMenuKey(titleSet));
  for (const QString& key : root.SubMenuKeys()) {
    if (MenuView(project.Tree, key).Type() == type) return key;
  }
  return {};
}

ActionTarget Existing(const Project& project, const QString& key, const QString& name) {
  return {project.Tree.Contains(key) ? key : QString(), name};
}

/// Menu number 1 of a family is its root, another one the root's submenu at that place.
ActionTarget MenuByNumber(const Project& project, const QString& root, const QString& rootName, const QString& subName,
                          int number) {
  if (number <= 1) return Existing(project, root, rootName);
  const std::vector<QString> keys = MenuView(project.Tree, root).SubMenuKeys();
  const QString key = number - 2 < int(keys.size()) ? keys[number - 2] : QString();
  return Existing(project, key, subName + QString::number(number - 1));
}

ActionTarget MainMenuTarget(const Project& project, int number) {
  return MenuByNumber(project, MainMenuKey(), u"MainMenu"_s, u"MainSubMenu"_s, number);
}

ActionTarget TitleSetTarget(const Project& project, int titleSet, int number) {
  return MenuByNumber(project, TitleSetMenuKey(titleSet), u"TitleSet%1Menu"_s.arg(titleSet),
                      u"TS%1SubMenu"_s.arg(titleSet), number);
}

ActionTarget TypedTarget(const Project& project, int titleSet, QStringView entry) {
  struct Entry {
    QStringView word;
    QStringView type;
    QStringView name;
  };
  constexpr Entry kEntries[] = {
      {u"ptt", u"Chapter(ptt)", u"Chapter menu"},
      {u"PTT_Menu", u"Chapter(ptt)", u"Chapter menu"},
      {u"audio", u"Audio", u"Audio menu"},
      {u"AudioMenu", u"Audio", u"Audio menu"},
      {u"subtitle", u"Subtitle", u"Sub-picture menu"},
      {u"Sub-pictureMenu", u"Subtitle", u"Sub-picture menu"},
  };
  for (const auto& [word, type, name] : kEntries) {
    if (word != entry) continue;
    return Existing(project, SubMenuOfType(project, titleSet, type), u"TitleSet%1 Submenu: "_s.arg(titleSet) + name);
  }
  return TitleSetTarget(project, titleSet, 1);
}

/// Titleset that a menu belongs to; 0 in the main menu family.
int TitleSetOf(const Project& project, const QString& menu) {
  if (IsTitleSetMenu(menu)) return ValToInt(menu.mid(2));
  const ProjectNode* root = project.Tree.Find(menu);
  return IsSubMenu(menu) && root ? ValToInt(root->Tag().mid(2)) : 0;
}

std::optional<ActionTarget> DvdauthorTarget(const Project& project, const QString& menu, const QString& action) {
  static const QRegularExpression titleSet(u"jump titleset\\s+(\\d+)\\s+menu(?:\\s+entry\\s+(\\w+))?"_s);
  static const QRegularExpression vmgm(u"jump vmgm menu(?:\\s+(\\d+))?"_s);
  static const QRegularExpression sameDomain(u"jump menu\\s+(\\d+)"_s);
  if (const auto match = titleSet.match(action); match.hasMatch()) {
    return TypedTarget(project, match.captured(1).toInt(), match.captured(2));
  }
  if (const auto match = vmgm.match(action); match.hasMatch())
    return MainMenuTarget(project, match.captured(1).toInt());
  if (const auto match = sameDomain.match(action); match.hasMatch()) {
    const int number = match.captured(1).toInt();
    if (IsMainMenuFamily(menu)) return MainMenuTarget(project, number);
    return TitleSetTarget(project, TitleSetOf(project, menu), number);
  }
  return std::nullopt;
}

std::optional<ActionTarget> MuxManTarget(const Project& project, const QString& action) {
  static const QRegularExpression titleSet(u"JumpSS vts_(\\d+)[^:]*:\\s*([\\w-]+)"_s);
  static const QRegularExpression mainMenu(u"(?:JumpSS|LinkPGCN) Main(?:Menu|SubMenu(\\d+))"_s);
  static const QRegularExpression rootMenu(u"LinkPGCN TitleSet(\\d+)Menu"_s);
  static const QRegularExpression subMenu(u"LinkPGCN TS(\\d+)SubMenu(\\d+)"_s);
  if (const auto match = titleSet.match(action); match.hasMatch()) {
    return TypedTarget(project, match.captured(1).toInt(), match.captured(2));
  }
  if (const auto match = mainMenu.match(action); match.hasMatch()) {
    return MainMenuTarget(project, match.captured(1).toInt() + 1);
  }
  if (const auto match = rootMenu.match(action); match.hasMatch()) {
    return TitleSetTarget(project, match.captured(1).toInt(), 1);
  }
  if (const auto match = subMenu.match(action); match.hasMatch()) {
    return TitleSetTarget(project, match.captured(1).toInt(), match.captured(2).toInt() + 1);
  }
  return std::nullopt;
}

}  // namespace

QString ActionText(GeneratedAction action, const ActionNumbers& numbers, const Settings& settings) {
  const Row& row = RowOf(action);
  const QStringView chosen = settings.Engine == kEngineMuxMan ? row.muxMan
                             : settings.LoopSyntax            ? row.looping
                                                              : row.dvdauthor;
  QString text = chosen.toString();
  text.replace(u"{place}"_s, QString::number(numbers.place));
  text.replace(u"{title}"_s, QString::number(numbers.title));
  text.replace(u"{titleset}"_s, QString::number(numbers.titleSet));
  text.replace(u"{chapter}"_s, QString::number(numbers.chapter));
  text.replace(u"{playlist}"_s, QString::number(numbers.playList));
  text.replace(u"{menu}"_s, QString::number(numbers.menu));
  text.replace(u"{menu+1}"_s, QString::number(numbers.menu + 1));
  return text;
}

QString FilmButtonAction(int film, int place, const Settings& settings) {
  const GeneratedAction action = settings.NoTitleSets          ? GeneratedAction::FilmSingle
                                 : settings.NoShowTitleSetMenu ? GeneratedAction::FilmTitleSetDirect
                                                               : GeneratedAction::FilmTitleSet;
  return ActionText(action, {.place = place, .title = film}, settings);
}

QString ChapterButtonAction(const ProjectTree& tree, int titleSet, int chapter, const Settings& settings) {
  const ProjectNode* layout = tree.Find(FilmNodeKey(film_node::AudioLayout, titleSet));
  const bool isTrack = FilmView(tree, titleSet).IsAudioTitleSet() && !(layout && layout->Tag() == u"1");
  return ActionText(isTrack ? GeneratedAction::Track : GeneratedAction::Chapter,
                    {.titleSet = titleSet, .chapter = chapter}, settings);
}

QString PlayListButtonAction(int film, int playList, const Settings& settings) {
  return ActionText(settings.NoTitleSets ? GeneratedAction::PlayListSingle : GeneratedAction::PlayListTitleSet,
                    {.title = film, .playList = playList}, settings);
}

QString MenuButtonAction(int titleSet, int menu, const Settings& settings) {
  return ActionText(titleSet == 0 ? GeneratedAction::MainSubMenu : GeneratedAction::TitleSetSubMenu,
                    {.titleSet = titleSet, .menu = menu}, settings);
}

QString BackFromTitleSetAction(const QString& holder, const Settings& settings) {
  if (!IsMainSubMenu(holder)) return ActionText(GeneratedAction::BackFromTitleSet, {}, settings);
  return ActionText(GeneratedAction::BackFromTitleSetSub, {.menu = ValToInt(holder.mid(2))}, settings);
}

QString BackAction(const Project& project, const QString& previous) {
  const Settings& settings = project.Settings;
  if (previous == MainMenuKey()) return ActionText(GeneratedAction::BackToMainMenu, {}, settings);
  if (IsTitleSetMenu(previous)) {
    return ActionText(GeneratedAction::BackToTitleSetMenu, {.titleSet = ValToInt(previous.mid(2))}, settings);
  }
  const int slot = ValToInt(previous.mid(2));
  QString action;
  if (IsMainSubMenu(previous) && slot < kMainSubMenuSlots) action = project.MainSubMenuTable[slot].Action;
  if (IsSubMenu(previous) && slot < kSubMenuSlots) action = project.SubMenuTable[slot].Action;
  const bool prefixed = settings.Engine != kEngineMuxMan && settings.LoopSyntax && !action.startsWith(u"g1=1;");
  return prefixed ? QString(u"g1=1;" + action) : action;
}

QString SubMenuPreCommand(bool mainFamily, const Settings& settings) {
  return ActionText(
      mainFamily && !settings.NoTitleSets ? GeneratedAction::PreOfMainSubMenu : GeneratedAction::PreOfSubMenu, {},
      settings);
}

std::optional<ActionTarget> FindActionTarget(const Project& project, const QString& menu, const QString& action) {
  if (project.Settings.Engine == kEngineMuxMan) return MuxManTarget(project, action);
  return DvdauthorTarget(project, menu, action);
}

}  // namespace torvane
