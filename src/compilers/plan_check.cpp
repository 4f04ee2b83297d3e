#include "compilers/plan_check.h"

#include <QSet>
#include <algorithm>

#include "compilers/audio_titleset.h"
#include "core/action_strings.h"
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

void FindTitlesetLimits(const Project& project, QStringList& findings) {
  const Settings& settings = project.Settings;
  int titles = settings.UseIntro ? 1 : 0;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const bool titleATrack = FilmView(project.Tree, i).IsAudioTitleSet() && !HasOneTitle(project.Tree, i);
    titles += titleATrack ? AudioTrackCount(project.Tree, i) : 1;
  }
  if (titles > kMostDiscTitles) {
    findings
        << u"The disc would have %1 titles; it can hold %2. Please give audio titlesets one title with chapters, or "
           u"take films out."_s.arg(titles)
               .arg(kMostDiscTitles);
  }
  if (settings.NoTitleSets) return;
  if (settings.NoMenus && settings.Engine == kEngineDvdauthor && project.FilmCount > kMostPassedTitlesets) {
    findings << u"A disc without menus can hold %1 titlesets with dvdauthor; this one would have %2. Please switch "
                u"titlesets off or take films out."_s.arg(kMostPassedTitlesets)
                    .arg(project.FilmCount);
  }
}

void FindMissingMenus(const Project& project, QStringList& findings) {
  const QStringList menus = DiscMenuKeys(project);
  for (const QString& key : menus) {
    if (IsTitleSetMenu(key) && !project.Tree.Contains(key)) {
      findings
          << u"Film %1 has no titleset menu, as the project was made without titlesets. Please switch titlesets off."_s
                 .arg(key.sliced(2));
    } else if (!project.Tree.Contains(key)) {
      findings << u"The menu %1 is listed as a submenu but is not there."_s.arg(key);
    }
    for (const QString& subMenu : MenuView(project.Tree, key).SubMenuKeys()) {
      if (!menus.contains(subMenu)) findings << u"Menu %1 leads to %2, which is no submenu."_s.arg(key, subMenu);
    }
  }
}

void FindTooManyButtons(const Project& project, QStringList& findings) {
  if (project.Settings.Engine != kEngineDvdauthor) return;
  for (const QString& key : DiscMenuKeys(project)) {
    const MenuView menu(project.Tree, key);
    const std::vector<ButtonView> buttons = menu.Buttons();
    const auto written = std::ranges::count_if(buttons, &ButtonView::IsWritten);
    const bool actsAtOnce = menu.AutoActionButton().has_value();
    const int limit = kMostButtons / (menu.IsWide(project.Settings) ? 2 : 1) - (actsAtOnce ? kDirections : 0);
    if (written <= limit) continue;
    findings << u"Menu %1 (%2) has %3 buttons%4; dvdauthor allows %5. Please take some out."_s.arg(menu.Name(), key)
                    .arg(written)
                    .arg(actsAtOnce ? u", one of which acts at once"_s : QString())
                    .arg(limit);
  }
}

QString AudioHead(int film, const AudioTitleStore& store) {
  return u"Film %1 (%2)"_s.arg(film).arg(store.Name);
}

void FindAudioStructure(const Project& project, int film, QStringList& findings) {
  const AudioTitleStore store = ReadAudioTitleSet(project.Tree, film);
  const QString head = AudioHead(film, store);
  if (project.Settings.NoTitleSets) {
    findings << head + u" is an audio titleset, which needs a titleset of its own. Please switch titlesets on.";
  }
  if (store.Titles.empty() || int(store.Titles.size()) != AudioTrackCount(project.Tree, film)) {
    findings << head + u": the number of its tracks (%1) is not that of the titles it holds (%2)."_s
                           .arg(AudioTrackCount(project.Tree, film))
                           .arg(store.Titles.size());
  }
}

void FindSoundFaults(const Project& project, int film, QStringList& findings) {
  const AudioTitleStore store = ReadAudioTitleSet(project.Tree, film);
  const QString head = AudioHead(film, store);
  QSet<QString> kinds;
  for (std::size_t i = 0; i < store.Titles.size(); ++i) {
    const QString& file = store.Titles[i].File;
    const QString track = head + u", track %1: "_s.arg(i + 1);
    AudioInfo info;
    if (!AnalyseAudioFile(file, info)) {
      findings << track + u"the sound file %1 is missing or cannot be read. Please choose another one."_s.arg(file);
    } else if (project.Settings.Engine == kEngineMuxMan && info.AudioSeconds == 0) {
      findings << track + u"the playing time of %1 is not known, so MuxMan cannot place it."_s.arg(file);
    }
    const QString extension = GetExtensionUpper(file);
    kinds.insert(extension == u"AC3" || extension == u"WAV" || extension == u"DTS" ? extension : u"MPEG"_s);
  }
  if (kinds.size() > 1) findings << head + u": all sound files of an audio titleset must be of one kind.";
}

/// What leaves no files to be written.
QStringList StructureFindings(const Project& project) {
  QStringList findings;
  FindMissingMenus(project, findings);
  for (int i = 1; i <= project.FilmCount; ++i) {
    if (FilmView(project.Tree, i).IsAudioTitleSet()) FindAudioStructure(project, i, findings);
  }
  return findings;
}

/// What the authoring tools would stop at.
QStringList LimitFindings(const Project& project, PlanUse use) {
  QStringList findings;
  FindTitlesetLimits(project, findings);
  FindTooManyButtons(project, findings);
  for (int i = 1; i <= project.FilmCount && use != PlanUse::SyntaxCheck; ++i) {
    if (FilmView(project.Tree, i).IsAudioTitleSet()) FindSoundFaults(project, i, findings);
  }
  return findings;
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

QStringList PlanFindings(const Project& project, PlanUse use) {
  return StructureFindings(project) + LimitFindings(project, use);
}

bool CheckPlan(const Project& project, Prompter& prompter, PlanUse use) {
  const QStringList structure = StructureFindings(project);
  const QStringList limits = LimitFindings(project, use);
  if (structure.isEmpty() && use == PlanUse::WriteOnly) {
    if (!limits.isEmpty()) prompter.Warn(limits.join(u"\r\n"));
    return true;
  }
  const QStringList findings = structure + limits;
  if (findings.isEmpty()) return true;
  prompter.Fail(findings.join(u"\r\n"));
  return false;
}

}  // namespace torvane
