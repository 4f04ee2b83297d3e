#include "compilers/menu_files.h"

#include "platform/generated_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

Status WriteMenuFiles(const ComposedMenu& menu, const QString& dir) {
  Status written = WriteMenuPictures(menu.Pictures, menu.MenuKey, dir);
  for (const auto& [name, text] : {std::pair(u"Spu.xml"_s, menu.SpuXml), std::pair(u"SpuL.xml"_s, menu.SpuLXml)}) {
    if (written && !text.isEmpty()) written = WriteGeneratedFile(dir + u'\\' + menu.MenuKey + name, text);
  }
  return written;
}

QStringList MenuFileNames(const ComposedMenu& menu) {
  QStringList names;
  for (const MenuPicture& picture : menu.Pictures) names << menu.MenuKey + picture.Suffix;
  if (!menu.SpuXml.isEmpty()) names << menu.MenuKey + u"Spu.xml";
  if (!menu.SpuLXml.isEmpty()) names << menu.MenuKey + u"SpuL.xml";
  return names;
}

}  // namespace torvane
