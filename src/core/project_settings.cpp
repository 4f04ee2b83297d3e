#include "core/project_settings.h"

#include <algorithm>

#include "core/default_project.h"
#include "core/edit.h"
#include "core/engine.h"
#include "core/messages.h"
#include "core/project_difference.h"
#include "core/settings_table.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kLowestBackButtonNtsc = 450;

bool MainMenuHasElements(const ProjectTree& tree) {
  for (const Attribute group : {menu_node::Buttons, menu_node::Images, menu_node::Labels, menu_node::Animations}) {
    const ProjectNode* node = tree.Find(MenuNodeKey(MainMenuKey(), group));
    if (node && node->ChildCount() > 0) return true;
  }
  return false;
}

/// A change that the elements of the main menu forbid.
Status CheckAgainstMenus(const Settings& before, const Settings& after) {
  if (before.VideoNormPal != after.VideoNormPal) {
    return Failure{u"VideoNormPal stays as it is, since the main menu holds elements placed for the present norm."_s};
  }
  if (before.AnimatedMainMenu && !after.AnimatedMainMenu) {
    return Failure{u"AnimatedMainMenu stays 1, since the main menu holds elements already."_s};
  }
  if (before.AdvancedMode && !after.AdvancedMode) {
    return Failure{u"AdvancedMode stays 1, since the main menu holds elements already."_s};
  }
  return {};
}

enum class IntroFilm { Kept, Changed };

/// Settings that do not go together.
Status CheckTogether(const Settings& settings, IntroFilm introFilm) {
  const bool isMuxMan = settings.Engine == kEngineMuxMan;
  const auto refuse = [](int message) { return Failure{GetMessage(message, {{u"|1", u" "_s}})}; };
  if (introFilm == IntroFilm::Changed && settings.UseIntro && !HostFiles::FileExists(settings.IntroMovie)) {
    return Failure{u"UseIntro needs an intro: there is no film \"%1\"."_s.arg(settings.IntroMovie)};
  }
  if (settings.UseIntro && isMuxMan && settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) return refuse(267);
  if (settings.UseIntro && !isMuxMan && settings.IntroAudio.endsWith(u".wav", Qt::CaseInsensitive)) return refuse(268);
  if (!isMuxMan && settings.DefMenuRatio && settings.Def169Mode != 0) return refuse(269);
  if (isMuxMan && settings.DefAudioTSType == 0) return refuse(271);
  return {};
}

bool Changes(const QList<SettingOverride>& changes, const QString& key) {
  return std::ranges::any_of(changes, [&key](const SettingOverride& change) { return change.key == key; });
}

/// What follows from the changes.
void Complete(const QList<SettingOverride>& changes, Settings& settings) {
  // Modes that a project without menus cannot have bring its menus back, unless it is to have none.
  const bool needsMenus = (Changes(changes, u"AnimatedMainMenu"_s) && settings.AnimatedMainMenu) ||
                          (Changes(changes, u"AdvancedMode"_s) && settings.AdvancedMode);
  if (needsMenus && !Changes(changes, u"NoMenus"_s)) settings.NoMenus = false;
  FollowVideoNorm(settings);
  ApplyNoMenus(settings);
  if (!settings.VideoNormPal) settings.BackButtonYpos = std::min(settings.BackButtonYpos, kLowestBackButtonNtsc);
}

void TakeCaptions(const ProjectNode& from, ProjectTree& tree) {
  if (tree.Contains(from.Key())) tree.SetCaption(from.Key(), from.Caption());
  for (const ProjectNode* node = from.FirstChild(); node; node = node->Next()) TakeCaptions(*node, tree);
}

/// A main menu without elements becomes as the settings would make it new: its highlights, and the nodes of a menu that
/// moves. What the user has chosen for it stays.
void FollowDefaults(Project& project) {
  using namespace menu_node;
  Project fresh(project.Settings);
  AddDefaultProject(fresh);
  ProjectTree& tree = project.Tree;
  const auto key = [](Attribute attribute) { return MenuNodeKey(MainMenuKey(), attribute); };
  for (const Attribute group : {HighLight, Activated}) TakeCaptions(*fresh.Tree.Find(key(group)), tree);

  const bool wasAnimated = tree.Contains(key(Animations));
  const bool isAnimated = project.Settings.AnimatedMainMenu;
  if (isAnimated && !wasAnimated) tree.Add({key(Animations), Animations.Label.toString()}, key(Labels), Relation::Next);
  if (!isAnimated && wasAnimated) tree.Remove(key(Animations));
  const ProjectNode* loop = fresh.Tree.Find(key(BackgroundLoop));
  if (isAnimated == wasAnimated || tree.Contains(key(BackgroundAudio)) || tree.Contains(key(BackgroundAnimation)))
    return;
  if (!loop) tree.Remove(key(BackgroundLoop));
  if (loop && !tree.Contains(loop->Key())) tree.Add({loop->Key(), loop->Caption()}, key(Background), Relation::Child);
}

}  // namespace

GivenSettings GivenForProjects(const QList<SettingOverride>& overrides) {
  GivenSettings given;
  for (const SettingOverride& override : overrides) {
    const SettingRow* row = FindSetting(override.key);
    if (!row || !BelongsToProject(*row)) continue;
    given.texts.insert(override.key, SettingTextOf(*row, override.value));
  }
  return given;
}

void TakeGivenSettings(Project& project) {
  if (project.Given.texts.isEmpty()) return;
  ReadSettings(project.Given.texts, project.Settings);
  FollowVideoNorm(project.Settings);
  ApplyNoMenus(project.Settings);
}

Settings CarriedSettings(const Project& project) {
  Settings carried = project.Settings;
  if (!project.LoadedSettings) return carried;
  const Project::Loaded& loaded = *project.LoadedSettings;
  for (const SettingRow& row : SettingsTable()) {
    if (row.project.element == 0) continue;
    // What an edit has changed since is the project's own as well.
    std::visit(
        [&](auto member) {
          if (project.Settings.*member == loaded.inForce.*member) carried.*member = loaded.own.*member;
        },
        row.member);
  }
  return carried;
}

Status CheckProjectSetting(const QString& key) {
  if (const Status known = CheckSettingKey(key); !known) return known;
  if (BelongsToProject(*FindSetting(key))) return {};
  return Failure{u"%1 is a setting of yours, which no project carries; \"settings set\" changes it."_s.arg(key)};
}

Status SetProjectSettings(Project& project, const QList<SettingOverride>& changes) {
  Settings settings = CarriedSettings(project);
  for (const SettingOverride& change : changes) {
    if (const Status carried = CheckProjectSetting(change.key); !carried) return carried;
    const SettingRow& row = *FindSetting(change.key);
    SetSettingText(settings, row, SettingTextOf(row, change.value));
  }
  Complete(changes, settings);
  const bool hasElements = MainMenuHasElements(project.Tree);
  if (hasElements) {
    if (const Status fits = CheckAgainstMenus(CarriedSettings(project), settings); !fits) return fits;
  }
  const bool changesIntro = Changes(changes, u"UseIntro"_s) || Changes(changes, u"IntroMovie"_s);
  const Status together = CheckTogether(settings, changesIntro ? IntroFilm::Changed : IntroFilm::Kept);
  if (!together) return together;

  Edit edit(project, u"Change settings"_s);
  project.Settings = settings;
  project.LoadedSettings.reset();  // all of these are the project's own
  if (!hasElements) FollowDefaults(project);
  WriteIntro(project);
  CalculateTotalSize(project);
  edit.Commit();
  return {};
}

}  // namespace torvane
