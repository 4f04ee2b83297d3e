#include "compilers/batch_plan.h"

#include "compilers/plan_check.h"
#include "compilers/written_values.h"
#include "render/menu_encoding.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

void AddMenus(const Project& project, const QStringList& keys, LineValues& values, std::vector<PlannedBatch>& batches) {
  for (const QString& key : keys) {
    const MenuView menu(project.Tree, key);
    batches.push_back({key + u"Brun1.bat", StillMenuBatch1(menu, values)});
    batches.push_back({key + u"Brun2.bat", StillMenuBatch2(menu, values)});
  }
}

}  // namespace

bool NeedsEmptyMenu(const Settings& settings) {
  // Which PGCs pass on without being seen, and so need the empty menu, depends on the form of the control file.
  if (settings.NoMenus) return !settings.NoTitleSets;
  return settings.NoTitleSets || settings.UseIntro;
}

std::vector<PlannedBatch> DiscBatches(const Project& project, const QByteArray& video, LineValues& values) {
  const Settings& settings = project.Settings;
  std::vector<PlannedBatch> batches{{kVideoBatch.toString(), video}};
  if (!settings.NoMenus) AddMenus(project, MainMenuKeys(project), values, batches);
  if (NeedsEmptyMenu(settings)) batches.push_back({kEmptyMenuBatch.toString(), EmptyMenuBatch(values)});
  if (!settings.NoMenus && !settings.NoTitleSets) AddMenus(project, TitlesetMenuKeys(project), values, batches);
  batches.push_back({kAuthorBatch.toString(), AuthorBatch(values)});
  return batches;
}

QStringList WrittenNames(const Project& project) {
  QStringList names{u"Author.xml"_s};
  for (const QStringView batch : {kIsoBatch, kEndBatch, kMainBatch, kSyntaxBatch}) names << batch.toString();
  for (const TempFile& file : TryWriters(project).TempFiles) names << QString(file.name).replace(u'\\', u'/');
  return names;
}

}  // namespace torvane
