#include "core/control_elements.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool IsControlElement(const QString& name) {
  static const QSet<QString> kNames{u"dvdauthor"_s, u"vmgm"_s,  u"titleset"_s,   u"menus"_s,       u"titles"_s,
                                    u"video"_s,     u"audio"_s, u"subpicture"_s, u"stream"_s,      u"pgc"_s,
                                    u"pre"_s,       u"post"_s,  u"fpc"_s,        u"vob"_s,         u"button"_s,
                                    u"cell"_s,      u"spu"_s,   u"action"_s,     u"subpictures"_s, u"textsub"_s};
  return kNames.contains(name);
}

qsizetype TagInCommand(QStringView command) {
  for (qsizetype at = command.indexOf(u'<'); at >= 0; at = command.indexOf(u'<', at + 1)) {
    const QStringView rest = command.sliced(at + 1);
    if (rest.startsWith(u'/') || rest.startsWith(u'!') || rest.startsWith(u'?')) return at;
    qsizetype end = 0;
    while (end < rest.size() && rest[end].isLetterOrNumber()) ++end;
    const bool ends = end == rest.size() || rest[end].isSpace() || rest[end] == u'/' || rest[end] == u'>';
    if (ends && IsControlElement(rest.first(end).toString().toLower())) return at;
  }
  return -1;
}

}  // namespace torvane
