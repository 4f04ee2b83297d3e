#include "core/project.h"

#include <algorithm>

#include "core/menu_view.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kAnimatedMenuKB = 2000;
constexpr qint64 kStillMenuKB = 200;

double MegabytesOf(const QString& path) { return double(HostFiles::FileSizeOf(path).value_or(0)) / 1048576.0; }

template <class Table>
qint64 UsedSlots(const Table& table) {
  return std::count_if(table.begin(), table.end(), [](const MenuSlot& slot) { return slot.Used; });
}

}  // namespace

void Project::Reset() {
  const ChangeGroup group(Tree);
  Settings = UserSettings;
  LoadedSettings.reset();
  Tree.Clear();
  static_cast<ProjectState&>(*this) = {};
  ProjectNamed = false;
  RateWarningDue = true;
  ProjectFile = DefaultFile(Settings);
  MainSubMenuTable.fill({});
  SubMenuTable.fill({});
  History.Reset();
}

void TakeMenuRaster(Project& project, const QString& menu) {
  const QSize raster = MenuView(project.Tree, menu).Raster();
  project.Settings.ActiveRasterX = raster.width();
  project.Settings.ActiveRasterY = raster.height();
}

void CalculateTotalSize(Project& project) {
  const torvane::Settings& settings = project.Settings;
  double films = 0;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const ProjectNode* size = project.Tree.Find(FilmNodeKey(film_node::TotalSize, i));
    if (size) films += Val(size->Value(film_node::TotalSize.Label.size()));
  }
  if (settings.UseIntro) {
    films += MegabytesOf(settings.IntroMovie);
    if (!settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) films += MegabytesOf(settings.IntroAudio);
  }
  qint64 menus = UsedSlots(project.MainSubMenuTable);
  if (!settings.NoTitleSets) menus += UsedSlots(project.SubMenuTable) + project.FilmCount;
  const qint64 allowanceKB = menus * (settings.AnimatedMainMenu ? kAnimatedMenuKB : kStillMenuKB);
  const double total = RoundHalfEven(films) + RoundHalfEven(double(allowanceKB) / 1000.0) + 1;
  project.Tree.SetCaption(kTotalSizeKey.toString(), kTotalSizeLabel + QString::number(total, 'f', 0));
}

}  // namespace torvane
