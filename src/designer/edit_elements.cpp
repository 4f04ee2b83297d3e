#include "designer/edit_elements.h"

#include "core/action_strings.h"
#include "core/edit.h"
#include "core/film_view.h"
#include "core/grid_layout.h"
#include "core/messages.h"
#include "core/text.h"
#include "designer/button_places.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/element_limits.h"
#include "designer/menu_frame.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool CheckButton(EditContext& context, const ElementPlace& place) {
  if (MenuOfNode(context.project.Tree, place.menu) != place.menu) return false;
  const MenuView menu(context.project.Tree, place.menu);
  if (!CheckButtonLimit(menu, context.project.Settings, context.prompter)) return false;
  return StyleOf(context.project, place) != ButtonStyle::Combined || CheckLabelLimit(menu, context.prompter);
}

bool AddButton(EditContext& context, NewButton button, const ElementPlace& place, const QString& name) {
  if (!CheckButton(context, place)) return false;
  if (!PlaceButton(context, place, button)) return false;
  Edit edit(context.project, name);
  AddButtonNodes(context.project, place.menu, button, context.measure);
  edit.Commit();
  return true;
}

bool HasPlayAll(const Project& project) {
  for (const ButtonView& button : MenuView(project.Tree, MainMenuKey()).Buttons()) {
    if (button.Action() == kPlayAllAction.toString()) return true;
  }
  return false;
}

/// True while some button leads to the playlist that the tag names.
bool HasPlayListButton(const ProjectTree& tree, const QString& playListTag) {
  for (const ProjectNode* root = tree.FirstRoot(); root; root = root->Next()) {
    if (MenuOfNode(tree, root->Key()).isEmpty()) continue;
    for (const ButtonView& button : MenuView(tree, root->Key()).Buttons()) {
      const bool isPlayList = KindOf(tree.Find(button.Key())->Caption()) == ButtonKind::PlayList;
      if (isPlayList && button.Tag(element_node::Text) == playListTag) return true;
    }
  }
  return false;
}

bool DeleteButton(EditContext& context, const QString& menu, int number) {
  Project& project = context.project;
  if (number == kBackButton) {
    context.prompter.Inform(GetMessage(176));
    return false;
  }
  const ButtonView button(project.Tree, ButtonKey(menu, number), number, ButtonPropertiesKey(menu, number));
  const std::optional<ButtonKind> kind = KindOf(project.Tree.Find(button.Key())->Caption());
  if (kind == ButtonKind::Film) return DeleteFilm(context, FilmOfButton(project, menu, number));
  if (kind == ButtonKind::Menu) {
    // Deleting a submenu is done in its family's root menu, where the list of submenus is.
    const QString root = FamilyRoot(project, menu);
    const QString text = GetMessage(175, {{u"|1", u"\r\n"_s}, {u"|2", MenuView(project.Tree, root).Name()}});
    const Answer answer =
        context.prompter.Show({.kind = BoxKind::Question, .buttons = BoxButtons::OkCancel, .text = text});
    if (answer == Answer::Ok) SwitchMenu(project, root, context.prompter);
    return false;
  }
  Edit edit(project, u"Delete button"_s);
  PlaceKeeper places(project, menu);
  const QString tag = button.Tag(element_node::Text);
  RemoveButtonNodes(project, menu, number);
  places.Update();
  if (kind == ButtonKind::PlayList && !HasPlayListButton(project.Tree, tag)) {
    // The numbers of a film's playlists have no gaps, so that only the last one goes with its button.
    const int film = ValToInt(tag.section(u' ', 0, 0));
    const QString key = PlayListKey(film, ValToInt(tag.section(u' ', 1, 1)));
    const ProjectNode* playList = project.Tree.Find(key);
    if (playList && !playList->Next()) project.Tree.Remove(key);
    const ProjectNode* group = project.Tree.Find(PlayListsKey(film));
    if (group && group->ChildCount() == 0) project.Tree.Remove(PlayListsKey(film));
  }
  edit.Commit();
  return true;
}

bool IsChapterKind(std::optional<ButtonKind> kind) {
  return kind == ButtonKind::Chapter || kind == ButtonKind::Title;
}

void RemoveButtons(Project& project, const QString& menu, bool (*which)(std::optional<ButtonKind>)) {
  PlaceKeeper places(project, menu);
  for (const ButtonView& button : MenuView(project.Tree, menu).Buttons()) {
    if (which(KindOf(project.Tree.Find(button.Key())->Caption()))) RemoveButtonNodes(project, menu, button.Number());
  }
  places.Update();
}

void RemoveChildren(ProjectTree& tree, const QString& group, const QStringList& kept) {
  const ProjectNode* node = tree.Find(group);
  for (node = node ? node->FirstChild() : nullptr; node;) {
    const QString key = node->Key();
    node = node->Next();
    if (!kept.contains(key)) tree.Remove(key);
  }
}

/// Group of elements that a head node stands in, as its menu's suffix; nothing for any other node.
std::optional<Attribute> ElementGroupOf(const ProjectNode& node, const QString& menu) {
  if (!node.Parent() || menu.isEmpty()) return std::nullopt;
  for (const Attribute group : {menu_node::Buttons, menu_node::Images, menu_node::Labels, menu_node::Animations}) {
    if (node.Parent()->Key() == MenuNodeKey(menu, group)) return group;
  }
  return std::nullopt;
}

/// Tells when a menu belongs to no titleset, or its film lacks the chapter.
bool CheckChapter(EditContext& context, const QString& menu, int chapter) {
  const int titleSet = TitleSetOfMenu(context.project, menu);
  if (titleSet == 0) {
    context.prompter.Inform(GetMessage(186, {{u"|1", u"\r\n"_s}}));
    return false;
  }
  if (chapter < 1 || chapter > ChapterCount(context.project, titleSet)) {
    context.prompter.Inform(GetMessage(187));
    return false;
  }
  return true;
}

/// False only when the menu has no room for the picture that there is.
bool AddChapterPicture(EditContext& context, const QString& film, QString time, const ElementPlace& place) {
  const Settings& settings = context.project.Settings;
  const QString path = settings.OutDir + u'\\' + film + u'_' + time.replace(u':', u'_');
  const QString clip = path + u".vob";
  if (settings.AnimatedMainMenu && HostFiles::FileExists(clip)) return AddAnimation(context, {.video = clip}, place);
  const QString still = path + u".bmp";
  return !HostFiles::FileExists(still) || AddImage(context, still, place);
}

/// Keys of the buttons and labels of a menu that pass the right margin or the lower edge of a grid's preview.
QStringList BeyondTheGrid(const Project& project, const QString& menu) {
  constexpr int kRightMargin = 712;
  QStringList keys;
  const auto collect = [&](const auto& elements) {
    for (const auto& element : elements) {
      const QRect place = ElementRectangle(element.Drawing());
      const bool passes =
          place.x() + place.width() > kRightMargin || place.y() + place.height() > MenuHeight(project.Settings);
      if (passes) keys << element.Key();
    }
  };
  const MenuView view(project.Tree, menu);
  collect(view.Buttons());
  collect(view.Labels());
  return keys;
}

bool IsBefore(const ProjectNode* node, const ProjectNode* other) {
  while (node && node != other) node = node->Next();
  return node != nullptr;
}

}  // namespace

bool AddFreeButton(EditContext& context, const QString& text, const QString& action, const ElementPlace& place) {
  return AddButton(context, {.kind = ButtonKind::Free, .text = text, .action = action}, place, u"Add button"_s);
}

bool AddPlayAllButton(EditContext& context, const ElementPlace& place) {
  if (place.menu != MainMenuKey() || HasPlayAll(context.project)) {
    context.prompter.Inform(GetMessage(place.menu != MainMenuKey() ? 54 : 55));
    return false;
  }
  return AddButton(context, {.kind = ButtonKind::Free, .text = u"Play all"_s, .action = kPlayAllAction.toString()},
                   place, u"Add Play all button"_s);
}

int ChapterCount(const Project& project, int titleSet) {
  const FilmView film(project.Tree, titleSet);
  if (film.IsAudioTitleSet()) return ValToInt(film.Text(film_node::AudioTitles).value_or(QString()));
  return int(film.Chapters().split(u',', Qt::SkipEmptyParts).size());
}

QString ChapterButtonText(const Project& project, int chapter, const QString& time) {
  const Settings& settings = project.Settings;
  QString text = settings.DefChapterButtonText;
  if (settings.ChapterButtonUseNum) text += u' ' + QString::number(chapter);
  if (settings.ChapterButtonUseTime && !time.isEmpty()) text += u' ' + time;
  return text;
}

bool AddChapterButton(EditContext& context, int chapter, const ElementPlace& place, ChapterPicture picture) {
  if (!CheckChapter(context, place.menu, chapter)) return false;
  Project& project = context.project;
  const int titleSet = TitleSetOfMenu(project, place.menu);
  const FilmView film(project.Tree, titleSet);
  const bool isTitle = film.IsAudioTitleSet();
  const QString time = isTitle ? QString() : film.Chapters().split(u',', Qt::SkipEmptyParts).value(chapter - 1);
  NewButton button{.kind = isTitle ? ButtonKind::Title : ButtonKind::Chapter,
                   .text = ChapterButtonText(project, chapter, time),
                   .action = ChapterButtonAction(project.Tree, titleSet, chapter, project.Settings)};
  if (!CheckButton(context, place) || !PlaceButton(context, place, button)) return false;
  Edit edit(project, u"Add chapter button"_s);
  ElementPlace fixed = place;
  fixed.position = button.position;
  if (picture == ChapterPicture::FromEditor && !isTitle && !AddChapterPicture(context, film.Name(), time, fixed)) {
    return false;
  }
  if (!AddButton(context, button, fixed, u"Add chapter button"_s)) return false;
  edit.Commit();
  return true;
}

bool AddChapterGrid(EditContext& context, const std::vector<int>& chapters, const QString& gridLayout,
                    const ElementPlace& place, ChapterPicture picture) {
  if (chapters.empty()) {
    context.prompter.Inform(GetMessage(633));
    return false;
  }
  for (const int chapter : chapters) {
    if (!CheckChapter(context, place.menu, chapter)) return false;
  }
  const QStringList faults = GridLayoutFaults(gridLayout, MenuHeight(context.project.Settings));
  if (!faults.isEmpty()) {
    context.prompter.Inform(faults.join(u"\r\n"_s));
    return false;
  }
  const GridLayoutRecord grid = ParseGridLayout(gridLayout);
  const auto places = std::min(chapters.size(), std::size_t(grid.Rows) * std::size_t(grid.Columns));
  const QStringList beyondBefore = BeyondTheGrid(context.project, place.menu);
  Edit edit(context.project, u"Create layout by grid"_s);
  std::size_t added = 0;
  // A full menu refuses its chapter as it does a single one, and would refuse all that follow.
  for (bool room = true; room && added < places; added += room) {
    const int row = int(added) / grid.Columns;
    const int column = int(added) % grid.Columns;
    ElementPlace cell = place;
    cell.position = QPoint(grid.StartX + column * grid.DeltaX, grid.StartY + row * grid.DeltaY);
    room = AddChapterButton(context, chapters[added], cell, picture);
  }
  if (added == 0) return false;
  if (BeyondTheGrid(context.project, place.menu) != beyondBefore) {
    context.prompter.Inform(GetMessage(682));
    return false;
  }
  edit.Commit();
  return true;
}

bool AddLabel(EditContext& context, const QString& text, const ElementPlace& place) {
  Project& project = context.project;
  if (MenuOfNode(project.Tree, place.menu) != place.menu) return false;
  if (text.isEmpty()) {
    context.prompter.Inform(GetMessage(380));
    return false;
  }
  if (!CheckLabelLimit(MenuView(project.Tree, place.menu), context.prompter)) return false;
  const QSize size = context.measure(project.Settings.DefaultFont, NormalizeLineBreaks(text));
  const std::optional<QPoint> position = PlaceArea(context, place, size);
  if (!position) return false;
  Edit edit(project, u"Add text"_s);
  AddLabelNodes(project, place.menu, {.text = text, .position = *position}, context.measure);
  edit.Commit();
  return true;
}

bool AddImage(EditContext& context, const QString& path, const ElementPlace& place) {
  Project& project = context.project;
  if (MenuOfNode(project.Tree, place.menu) != place.menu) return false;
  if (!CheckImageLimit(MenuView(project.Tree, place.menu), context.prompter)) return false;
  const QSize size(project.Settings.ImageSizeX, project.Settings.ImageSizeY);
  const std::optional<QPoint> position = PlaceArea(context, place, size);
  if (!position) return false;
  Edit edit(project, u"Add image"_s);
  AddImageNodes(project, place.menu, path, *position);
  edit.Commit();
  return true;
}

bool AddAnimation(EditContext& context, const NewAnimation& animation, const ElementPlace& place) {
  Project& project = context.project;
  if (MenuOfNode(project.Tree, place.menu) != place.menu) return false;
  if (!CheckAnimLimit(MenuView(project.Tree, place.menu), context.prompter)) return false;
  Edit edit(project, u"Add animation"_s);
  NewAnimation placed = animation;
  if (place.position) placed.position = place.position;
  AddAnimationNodes(project, place.menu, placed);
  edit.Commit();
  return true;
}

bool AddMissingBackButton(EditContext& context, const QString& menu) {
  Project& project = context.project;
  if (menu == MainMenuKey() || MenuOfNode(project.Tree, menu) != menu) return false;
  if (project.Tree.Contains(ButtonKey(menu, kBackButton))) return false;
  if (!CheckButtonLimit(MenuView(project.Tree, menu), project.Settings, context.prompter)) return false;
  QString action;
  if (IsTitleSetMenu(menu)) {
    const ProjectNode* film = project.Tree.Find(FilmNodeKey(film_node::Animated, ValToInt(menu.mid(2))));
    action = BackFromTitleSetAction(film ? film->Tag() : MainMenuKey(), project.Settings);
  } else {
    const QString button = MenuView(project.Tree, menu).Tag(menu_node::Type);
    const QString previous = MenuOfNode(project.Tree, button);
    action = BackAction(project, previous.isEmpty() ? FamilyRoot(project, menu) : previous);
  }
  Edit edit(project, u"Add Back button"_s);
  AddBackButton(project, menu, project.Settings.DefBackButtonText, action, context.measure);
  edit.Commit();
  return true;
}

bool DeleteNode(EditContext& context, const QString& key) {
  Project& project = context.project;
  const ProjectNode* node = project.Tree.Find(key);
  if (!node) return false;
  const QString menu = MenuOfNode(project.Tree, key);
  if (menu.isEmpty()) {
    const ProjectNode* head = node->Parent() ? node->Parent() : node;
    const int film = head->Parent() ? 0 : ValToInt(head->Key().mid(film_node::Film.Suffix.size()));
    const bool isHead = film > 0 && (key == FilmKey(film) || key == FilmNodeKey(film_node::Name, film));
    return isHead && DeleteFilm(context, film);
  }
  if (node->Parent() && node->Parent()->Key() == MenuNodeKey(menu, menu_node::SubMenus)) {
    return DeleteSubMenu(context, key);
  }
  const std::optional<Attribute> group = ElementGroupOf(*node, menu);
  if (!group) return false;
  if (group->Suffix == menu_node::Buttons.Suffix) {
    return DeleteButton(context, menu, ElementNumber(key, MenuNodeKey(menu, *group)));
  }
  if (group->Suffix == menu_node::Animations.Suffix && FilmAnimations(project, menu).contains(key)) {
    context.prompter.Inform(GetMessage(177));
    return false;
  }
  Edit edit(project, u"Delete element"_s);
  project.Tree.Remove(key);
  edit.Commit();
  return true;
}

bool DeleteGroup(EditContext& context, const QString& menu, ElementGroup group) {
  Project& project = context.project;
  if (MenuOfNode(project.Tree, menu) != menu) return false;
  const auto wanted = [group](ElementGroup each) { return group == each || group == ElementGroup::All; };
  Edit edit(project, u"Delete elements"_s);
  if (wanted(ElementGroup::Animations)) {
    RemoveChildren(project.Tree, MenuNodeKey(menu, menu_node::Animations), FilmAnimations(project, menu));
  }
  if (wanted(ElementGroup::Images)) RemoveChildren(project.Tree, MenuNodeKey(menu, menu_node::Images), {});
  if (wanted(ElementGroup::ChapterButtons)) RemoveButtons(project, menu, IsChapterKind);
  if (wanted(ElementGroup::FreeButtons)) {
    RemoveButtons(project, menu, [](std::optional<ButtonKind> kind) { return kind == ButtonKind::Free; });
  }
  if (wanted(ElementGroup::Labels)) RemoveChildren(project.Tree, MenuNodeKey(menu, menu_node::Labels), {});
  edit.Commit();
  return true;
}

bool MoveElement(EditContext& context, const QString& key, const QString& target) {
  Project& project = context.project;
  const ProjectNode* node = project.Tree.Find(key);
  const ProjectNode* sibling = project.Tree.Find(target);
  const QString menu = MenuOfNode(project.Tree, key);
  if (!node || !sibling || node == sibling || node->Parent() != sibling->Parent()) return false;
  const std::optional<Attribute> group = ElementGroupOf(*node, menu);
  if (!group) return false;
  const bool isButton = group->Suffix == menu_node::Buttons.Suffix;
  const QString back = ButtonKey(menu, kBackButton);
  if (isButton && key == back) return false;
  const bool behindBack = isButton && target == back;
  const Relation relation = behindBack || IsBefore(sibling, node) ? Relation::Previous : Relation::Next;

  Edit edit(project, u"Move element"_s);
  PlaceKeeper places(project, menu);
  project.Tree.Move(key, target, relation);
  places.Update();
  edit.Commit();
  return true;
}

}  // namespace torvane
