#include "compilers/disc_checks.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

#include "compilers/audio_titleset.h"
#include "compilers/disc_look.h"
#include "compilers/plan_check.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/messages.h"
#include "core/resource_paths.h"
#include "core/size_bar.h"
#include "core/text.h"
#include "platform/host_files.h"
#include "platform/real_place.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kMostMenuNames = 10;

bool Agrees(const QString& text, const QString& title, BoxKind kind, Prompter& prompter) {
  return prompter.Show({.kind = kind, .buttons = BoxButtons::OkCancel, .text = text, .title = title}) == Answer::Ok;
}

// ---- Looping menus ----

bool LoopsWithoutMotion(const MenuView& menu) {
  std::vector<ButtonView> buttons = menu.Buttons();
  std::erase_if(buttons, [](const ButtonView& button) { return !button.IsWritten(); });
  const bool onlyBack = buttons.size() == 1 && buttons.front().Number() == kBackButton;
  const ProjectNode* animations = menu.Tree().Find(MenuNodeKey(menu.Key(), menu_node::Animations));
  return menu.Flag(menu_node::BackgroundLoop) && !buttons.empty() && !onlyBack &&
         !menu.Has(menu_node::BackgroundAudio) && !menu.Has(menu_node::BackgroundAnimation) &&
         !(animations && animations->ChildCount() > 0) && !menu.HasTransition();
}

// ---- Free space ----

/// Megabytes that a run needs beside the disc itself.
qint64 ExtraMB(const Project& project) {
  const Settings& settings = project.Settings;
  double extra = 0;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    if (settings.Engine == kEngineMuxMan) {
      extra += Val(film.Text(film_node::ShrinkTo).value_or(QString()));
    } else if (film.NeedsMux()) {
      extra += Val(film.Text(film_node::TotalSize).value_or(QString()));
    }
  }
  const bool muxesIntro = settings.Engine != kEngineMuxMan && settings.UseIntro && !settings.IntroAudio.isEmpty() &&
                          !settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive);
  if (muxesIntro) {
    for (const QString& path : {settings.IntroAudio, settings.IntroMovie}) {
      extra += double(HostFiles::FileSizeOf(path).value_or(0)) / 1048576.0;
    }
  }
  return qint64(RoundHalfEven(extra));
}

/// Megabytes of the former disc and image on the file system that holds a path.
qint64 FormerMB(const Settings& settings, const QString& path) {
  const quint64 device = PlaceOf(path).device;
  qint64 bytes = 0;
  const QString disc = VideoTsDir(settings);
  if (!IsLink(disc) && PlaceOf(disc).device == device) bytes += TreeSize(disc);
  const QString image = IsoFile(settings);
  if (settings.CreateISO && PlaceOfName(image).device == device) bytes += HostFiles::FileSizeOf(image).value_or(0);
  return bytes / 1048576;
}

/// One test of the free space: asked of the drive of `path`, failing below `limit`; the box names `needed`.
struct SpaceTest {
  bool applies;
  QString path;
  qint64 limit;
  qint64 needed;
};

/// Offers to delete the former disc where that makes room enough.
bool GivesUpFormer(const SpaceTest& test, qint64 free, qint64 former, Prompter& prompter) {
  const QString text =
      u"The drive of %1 is too small for the new disc beside the former one: %2 MB are needed, %3 MB are free, and the "
      u"former disc and image take %4 MB. Delete them before the new ones are made? Otherwise they stay until the new "
      u"ones are whole."_s.arg(HostFiles::ToHost(test.path))
          .arg(test.needed)
          .arg(free)
          .arg(former);
  return prompter.Show(
             {.kind = BoxKind::Question, .buttons = BoxButtons::YesNo, .text = text, .preselected = Answer::No}) ==
         Answer::Yes;
}

bool PassSpaceTest(const SpaceTest& test, const Settings& settings, FormerFate& fate, Prompter& prompter) {
  if (!test.applies) return true;
  std::optional<qint64> free = HostFiles::DriveFreeMB(test.path);
  if (!free || *free >= test.limit) return true;
  const qint64 former = FormerMB(settings, test.path);
  if (former > 0 && *free + former >= test.limit) {
    if (fate == FormerFate::DeletedFirst) return true;
    if (GivesUpFormer(test, *free, former, prompter)) {
      fate = FormerFate::DeletedFirst;
      return true;
    }
  }
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

bool AgreesToReplaceDisc(const Project& project, Prompter& prompter) {
  if (HostFiles::FileNames(VideoTsDir(project.Settings)).isEmpty()) return true;
  return Agrees(GetMessage(129) + GetMessage(130), GetMessage(131), BoxKind::Question, prompter);
}

bool AgreesToReplaceImage(const Project& project, Prompter& prompter) {
  const QString iso = IsoFile(project.Settings);
  if (!project.Settings.CreateISO || !NameExists(iso)) return true;
  return Agrees(GetMessage(194, {{u"|1", iso}, {u"|2", u"\r\n"_s}}), {}, BoxKind::Question, prompter);
}

void TellOfFormerDisc(const Project& project, Prompter& prompter) {
  const QString dir = VideoTsDir(project.Settings);
  if (HostFiles::FileNames(dir).isEmpty()) return;
  prompter.Inform(
      u"The folder %1 holds a former disc, which stays there. Please move or delete it before you run the "
      u"batches."_s.arg(HostFiles::ToHost(dir)));
}

std::optional<FormerFate> CheckFreeSpace(const Project& project, Prompter& prompter) {
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
  FormerFate fate = FormerFate::SetAside;
  for (const SpaceTest& test : tests) {
    if (!PassSpaceTest(test, settings, fate, prompter)) return std::nullopt;
  }
  return fate;
}

QList<Finding> SourceSafetyFindings(const Project& project) {
  const Settings& settings = project.Settings;
  const QStringList files = ProjectFiles(project);
  const auto error = [](const QString& file, const QString& text) {
    return Finding{.text = text.arg(HostFiles::ToHost(file))};
  };
  QList<Finding> findings;
  for (const QString& file : settings.AutoDelete ? CheckSourcesOutsideTemp(files, settings.TempDir) : QStringList()) {
    findings << error(file,
                      u"The file %1 of the project lies in the temporary directory, which is emptied after authoring. "
                      u"Please move it elsewhere or choose another temporary directory."_s);
  }
  for (const QString& file : files) {
    if (!LiesWithin(file, VideoTsDir(settings)) || !HostFiles::FileExists(file)) continue;
    findings << error(file,
                      u"The file %1 of the project lies in the folder of the disc that is to be replaced. Please move "
                      u"it elsewhere or choose another output directory."_s);
  }
  return findings;
}

}  // namespace torvane
