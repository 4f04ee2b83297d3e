#include "designer/edit_menus.h"

#include <algorithm>

#include "core/action_strings.h"
#include "core/default_project.h"
#include "core/edit.h"
#include "core/messages.h"
#include "core/text.h"
#include "designer/button_places.h"
#include "designer/element_limits.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMaxTitleSetSubMenus = 99;
constexpr int kMaxGotoEntries = 30;

/// First free slot of a table; 0 when the last one is taken or none is free.
template <class Table>
int FreeSlot(const Table& table) {
  if (table.back().Used) return 0;
  const auto free = std::find_if(table.begin() + 1, table.end(), [](const MenuSlot& slot) { return !slot.Used; });
  return free == table.end() ? 0 : int(free - table.begin());
}

/// Number of the last entry of a family's "SubMenus" group; 0 without one.
int LastSubMenuNumber(const ProjectTree& tree, const QString& root) {
  const QString group = MenuNodeKey(root, menu_node::SubMenus);
  const ProjectNode* node = tree.Find(group);
  return node && node->LastChild() ? std::max(ElementNumber(node->LastChild()->Key(), group), 0) : 0;
}

/// The slot of a new submenu; 0 after telling why there is none.
int CheckSlot(EditContext& context, int titleSet) {
  const Project& project = context.project;
  const QString root = titleSet == 0 ? MainMenuKey() : TitleSetMenuKey(titleSet);
  const int slot = titleSet == 0 ? FreeSlot(project.MainSubMenuTable) : FreeSlot(project.SubMenuTable);
  const bool full = titleSet != 0 && LastSubMenuNumber(project.Tree, root) >= kMaxTitleSetSubMenus;
  if (slot != 0 && !full) return slot;
  context.prompter.Inform(GetMessage(titleSet == 0 ? 184 : 137));
  return 0;
}

/// The list of submenus stands in front of everything else of its menu.
void AddListEntry(Project& project, const QString& root, int number, const SubMenuChoice& choice,
                  const QString& previousMenu, const QString& key) {
  const QString group = MenuNodeKey(root, menu_node::SubMenus);
  if (!project.Tree.Contains(group)) {
    project.Tree.Add({group, menu_node::SubMenus.Label.toString()}, MenuNodeKey(root, menu_node::Background),
                     Relation::First);
  }
  project.Tree.Add({SubMenuLinkKey(root, number),
                    u"SubMenu%1 Type=%2, PreviousMenu=%3"_s.arg(number).arg(
                        choice.type, MenuView(project.Tree, previousMenu).Name()),
                    key},
                   group, Relation::Child);
}

/// Adds the menu's nodes as one of a titleset, whichever menu is shown.
void AddNodes(Project& project, int titleSet, const NewMenu& menu) {
  const int shown = project.CurrentTitleSet;
  project.CurrentTitleSet = titleSet;
  AddMenuSubtree(project, menu);
  project.CurrentTitleSet = shown;
}

bool HoldsFilms(const Project& project, const QString& menu) {
  const ProjectNode* node = project.Tree.Find(MenuNodeKey(menu, menu_node::Buttons));
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    if (KindOf(node->Caption()) == ButtonKind::Film) return true;
  }
  return false;
}

void ClearSlot(Project& project, const QString& menu) {
  const int slot = ValToInt(menu.mid(2));
  if (IsMainSubMenu(menu) && slot < kMainSubMenuSlots) project.MainSubMenuTable[slot] = {};
  if (IsSubMenu(menu) && slot < kSubMenuSlots) project.SubMenuTable[slot] = {};
}

/// Removes the button that leads to a submenu; its key stands in the submenu's slot and at its type.
void RemoveMenuButton(Project& project, const QString& menu) {
  const QString key = MenuView(project.Tree, menu).Tag(menu_node::Type);
  const QString holder = MenuOfNode(project.Tree, key);
  if (holder.isEmpty()) return;
  const int number = ElementNumber(key, MenuNodeKey(holder, menu_node::Buttons));
  if (number <= kBackButton) return;
  PlaceKeeper places(project, holder);
  RemoveButtonNodes(project, holder, number);
  places.Update();
}

}  // namespace

QStringList MenuTypes() {
  return {u"SubMenu"_s, u"Chapter(ptt)"_s, u"Audio"_s, u"Subtitle"_s, u"Angle"_s};
}

QStringList AvailableMenuTypes(const Project& project, const QString& menu) {
  QStringList types = MenuTypes();
  if (IsMainMenuFamily(menu)) return types.first(1);
  const ProjectNode* node = project.Tree.Find(MenuNodeKey(FamilyRoot(project, menu), menu_node::SubMenus));
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    const QString type = node->Caption().section(u" Type="_s, 1, 1).section(u", "_s, 0, 0);
    if (type != types.front()) types.removeOne(type);
  }
  return types;
}

bool AddMenu(EditContext& context, const SubMenuChoice& choice, const ElementPlace& place) {
  Project& project = context.project;
  const Settings& settings = project.Settings;
  if (MenuOfNode(project.Tree, place.menu) != place.menu) return false;
  const int titleSet = TitleSetOfMenu(project, place.menu);
  const int slot = CheckSlot(context, titleSet);
  if (slot == 0 || !AvailableMenuTypes(project, place.menu).contains(choice.type)) return false;
  const MenuView from(project.Tree, place.menu);
  if (!CheckButtonLimit(from, settings, context.prompter)) return false;
  if (StyleOf(project, place) == ButtonStyle::Combined && !CheckLabelLimit(from, context.prompter)) return false;

  const bool mainFamily = titleSet == 0;
  const QString root = FamilyRoot(project, place.menu);
  const QString key = mainFamily ? MainSubMenuKey(slot) : SubMenuKey(slot);
  const int number = LastSubMenuNumber(project.Tree, root) + 1;
  const QString action = MenuButtonAction(titleSet, number, settings);
  NewButton newButton{.kind = ButtonKind::Menu, .text = choice.buttonText, .action = action};
  if (!PlaceButton(context, place, newButton)) return false;

  Edit edit(project, u"Add menu"_s);
  AddListEntry(project, root, number, choice, place.menu, key);
  const int button = AddButtonNodes(project, place.menu, newButton, context.measure);
  const bool loop = settings.AnimatedMainMenu && settings.DefaultLoop;
  AddNodes(project, titleSet,
           {.kind = mainFamily ? MenuKind::MainSubMenu : MenuKind::TitleSetSubMenu,
            .number = number,
            .key = key,
            .type = choice.type,
            .pause = loop ? u"0"_s : u"inf"_s,
            .preCommand = SubMenuPreCommand(mainFamily, settings),
            .loop = loop,
            .action = action,
            .buttonKey = ButtonKey(place.menu, button)});
  AddBackButton(project, key, settings.DefBackButtonText, BackAction(project, place.menu), context.measure);
  MenuSlot& entry = mainFamily ? project.MainSubMenuTable[slot] : project.SubMenuTable[slot];
  entry = {true, titleSet, key, action, ButtonKey(place.menu, button)};
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

bool DeleteSubMenu(EditContext& context, const QString& entry) {
  Project& project = context.project;
  const ProjectNode* node = project.Tree.Find(entry);
  if (!node || !node->Parent()) return false;
  const ProjectNode* group = node->Parent();
  const QString root = group->Parent() ? group->Parent()->Key() : QString();
  if (group->Key() != MenuNodeKey(root, menu_node::SubMenus)) return false;
  const QString menu = node->Tag();

  if (IsMainMenuFamily(menu) && HoldsFilms(project, menu)) {
    context.prompter.Inform(GetMessage(183));
    return false;
  }
  if (group->LastChild() != node) {
    context.prompter.Inform(GetMessage(158));
    return false;
  }
  if (context.prompter.Show({.kind = BoxKind::Question,
                             .buttons = BoxButtons::OkCancel,
                             .text = GetMessage(185),
                             .title = GetMessage(148)}) != Answer::Ok) {
    return false;
  }
  Edit edit(project, u"Delete menu"_s);
  const QString groupKey = group->Key();
  RemoveMenuButton(project, menu);
  ClearSlot(project, menu);
  if (IsAdditionalMenu(menu)) project.Tree.Remove(menu);
  project.Tree.Remove(entry);
  if (project.Tree.Find(groupKey)->ChildCount() == 0) project.Tree.Remove(groupKey);
  if (!project.Tree.Contains(project.CurrentMenuKey)) ShowMenu(project, root);
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

std::vector<GotoEntry> RebuildGotoMenu(const Project& project) {
  const ProjectTree& tree = project.Tree;
  std::vector<GotoEntry> entries{{u"MainMenu"_s, MainMenuKey()}};
  for (int i = 1, last = LastSubMenuNumber(tree, MainMenuKey()); i <= last; ++i) {
    entries.push_back({u"   MainSubMenu%1 (menu %2)"_s.arg(i).arg(i + 1), MainSubMenuKey(i)});
  }
  int index = 0;
  const auto add = [&entries, &index](const QString& caption, const QString& tag) {
    const bool fits = ++index <= kMaxGotoEntries;
    entries.push_back(fits ? GotoEntry{caption, tag} : GotoEntry{u"..."_s, kTooManyMenus.toString()});
    return fits;
  };
  const int titleSets = project.Settings.NoTitleSets ? 0 : project.TitleSetCount;
  for (int t = 1; t <= titleSets && index <= kMaxGotoEntries; ++t) {
    const QString root = TitleSetMenuKey(t);
    if (!add(u"TitleSet%1Menu"_s.arg(t), root)) break;
    for (int j = 1, last = LastSubMenuNumber(tree, root); j <= last; ++j) {
      const ProjectNode* link = tree.Find(SubMenuLinkKey(root, j));
      if (!add(u"   TS%1SubMenu%2 (menu %3)"_s.arg(t).arg(j).arg(j + 1), link ? link->Tag() : QString())) break;
    }
  }
  for (GotoEntry& entry : entries) entry.Ticked = entry.Tag == project.CurrentMenuKey;
  return entries;
}

}  // namespace torvane
