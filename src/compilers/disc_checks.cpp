#include "compilers/disc_checks.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

#include "compilers/audio_titleset.h"
#include "compilers/plan_check.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/messages.h"
#include "core/resource_paths.h"
#include "core/size_bar.h"
#include "core/text.h"
#include "platform/host_files.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kMostMenuNames = 10;
constexpr int kMostDeletions = 10000;

bool Agrees(const QString& text, const QString& title, BoxKind kind, Prompter& prompter) {
  return prompter.Show({.kind = kind, .buttons = BoxButtons::OkCancel, .text = text, .title = title}) == Answer::Ok;
}

// ---- Looping menus ----

bool LoopsWithoutMotion(const MenuView& menu) {
  const ProjectNode* buttons = menu.Tree().Find(MenuNodeKey(menu.Key(), menu_node::Buttons));
  const bool onlyBack = buttons && buttons->ChildCount() == 1 &&
                        buttons->FirstChild()->Key() == ButtonKey(menu.Key(), 0);
  const ProjectNode* animations = menu.Tree().Find(MenuNodeKey(menu.Key(), menu_node::Animations));
  return menu.Flag(menu_node::BackgroundLoop) && buttons && buttons->ChildCount() > 0 && !onlyBack &&
         !menu.Has(menu_node::BackgroundAudio) && !menu.Has(menu_node::BackgroundAnimation) &&
         !(animations && animations->ChildCount() > 0) && !menu.HasTransition();
}

// ---- Deleting the old disc ----

void RemoveTree(const QString& dir) {
  for (const QString& name : HostFiles::FileNames(dir)) HostFiles::RemoveFile(dir + u'\\' + name);
  for (const QString& name : HostFiles::DirNames(dir)) RemoveTree(dir + u'\\' + name);
  HostFiles::RemoveDir(dir);
}

/// Refuses to work on anything that is not plainly the folder of a disc.
void EmptyVideoTsFolder(const QString& dir) {
  if (dir.size() < 5 || !dir.contains(u"VIDEO_TS")) return;
  RemoveTree(dir);
}

// ---- Free space ----

/// Megabytes that a run needs beside the disc itself.
qint64 ExtraMB(const Project& project) {
  const Settings& settings = project.Settings;
  double extra = 0;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    if (settings.Engine == 1) {
      extra += Val(film.Text(film_node::ShrinkTo).value_or(QString()));
    } else if (film.NeedsMux()) {
      extra += Val(film.Text(film_node::TotalSize).value_or(QString()));
    }
  }
  const bool muxesIntro = settings.Engine != 1 && settings.UseIntro && !settings.IntroAudio.isEmpty() &&
                          !settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive);
  if (muxesIntro) {
    for (const QString& path : {settings.IntroAudio, settings.IntroMovie}) {
      extra += double(HostFiles::FileSizeOf(path).value_or(0)) / 1048576.0;
    }
  }
  return qint64(RoundHalfEven(extra));
}

/// One test of the free space: asked of the drive of `path`, failing below `limit`; the box names `needed`.
struct SpaceTest {
  bool applies;
  QString path;
  qint64 limit;
  qint64 needed;
};

bool PassSpaceTest(const SpaceTest& test, Prompter& prompter) {
  if (!test.applies) return true;
  const std::optional<qint64> free = HostFiles::DriveFreeMB(test.path);
  if (!free || *free >= test.limit) return true;
  const QString drive = test.path.left(1).toUpper() + u':';
  const QString text = GetMessage(481, {{u"|1", drive}}) + u"\r\n" +
                       GetMessage(482, {{u"|1", QString::number(test.needed)}, {u"|2", QString::number(*free)}});
  return Agrees(text, {}, BoxKind::Information, prompter);
}

}  // namespace

bool RefusesNothing(const QStringList& findings, Prompter& prompter) {
  if (!findings.isEmpty()) prompter.Fail(findings.join(u"\r\n"));
  return findings.isEmpty();
}

bool RefusesNothing(const QList<Finding>& findings, Prompter& prompter) {
  QStringList texts;
  for (const Finding& finding : findings) texts << finding.text;
  return RefusesNothing(texts, prompter);
}

QString VideoTsDir(const Settings& settings) { return settings.OutDir + u"\\DVD\\VIDEO_TS"; }

QString IsoFile(const Settings& settings) {
  const QString& dir = settings.ISOPath.isEmpty() ? settings.OutDir : settings.ISOPath;
  return dir + u'\\' + settings.ISO_Name + u".ISO";
}

QStringList ProjectFiles(const Project& project) {
  QStringList files = ResourcePaths(project);
  files << project.ProjectFile;
  if (project.Settings.UseIntro) files << project.Settings.IntroMovie << project.Settings.IntroAudio;
  files.removeAll(QString());
  files.removeDuplicates();
  return files;
}

bool CheckIntro(const Project& project, Prompter& prompter) {
  const Settings& settings = project.Settings;
  if (!settings.UseIntro || HostFiles::FileExists(settings.IntroMovie)) return true;
  prompter.Fail(GetMessage(195, {{u"|1", settings.IntroMovie}}));
  return false;
}

bool CheckLoopingMenus(const Project& project, Prompter& prompter) {
  QStringList names;
  const bool withTitlesets = !project.Settings.NoTitleSets;
  for (const QString& key : MainMenuKeys(project) + (withTitlesets ? TitlesetMenuKeys(project) : QStringList())) {
    const MenuView menu(project.Tree, key);
    if (LoopsWithoutMotion(menu)) names << menu.Name();
  }
  if (names.isEmpty()) return true;
  QStringList lines{GetMessage(189)};
  lines += names.first(std::min(names.size(), kMostMenuNames));
  if (names.size() > kMostMenuNames) lines << u"..."_s;
  lines << QString() << GetMessage(190, {{u"|1", u"\r\n"_s}});
  return prompter.Show({.kind = BoxKind::Question,
                        .buttons = BoxButtons::YesNo,
                        .text = lines.join(u"\r\n"),
                        .preselected = Answer::No}) == Answer::Yes;
}

bool ClearVideoTs(const Project& project, OldDisc how, Prompter& prompter) {
  const QString dir = VideoTsDir(project.Settings);
  if (HostFiles::FileNames(dir).isEmpty()) return true;
  if (!Agrees(GetMessage(129) + GetMessage(130), GetMessage(131), BoxKind::Question, prompter)) return false;
  if (how == OldDisc::RemoveTree) {
    EmptyVideoTsFolder(dir);
    HostFiles::MakeDir(dir);
    return true;
  }
  int rounds = 0;
  for (const QString& name : HostFiles::FileNames(dir)) {
    if (++rounds > kMostDeletions) break;
    HostFiles::RemoveFile(dir + u'\\' + name);
  }
  return true;
}

bool ClearOldIso(const Project& project, Prompter& prompter) {
  const QString iso = IsoFile(project.Settings);
  if (!project.Settings.CreateISO || !HostFiles::FileExists(iso)) return true;
  const QString text = GetMessage(194, {{u"|1", iso}, {u"|2", u"\r\n"_s}});
  if (!Agrees(text, {}, BoxKind::Question, prompter)) return false;
  if (HostFiles::RemoveFile(iso)) return true;
  prompter.Fail(GetMessage(157));
  return false;
}

bool CheckFreeSpace(const Project& project, Prompter& prompter) {
  const Settings& settings = project.Settings;
  const qint64 total = TotalSizeMB(project);
  const qint64 extra = ExtraMB(project);
  const bool iso = settings.CreateISO;
  const QString isoFile = IsoFile(settings);
  const QString o = settings.OutDir.left(1).toLower();
  const QString t = settings.TempDir.left(1).toLower();
  const QString i = isoFile.left(1).toLower();
  const SpaceTest tests[] = {
      {iso && o == t && o == i, settings.OutDir, extra + 2 * total + 100, extra + 2 * total + 100},
      {iso && o == i, isoFile, 2 * total + 100, 2 * total + 100},
      {iso && t == i, isoFile, extra + total + 100, extra + total + 100},
      {iso, isoFile, total + 50, total},
      {o == t, settings.OutDir, extra + total + 100, extra + total + 100},
      {true, settings.TempDir, extra + 50, extra},
      {true, settings.OutDir, total + 50, total},
  };
  return std::all_of(std::begin(tests), std::end(tests),
                     [&prompter](const SpaceTest& test) { return PassSpaceTest(test, prompter); });
}

bool CheckSourcesSafe(const Project& project, Prompter& prompter) {
  const Settings& settings = project.Settings;
  const QStringList files = ProjectFiles(project);
  QStringList findings;
  const QStringList inTemp = settings.AutoDelete ? CheckSourcesOutsideTemp(files, settings.TempDir) : QStringList();
  if (!inTemp.isEmpty()) {
    findings << u"These files of the project lie in the temporary directory "_s + settings.TempDir +
                    u", which is emptied after authoring. Please move them elsewhere or choose another temporary "
                    u"directory:";
    findings += inTemp;
  }
  const QString discDir = HostFiles::ToHost(VideoTsDir(settings)) + u'/';
  QStringList inDisc;
  for (const QString& file : files) {
    if (HostFiles::ToHost(file).startsWith(discDir) && HostFiles::FileExists(file)) inDisc << file;
  }
  if (!inDisc.isEmpty()) {
    findings << u"These files of the project lie in the folder of the disc that is to be replaced. Please move them "
                u"elsewhere or choose another output directory:"_s;
    findings += inDisc;
  }
  return RefusesNothing(findings, prompter);
}

}  // namespace torvane
