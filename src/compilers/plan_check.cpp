#include "compilers/plan_check.h"

#include <QSet>
#include <algorithm>

#include "compilers/audio_titleset.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/text.h"
#include "media/audio_analysis.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMostDiscTitles = 99;
constexpr int kMostPassedTitlesets = 63;  ///< whose jumps fit into the commands of one PGC
constexpr int kMostButtons = 36;          ///< the forms of a 16:9 menu share them
constexpr int kDirections = 4;            ///< of a button that acts at once; each takes the place of a button

template <class Table>
void AddUsed(const Table& table, QStringList& keys) {
  for (const MenuSlot& slot : table) {
    if (slot.Used) keys << slot.MenuKey;
  }
}

void AddError(QList<Finding>& findings, const QString& key, const QString& text) {
  findings << Finding{Severity::Error, key, text};
}

void FindTitlesetLimits(const Project& project, QList<Finding>& findings) {
  const Settings& settings = project.Settings;
  int titles = settings.UseIntro ? 1 : 0;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const bool titleATrack = FilmView(project.Tree, i).IsAudioTitleSet() && !HasOneTitle(project.Tree, i);
    titles += titleATrack ? AudioTrackCount(project.Tree, i) : 1;
  }
  if (titles > kMostDiscTitles) {
    AddError(findings, {},
             u"The disc would have %1 titles; it can hold %2. Please give audio titlesets one title with chapters, or "
             u"take films out."_s.arg(titles)
                 .arg(kMostDiscTitles));
  }
  if (settings.NoTitleSets) return;
  if (settings.NoMenus && settings.Engine == kEngineDvdauthor && project.FilmCount > kMostPassedTitlesets) {
    AddError(findings, {},
             u"A disc without menus can hold %1 titlesets with dvdauthor; this one would have %2. Please switch "
             u"titlesets off or take films out."_s.arg(kMostPassedTitlesets)
                 .arg(project.FilmCount));
  }
}

void FindMissingMenus(const Project& project, QList<Finding>& findings) {
  const QStringList menus = DiscMenuKeys(project);
  for (const QString& key : menus) {
    if (IsTitleSetMenu(key) && !project.Tree.Contains(key)) {
      AddError(
          findings, FilmKey(ValToInt(key.sliced(2))),
          u"Film %1 has no titleset menu, as the project was made without titlesets. Please switch titlesets off."_s
              .arg(key.sliced(2)));
    } else if (!project.Tree.Contains(key)) {
      AddError(findings, {}, u"The menu %1 is listed as a submenu but is not there."_s.arg(key));
    }
    for (const QString& subMenu : MenuView(project.Tree, key).SubMenuKeys()) {
      if (!menus.contains(subMenu)) {
        AddError(findings, MenuNodeKey(key, menu_node::SubMenus),
                 u"Menu %1 leads to %2, which is no submenu."_s.arg(key, subMenu));
      }
    }
  }
}

void FindTooManyButtons(const Project& project, QList<Finding>& findings) {
  if (project.Settings.Engine != kEngineDvdauthor) return;
  for (const QString& key : DiscMenuKeys(project)) {
    const MenuView menu(project.Tree, key);
    const std::vector<ButtonView> buttons = menu.Buttons();
    const auto written = std::ranges::count_if(buttons, &ButtonView::IsWritten);
    const bool actsAtOnce = menu.AutoActionButton().has_value();
    const int limit = kMostButtons / (menu.IsWide(project.Settings) ? 2 : 1) - (actsAtOnce ? kDirections : 0);
    if (written <= limit) continue;
    AddError(findings, MenuNodeKey(key, menu_node::Buttons),
             u"Menu %1 (%2) has %3 buttons%4; dvdauthor allows %5. Please take some out."_s.arg(menu.Name(), key)
                 .arg(written)
                 .arg(actsAtOnce ? u", one of which acts at once"_s : QString())
                 .arg(limit));
  }
}

QString AudioHead(int film, const AudioTitleStore& store) {
  return u"Film %1 (%2)"_s.arg(film).arg(store.Name);
}

void FindAudioStructure(const Project& project, int film, QList<Finding>& findings) {
  const AudioTitleStore store = ReadAudioTitleSet(project.Tree, film);
  const QString head = AudioHead(film, store);
  if (project.Settings.NoTitleSets) {
    AddError(findings, FilmKey(film),
             head + u" is an audio titleset, which needs a titleset of its own. Please switch titlesets on.");
  }
  if (store.Titles.empty() || int(store.Titles.size()) != AudioTrackCount(project.Tree, film)) {
    AddError(findings, FilmNodeKey(film_node::AudioTitles, film),
             head + u": the number of its tracks (%1) is not that of the titles it holds (%2)."_s
                        .arg(AudioTrackCount(project.Tree, film))
                        .arg(store.Titles.size()));
  }
}

/// That the files are there and hold sound is the business of the sources.
void FindSoundFaults(const Project& project, int film, QList<Finding>& findings) {
  const AudioTitleStore store = ReadAudioTitleSet(project.Tree, film);
  const QString head = AudioHead(film, store);
  QSet<QString> kinds;
  for (std::size_t i = 0; i < store.Titles.size(); ++i) {
    const QString& file = store.Titles[i].File;
    AudioInfo info;
    if (project.Settings.Engine == kEngineMuxMan && AnalyseAudioFile(file, info) && info.AudioSeconds == 0) {
      AddError(findings, AudioTitleKey(film, int(i) + 1),
               head + u", track %1: "_s.arg(i + 1) +
                   u"the playing time of %1 is not known, so MuxMan cannot place it."_s.arg(file));
    }
    const QString extension = GetExtensionUpper(file);
    kinds.insert(extension == u"AC3" || extension == u"WAV" || extension == u"DTS" ? extension : u"MPEG"_s);
  }
  if (kinds.size() > 1) {
    AddError(findings, FilmKey(film), head + u": all sound files of an audio titleset must be of one kind.");
  }
}

void FindMenuTypes(const Project& project, QList<Finding>& findings) {
  for (const QString& key : DiscMenuKeys(project)) {
    const std::optional<QString> type = MenuView(project.Tree, key).Text(menu_node::Type);
    if (!IsMainSubMenu(key) || !type || *type == kPlainSubMenu) continue;
    findings << Finding{
        Severity::Warning, MenuNodeKey(key, menu_node::Type),
        u"Menu %1 (%2) is of the type \"%3\", which submenus of titlesets alone can have. It is made as an "
        u"ordinary submenu."_s.arg(MenuView(project.Tree, key).Name(), key, *type)};
  }
}

}  // namespace

QStringList MainMenuKeys(const Project& project) {
  QStringList keys{MainMenuKey()};
  AddUsed(project.MainSubMenuTable, keys);
  return keys;
}

QStringList TitlesetMenuKeys(const Project& project) {
  QStringList keys;
  for (int i = 1; i <= project.FilmCount; ++i) keys << TitleSetMenuKey(i);
  AddUsed(project.SubMenuTable, keys);
  return keys;
}

QStringList DiscMenuKeys(const Project& project) {
  if (project.Settings.NoMenus) return {};
  return project.Settings.NoTitleSets ? MainMenuKeys(project) : MainMenuKeys(project) + TitlesetMenuKeys(project);
}

QList<Finding> StructureFindings(const Project& project) {
  QList<Finding> findings;
  FindMissingMenus(project, findings);
  for (int i = 1; i <= project.FilmCount; ++i) {
    if (FilmView(project.Tree, i).IsAudioTitleSet()) FindAudioStructure(project, i, findings);
  }
  return findings;
}

QList<Finding> LimitFindings(const Project& project, PlanUse use) {
  QList<Finding> findings;
  FindTitlesetLimits(project, findings);
  FindTooManyButtons(project, findings);
  FindMenuTypes(project, findings);
  for (int i = 1; i <= project.FilmCount && use != PlanUse::SyntaxCheck; ++i) {
    if (FilmView(project.Tree, i).IsAudioTitleSet()) FindSoundFaults(project, i, findings);
  }
  return findings;
}

}  // namespace torvane
