#include "core/shell_texts.h"

#include "core/engine.h"
#include "core/messages.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kLongestPath = 80;
constexpr QStringView kCut = u" ...";

QString ShortPath(const QString& path) {
  if (path.size() <= kLongestPath) return path;
  const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
  const qsizetype room = kLongestPath - kCut.size() - name.size() - 1;
  if (room < 1) return path.first(kLongestPath - kCut.size()) + kCut;
  return path.first(room) + kCut + u'/' + name;
}

QString FixedText(const Settings& settings) {
  QStringList parts{settings.NoTitleSets ? u"Single-VTS"_s : u"Multi-VTS"_s, settings.VideoNormPal ? u"PAL"_s : u"NTSC"_s,
                    settings.DefMenuRatio ? u"16:9"_s : u"4:3"_s};
  if (settings.AdvancedMode) parts << u"Adv.Mode"_s;
  if (settings.AnimatedMainMenu) parts << u"Animated"_s;
  if (settings.NoMenus) parts << u"NO MENUS"_s;
  return parts.join(u", ");
}

int StopMessage(const Settings& settings) {
  if (settings.PostGoMain) return 166;
  return settings.GoNextTitle ? 168 : 167;
}

QString SizeText(const Settings& settings) {
  const QString size = u"%1x%2"_s.arg(settings.ImageSizeX).arg(settings.ImageSizeY);
  if (!settings.AnimatedMainMenu || !settings.AutoCrop) return size;
  return u"%1 (Crop=%2)"_s.arg(size, settings.AutoCropVal);
}

}  // namespace

QString AppTitle(const Settings& settings) {
  return settings.Engine == kEngineMuxMan ? u"Torvane for MuxMan"_s : u"Torvane"_s;
}

QString WindowTitle(const Project& project) {
  return AppTitle(project.Settings) + u"    Project: " + ShortPath(HostFiles::ToHost(project.ProjectFile));
}

QString PointerTitle(const QString& title, QPoint place) {
  return u"%1 X=%2  Y=%3"_s.arg(title).arg(place.x()).arg(place.y());
}

QList<StatusPane> StatusPanes(const Settings& settings) {
  return {{u"fixed", FixedText(settings)},
          {u"startaction", GetMessage(settings.NoShowTitleSetMenu ? 165 : 164)},
          {u"stopaction", GetMessage(StopMessage(settings))},
          {u"buttontype", GetMessage(settings.TextButtons == 1 ? 171 : 170)},
          {u"autoburn", GetMessage(169), settings.NeroBurn},
          {u"intro", GetMessage(336), settings.UseIntro},
          {u"graphsize", SizeText(settings)},
          {u"selection"}};
}

ShellTools AvailableTools(const Project& project) {
  const Settings& settings = project.Settings;
  const bool isMuxMan = settings.Engine == kEngineMuxMan;
  return {.animation = settings.AnimatedMainMenu && project.CurrentMenuKey == MainMenuKey(),
          .advanced = settings.AdvancedMode || IsMainMenuFamily(project.CurrentMenuKey),
          .syntaxCheck = !isMuxMan,
          .goToMenu = !settings.NoMenus,
          .insertPlayAll = !settings.NoMenus,
          .insertPlayList = isMuxMan && project.FilmCount > 0,
          .insertChapter = project.FilmCount > 0,
          .autoShrink = project.FilmCount > 0,
          .scriptPreview = settings.AnimatedMainMenu};
}

}  // namespace torvane
