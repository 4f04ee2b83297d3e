#include "core/default_project.h"

#include <cmath>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kDefaultRaster = 16;

QString Flag(bool value) { return value ? u"1"_s : u"0"_s; }

/// Adds children to one parent after the other, the keys and labels being those of attributes of one menu.
class MenuBuilder {
 public:
  MenuBuilder(ProjectTree& tree, QString menu) : tree_(tree), menu_(std::move(menu)) {}

  void Group(Attribute attribute, int image = kPlainNode) { Add(menu_, attribute, {}, image); }
  void Group(Attribute parent, Attribute attribute) { Add(MenuNodeKey(menu_, parent), attribute, {}, kPlainNode); }
  void Value(Attribute parent, Attribute attribute, const QString& value, int image = kPlainNode) {
    Add(MenuNodeKey(menu_, parent), attribute, value, image);
  }
  void Tag(Attribute attribute, const QString& tag) { tree_.SetTag(MenuNodeKey(menu_, attribute), tag); }

 private:
  void Add(const QString& parent, Attribute attribute, const QString& value, int image) {
    tree_.Add({MenuNodeKey(menu_, attribute), attribute.Label + value, {}, image}, parent, Relation::Child);
  }

  ProjectTree& tree_;
  QString menu_;
};

QString MenuCaption(const Project& project, const NewMenu& menu) {
  switch (menu.kind) {
    case MenuKind::Main:
      return u"MainMenu"_s;
    case MenuKind::TitleSetRoot:
      return u"TitleSet%1Menu"_s.arg(menu.number);
    case MenuKind::MainSubMenu:
      return u"MainSubMenu%1"_s.arg(menu.number);
    case MenuKind::TitleSetSubMenu:
      return u"TS%1SubMenu%2"_s.arg(project.CurrentTitleSet).arg(menu.number);
  }
  return {};
}

QString MenuTag(const Project& project, const NewMenu& menu) {
  if (menu.kind == MenuKind::MainSubMenu) return MainMenuKey();
  if (menu.kind == MenuKind::TitleSetSubMenu) return TitleSetMenuKey(project.CurrentTitleSet);
  return {};
}

void AddMenuRoot(Project& project, const NewMenu& menu) {
  const NodeData root{menu.key, MenuCaption(project, menu), MenuTag(project, menu), kPlainNode};
  // An additional menu stands in front of the next film.
  const QString nextFilm = FilmKey(project.CurrentTitleSet + 1);
  if (IsAdditionalMenu(menu.key) && project.Tree.Contains(nextFilm)) {
    project.Tree.Add(root, nextFilm, Relation::Previous);
  } else {
    project.Tree.Add(root);
  }
}

void AddProperties(MenuBuilder& build, const NewMenu& menu) {
  using namespace menu_node;
  build.Group(Properties);
  build.Tag(Properties, menu.action);
  build.Value(Properties, Type, menu.type);
  build.Tag(Type, menu.buttonKey);
  build.Value(Properties, Pause, menu.pause, kInPlaceNode);
  build.Value(Properties, PreCommand, menu.preCommand);
  build.Value(Properties, PostCommand, menu.postCommand);
}

void AddBackground(MenuBuilder& build, const Project& project, const NewMenu& menu) {
  using namespace menu_node;
  const Settings& settings = project.Settings;
  QString path = settings.AppPath + u"\\default.jpg"_s;
  const ProjectNode* mainPath = project.Tree.Find(MenuNodeKey(MainMenuKey(), BackgroundPath));
  if (IsAdditionalMenu(menu.key) && mainPath) path = mainPath->Value(BackgroundPath.Label.size());

  build.Group(Background, kHeadNode);
  build.Value(Background, BackgroundPath, path, kBackgroundNode);
  const bool loop = IsAdditionalMenu(menu.key) ? menu.loop : settings.AnimatedMainMenu && settings.DefaultLoop;
  if (loop) build.Value(Background, BackgroundLoop, u"1"_s);
  if (settings.RasterX != kDefaultRaster) {
    build.Value(Background, BackgroundRasterX, QString::number(settings.RasterX));
  }
  if (settings.RasterY != kDefaultRaster) {
    build.Value(Background, BackgroundRasterY, QString::number(settings.RasterY));
  }
  build.Value(Background, BackgroundBlur, Flag(settings.UseBlur));
  build.Value(Background, BackgroundBlurX, QString::number(settings.BlurX));
  build.Value(Background, BackgroundBlurY, QString::number(settings.BlurY));
}

void AddHighlights(MenuBuilder& build, const Settings& settings) {
  using namespace menu_node;
  build.Group(HighLight);
  build.Group(HighLight, HighLightType);
  build.Value(HighLightType, HighLightFill, Flag(settings.DefButtomType != 1), kInPlaceNode);
  build.Value(HighLightType, HighLightFrame, Flag(settings.DefButtomType != 0), kInPlaceNode);
  build.Value(HighLightType, HighLightRounded, Flag(settings.RoundedButtonFrames), kInPlaceNode);
  build.Value(HighLight, HighLightFillColor, ColorToRGBString(settings.DefHighLightFillColor), kColorNode);
  build.Value(HighLight, HighLightFillTrans, TransparencyText(settings.DefHighLightFillTrans), kInPlaceNode);
  build.Value(HighLight, HighLightFrameColor, ColorToRGBString(settings.DefHighLightFrameColor), kColorNode);
  build.Value(HighLight, HighLightFrameTrans, TransparencyText(settings.DefHighLightFrameTrans), kInPlaceNode);

  build.Group(Activated);
  build.Value(Activated, ActivatedFillColor, ColorToRGBString(settings.DefSelectedFillColor), kColorNode);
  build.Value(Activated, ActivatedFillTrans, TransparencyText(settings.DefSelectedFillTrans), kInPlaceNode);
  build.Value(Activated, ActivatedFrameColor, ColorToRGBString(settings.DefSelectedFrameColor), kColorNode);
  build.Value(Activated, ActivatedFrameTrans, TransparencyText(settings.DefSelectedFrameTrans), kInPlaceNode);
}

void AddIntro(Project& project) {
  const Settings& settings = project.Settings;
  project.Tree.Add({kIntroKey.toString(), u"Intro"_s});
  project.Tree.Add({kIntroFileKey.toString(), settings.IntroMovie}, kIntroKey.toString(), Relation::Child);
  if (!settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) {
    project.Tree.Add({kIntroAudioKey.toString(), settings.IntroAudio}, kIntroKey.toString(), Relation::Child);
  }
}

}  // namespace

void WriteIntro(Project& project) {
  const Settings& settings = project.Settings;
  ProjectTree& tree = project.Tree;
  const QString intro = kIntroKey.toString();
  if (!settings.UseIntro) {
    if (tree.Contains(intro)) tree.Remove(intro);
    return;
  }
  if (!tree.Contains(intro)) tree.Add({intro, u"Intro"_s}, kTotalSizeKey.toString(), Relation::Next);
  const auto write = [&tree, &intro](const QString& key, const QString& caption) {
    if (tree.Contains(key)) {
      tree.SetCaption(key, caption);
    } else {
      tree.Add({key, caption}, intro, Relation::Child);
    }
  };
  write(kIntroFileKey.toString(), settings.IntroMovie);
  const QString audio = kIntroAudioKey.toString();
  if (!settings.IntroAudio.isEmpty() && !settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) {
    write(audio, settings.IntroAudio);
  } else if (tree.Contains(audio)) {
    tree.Remove(audio);
  }
}

QString TransparencyText(int opacity) {
  return QString::number(static_cast<int>(std::floor((255 - opacity) / 2.55))) + u'%';
}

void AddMenuSubtree(Project& project, const NewMenu& menu) {
  AddMenuRoot(project, menu);
  MenuBuilder build(project.Tree, menu.key);
  if (IsAdditionalMenu(menu.key)) AddProperties(build, menu);
  AddBackground(build, project, menu);
  AddHighlights(build, project.Settings);
  build.Group(menu_node::Buttons);
  build.Group(menu_node::Images);
  build.Group(menu_node::Labels);
  if (project.Settings.AnimatedMainMenu) build.Group(menu_node::Animations);
}

void AddDefaultProject(Project& project) {
  const ChangeGroup group(project.Tree);
  project.Reset();
  project.Tree.Add({kTotalSizeKey.toString(), kTotalSizeLabel + u"1"_s});
  if (project.Settings.UseIntro) AddIntro(project);
  AddMenuSubtree(project, {.kind = MenuKind::Main, .key = MainMenuKey()});
  CalculateTotalSize(project);
  project.History.Reset();
}

}  // namespace torvane
