#include "compilers/menu_files.h"

#include <utility>

#include "designer/spu_xml.h"
#include "platform/generated_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Name and text of the control files that there are.
QList<std::pair<QString, QByteArray>> NamedFiles(const QString& menuKey, const HighlightFiles& highlights) {
  QList<std::pair<QString, QByteArray>> files;
  if (!highlights.Spu.isEmpty()) files.append({menuKey + u"Spu.xml", highlights.Spu});
  if (!highlights.SpuL.isEmpty()) files.append({menuKey + u"SpuL.xml", highlights.SpuL});
  return files;
}

}  // namespace

HighlightFiles WriteHighlightFiles(const MenuView& menu, const ComposedMenu& composed, LineValues& values) {
  HighlightFiles files;
  files.Spu = SpuXmlText(menu, composed.Rectangles, SpuFile::Frame, values);
  if (menu.IsWide(values.InForce())) files.SpuL = SpuXmlText(menu, composed.Rectangles, SpuFile::Letterbox, values);
  return files;
}

Status WriteMenuFiles(const ComposedMenu& menu, const HighlightFiles& highlights, const QString& dir) {
  Status written = WriteMenuPictures(menu.Pictures, menu.MenuKey, dir);
  for (const auto& [name, text] : NamedFiles(menu.MenuKey, highlights)) {
    if (written) written = WriteGeneratedFile(dir + u'\\' + name, text);
  }
  return written;
}

QStringList MenuFileNames(const ComposedMenu& menu, const HighlightFiles& highlights) {
  QStringList names;
  for (const MenuPicture& picture : menu.Pictures) names << menu.MenuKey + picture.Suffix;
  for (const auto& [name, text] : NamedFiles(menu.MenuKey, highlights)) names << name;
  return names;
}

}  // namespace torvane
