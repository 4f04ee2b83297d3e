#include "core/dos_path.h"

#include <algorithm>

#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool Climbs(const QString& path) {
  return path.contains(u"\\.") && std::ranges::any_of(path.split(u'\\'), [](const QString& component) {
           return component == u"." || component == u"..";
         });
}

}  // namespace

bool IsDosPath(QStringView path) {
  constexpr qsizetype kShortest = 4;
  return path.size() >= kShortest && HostFiles::HasDrive(path.left(2).toString()) && path[2] == u'\\' &&
         !path.contains(u'"') && !path.contains(u'/') && !HasControlCharacters(path) && !path.endsWith(u'\\') &&
         !path.endsWith(u'|');
}

QString DosPathOf(const QString& text, const QString& baseDir) {
  if (text.isEmpty() || text.contains(u'"') || HasControlCharacters(text) || text.startsWith(u"\\\\")) return text;
  QString path = text.startsWith(u'/') ? HostFiles::ToDos(text) : QString(text).replace(u'/', u'\\');
  if (HostFiles::HasDrive(path)) {
    if (path.size() > 2 && path[2] == u'\\' && !Climbs(path)) return path;
  } else {
    path = path.startsWith(u'\\') ? QString(baseDir.left(2) + path) : QString(baseDir + u'\\' + path);
  }
  return path.left(2) + u'\\' + HostFiles::ComponentsWithinRoot(path.mid(2)).join(u'\\');
}

}  // namespace torvane
