#include "compilers/written_values.h"

#include "compilers/author_xml.h"
#include "compilers/disc_checks.h"
#include "compilers/plan_check.h"
#include "compilers/run_batches.h"
#include "compilers/video_batch.h"
#include "designer/button_rectangles.h"
#include "designer/spu_xml.h"
#include "render/menu_encoding.h"

namespace torvane {
namespace {

void WriteMenu(const MenuView& menu, LineValues& values) {
  StillMenuBatch1(menu, values);
  StillMenuBatch2(menu, values);
  const std::vector<ButtonRectangle> rectangles = ButtonRectangles(menu, values.InForce());
  for (const SpuFile file : {SpuFile::Frame, SpuFile::Letterbox}) SpuXmlText(menu, rectangles, file, values);
}

}  // namespace

WrittenValues TryWriters(const Project& project) {
  const Settings& settings = project.Settings;
  LineValues values(settings);
  WriteVideoBatch(project, values);
  for (const QString& key : DiscMenuKeys(project)) WriteMenu(MenuView(project.Tree, key), values);
  EmptyMenuBatch(values);
  if (settings.NoTitleSets) {
    WriteAuthorXmlSingle(project, AuthorMode::Run, values);
  } else {
    WriteAuthorXmlTitlesets(project, AuthorMode::Run, values);
  }
  AuthorBatch(values);
  if (settings.CreateISO) IsoBatch(IsoFile(settings), BatchUse::Run, values);
  return {.Refused = values.Refused(), .TempFiles = values.TempFiles(), .Commands = values.AllCommands()};
}

}  // namespace torvane
