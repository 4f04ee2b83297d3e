#include "designer/edit_films.h"

#include <functional>

#include "core/action_strings.h"
#include "core/default_project.h"
#include "core/edit.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/messages.h"
#include "core/text.h"
#include "designer/button_places.h"
#include "designer/element_limits.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool CheckMainMenu(EditContext& context, const QString& menu, const QString& what) {
  if (IsMainMenuFamily(menu) && context.project.Tree.Contains(menu)) return true;
  context.prompter.Inform(GetMessage(181, {{u"|1", what}, {u"|2", u"\r\n"_s}}));
  return false;
}

bool CheckFilmLimit(EditContext& context) {
  if (context.project.FilmCount < kMaxFilms) return true;
  context.prompter.Inform(GetMessage(174));
  return false;
}

bool CheckButton(EditContext& context, const ElementPlace& place) {
  const MenuView menu(context.project.Tree, place.menu);
  if (!CheckButtonLimit(menu, context.project.Settings, context.prompter)) return false;
  return StyleOf(context.project, place) != ButtonStyle::Combined || CheckLabelLimit(menu, context.prompter);
}

QString ButtonTextOf(QString name) {
  return name.replace(u'_', u' ');
}

/// Button, film nodes and titleset menu. The action can only be told when the button stands in its place. False when it
/// finds none; nothing has happened then.
bool AddFilmWithMenus(EditContext& context, const QString& name, const ElementPlace& place,
                      const std::function<void(int button)>& addSubtree,
                      const std::function<QString(int button)>& action) {
  Project& project = context.project;
  const int film = project.FilmCount + 1;
  NewButton newButton{.kind = ButtonKind::Film, .text = ButtonTextOf(name), .tag = QString::number(film)};
  if (!PlaceFilmButton(context, place, newButton)) return false;
  const int button = AddButtonNodes(project, place.menu, newButton, context.measure);
  addSubtree(button);
  project.Tree.SetCaption(ElementNodeKey(ButtonKey(place.menu, button), element_node::Action),
                          element_node::Action.Label + action(button));
  if (!project.Settings.NoTitleSets) {
    const QString menu = TitleSetMenuKey(film);
    AddMenuSubtree(project, {.kind = MenuKind::TitleSetRoot, .number = film, .key = menu});
    AddBackButton(project, menu, project.Settings.DefBackButtonText,
                  BackFromTitleSetAction(place.menu, project.Settings), context.measure);
  }
  project.ProjectHasVideos = true;
  CalculateTotalSize(project);
  return true;
}

void TakeVideoFormat(Project& project, const FilmRecord& film) {
  project.ProjectFps = film.FPS;
  project.ProjectResH = film.ResH;
  project.ProjectResV = film.ResV;
  project.ProjectAspect = film.Aspect;
}

QString OwnerOf(const Project& project, int film) {
  const ProjectNode* animated = project.Tree.Find(FilmNodeKey(film_node::Animated, film));
  return animated && IsMainMenuFamily(animated->Tag()) ? animated->Tag() : MainMenuKey();
}

int ButtonNumberOf(const Project& project, int film) {
  const ProjectNode* head = project.Tree.Find(FilmNodeKey(film_node::Name, film));
  return head ? ValToInt(head->Tag()) : 0;
}

QPoint PositionOfButton(const Project& project, int film) {
  const QString key = ButtonPropertiesKey(OwnerOf(project, film), ButtonNumberOf(project, film));
  const TextGeometry geometry = DrawingView(project.Tree, key).Geometry();
  return {geometry.Left, geometry.Top};
}

/// The animation of a film's button: the one that plays the film's video, best at the button's place. Empty without
/// one.
QString AnimationOf(const Project& project, int film) {
  const FilmView view(project.Tree, film);
  if (Val(view.Text(film_node::Animated).value_or(QString())) == 0 || view.Video().isEmpty()) return {};
  const QString caption = u"Ani=" + view.Video();
  const QPoint place = PositionOfButton(project, film);
  QString found;
  for (const PictureView& animation : MenuView(project.Tree, OwnerOf(project, film)).Animations()) {
    if (project.Tree.Find(animation.Key())->Caption() != caption) continue;
    const QPoint position(animation.Integer(drawing_node::Left, 0), animation.Integer(drawing_node::Top, 0));
    if (found.isEmpty() || position == place) found = animation.Key();
  }
  return found;
}

void AddFilmAnimation(Project& project, int film) {
  AddAnimationNodes(project, OwnerOf(project, film),
                    {.video = FilmView(project.Tree, film).Video(), .position = PositionOfButton(project, film)});
}

void RemovePlayListButtons(Project& project, int film) {
  const ProjectNode* group = project.Tree.Find(PlayListsKey(film));
  if (!group) return;
  QStringList tags;
  for (const ProjectNode* node = group->FirstChild(); node; node = node->Next()) tags << node->Tag();
  for (const ProjectNode* root = project.Tree.FirstRoot(); root; root = root->Next()) {
    if (!IsMainMenuFamily(root->Key())) continue;
    PlaceKeeper places(project, root->Key());
    for (const ButtonView& button : MenuView(project.Tree, root->Key()).Buttons()) {
      if (tags.contains(button.Tag(element_node::Text))) RemoveButtonNodes(project, root->Key(), button.Number());
    }
    places.Update();
  }
}

void RemoveTitleSetMenus(Project& project, int titleSet) {
  const QString root = TitleSetMenuKey(titleSet);
  for (const QString& menu : MenuView(project.Tree, root).SubMenuKeys()) {
    const int slot = ValToInt(menu.mid(2));
    if (IsSubMenu(menu) && slot < kSubMenuSlots) project.SubMenuTable[slot] = {};
    project.Tree.Remove(menu);
  }
  project.Tree.Remove(root);
}

}  // namespace

bool CheckFilmPlace(EditContext& context, const ElementPlace& place) {
  Project& project = context.project;
  if (!CheckMainMenu(context, place.menu, u"Videos"_s) || !CheckFilmLimit(context) || !CheckButton(context, place)) {
    return false;
  }
  const bool mayAnimate = StyleOf(project, place) != ButtonStyle::Text && project.Settings.AnimatedMainMenu;
  return !mayAnimate || CheckAnimLimit(MenuView(project.Tree, place.menu), context.prompter);
}

bool AddFilm(EditContext& context, const FilmRecord& film, const ElementPlace& place) {
  Project& project = context.project;
  const Settings& settings = project.Settings;
  if (!CheckFilmPlace(context, place)) return false;
  if (film.Animated != 0 && !CheckAnimLimit(MenuView(project.Tree, place.menu), context.prompter)) return false;

  Edit edit(project, u"Add film"_s);
  const bool setsFormat = settings.NoTitleSets && project.FilmCount == 0;
  const bool added = AddFilmWithMenus(
      context, film.Name, place, [&](int button) { AddFilmSubtree(project, film, place.menu, button); },
      [&](int button) {
        const int onDisc = PlaceOnDisc(MenuView(project.Tree, place.menu), button);
        return FilmButtonAction(project.FilmCount, onDisc, settings);
      });
  if (!added) return false;
  if (setsFormat) TakeVideoFormat(project, film);
  if (film.Animated != 0) AddFilmAnimation(project, project.FilmCount);
  edit.Commit();
  return true;
}

bool CheckAudioTitleSetPlace(EditContext& context, const ElementPlace& place) {
  if (!CheckMainMenu(context, place.menu, u"Audio Titlesets"_s)) return false;
  if (context.project.Settings.NoTitleSets) {
    context.prompter.Inform(GetMessage(192));
    return false;
  }
  return CheckFilmLimit(context) && CheckButton(context, place);
}

bool AddAudioTitleSet(EditContext& context, const AudioTitleStore& store, const ElementPlace& place) {
  Project& project = context.project;
  if (!CheckAudioTitleSetPlace(context, place)) return false;
  if (store.Titles.empty() || store.Titles.size() > kMaxAudioTitles) {
    context.prompter.Inform(GetMessage(store.Titles.empty() ? 676 : 674));
    return false;
  }
  Edit edit(project, u"Add audio titleset"_s);
  const bool added = AddFilmWithMenus(
      context, store.Name, place, [&](int button) { AddAudioTitleSetSubtree(project, store, place.menu, button); },
      [&](int) { return ActionText(GeneratedAction::AudioTitleSet, {.title = project.FilmCount}, project.Settings); });
  if (!added) return false;
  edit.Commit();
  return true;
}

bool AddPlayList(EditContext& context, PlayList playList, const ElementPlace& place) {
  Project& project = context.project;
  if (project.Settings.Engine != kEngineMuxMan || !project.Tree.Contains(FilmKey(playList.Film))) return false;
  if (!CheckMainMenu(context, place.menu, u"Playlists"_s) || !CheckFilmLimit(context) || !CheckButton(context, place)) {
    return false;
  }
  if (playList.List.isEmpty()) {
    context.prompter.Inform(GetMessage(676));
    return false;
  }
  playList.Number = NextPlayListNumber(project.Tree, playList.Film);
  NewButton newButton{.kind = ButtonKind::PlayList,
                      .text = u"Playlist %1"_s.arg(playList.Number),
                      .action = PlayListButtonAction(playList.Film, playList.Number, project.Settings)};
  if (!PlaceButton(context, place, newButton)) return false;
  Edit edit(project, u"Add playlist"_s);
  AddPlayListNode(project.Tree, playList);
  const int button = AddButtonNodes(project, place.menu, newButton, context.measure);
  project.Tree.SetTag(ElementNodeKey(ButtonKey(place.menu, button), element_node::Text),
                      PlayListTag(playList.Film, playList.Number));
  edit.Commit();
  return true;
}

bool EditFilm(EditContext& context, int film, const FilmRecord& record) {
  Project& project = context.project;
  if (!project.Tree.Contains(FilmKey(film))) return false;
  const QString animation = AnimationOf(project, film);
  const bool needsNew = record.Animated != 0 && animation.isEmpty();
  if (needsNew && !CheckAnimLimit(MenuView(project.Tree, OwnerOf(project, film)), context.prompter)) return false;
  Edit edit(project, u"Edit film"_s);
  WriteFilmNodes(project.Tree, film, record);
  if (needsNew) {
    AddFilmAnimation(project, film);
  } else if (record.Animated != 0) {
    project.Tree.SetCaption(animation, u"Ani=" + record.VideoFile);
  } else {
    project.Tree.Remove(animation);
  }
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

bool EditAudioTitleSet(EditContext& context, int film, const AudioTitleStore& store) {
  Project& project = context.project;
  if (!FilmView(project.Tree, film).IsAudioTitleSet()) return false;
  if (store.Titles.empty() || store.Titles.size() > kMaxAudioTitles) {
    context.prompter.Inform(GetMessage(store.Titles.empty() ? 676 : 674));
    return false;
  }
  Edit edit(project, u"Edit audio titleset"_s);
  WriteAudioTitleSet(project.Tree, film, store);
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

bool EditPlayList(EditContext& context, const PlayList& playList) {
  if (!context.project.Tree.Contains(PlayListKey(playList.Film, playList.Number))) return false;
  if (playList.List.isEmpty()) {
    context.prompter.Inform(GetMessage(676));
    return false;
  }
  Edit edit(context.project, u"Edit playlist"_s);
  AddPlayListNode(context.project.Tree, playList);
  edit.Commit();
  return true;
}

bool DeleteFilm(EditContext& context, int film) {
  Project& project = context.project;
  if (film != project.FilmCount || film < 1) {
    context.prompter.Inform(GetMessage(149));
    return false;
  }
  const QString question = GetMessage(146, {{u"|1", u"\r\n"_s}}) + u"\r\n" + FilmView(project.Tree, film).Name();
  if (context.prompter.Show(
          {.kind = BoxKind::Question, .buttons = BoxButtons::OkCancel, .text = question, .title = GetMessage(147)}) !=
      Answer::Ok) {
    return false;
  }
  Edit edit(project, u"Delete film"_s);
  if (const QString animation = AnimationOf(project, film); !animation.isEmpty()) project.Tree.Remove(animation);
  RemovePlayListButtons(project, film);
  const QString menu = OwnerOf(project, film);
  PlaceKeeper places(project, menu);
  RemoveButtonNodes(project, menu, ButtonNumberOf(project, film));
  places.Update();
  RemoveTitleSetMenus(project, film);
  project.Tree.Remove(FilmKey(film));
  if (project.TitleSetCount == project.FilmCount) --project.TitleSetCount;
  --project.FilmCount;
  if (project.FilmCount == 0) project.ProjectHasVideos = false;
  if (!project.Tree.Contains(project.CurrentMenuKey)) ShowMenu(project, MainMenuKey());
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

int FilmOfButton(const Project& project, const QString& menu, int button) {
  for (int film = 1; film <= project.FilmCount; ++film) {
    if (ButtonNumberOf(project, film) == button && OwnerOf(project, film) == menu) return film;
  }
  return 0;
}

QStringList FilmAnimations(const Project& project, const QString& menu) {
  QStringList keys;
  for (int film = 1; film <= project.FilmCount; ++film) {
    if (OwnerOf(project, film) != menu) continue;
    if (const QString key = AnimationOf(project, film); !key.isEmpty()) keys << key;
  }
  return keys;
}

}  // namespace torvane
