#include "shell/current_directory.h"

#include <QFileInfo>
#include <QStringList>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString ResolveDosPath(const QString& path) {
  if (path.isEmpty()) return {};
  QString plain = path;
  plain.replace(u'/', u'\\');
  const bool climbs = plain.split(u'\\').contains(u".."_s);
  QString drive = plain.left(2);
  QString rest = plain.mid(2);
  if (!HostFiles::HasDrive(plain)) {
    if (!plain.startsWith(u'\\') && !climbs) return path;
    const QString current = HostFiles::CurrentDirectory();
    drive = current.left(2);
    rest = plain.startsWith(u'\\') ? plain : QString(current.mid(2) + u'\\' + plain);
  } else if (!rest.startsWith(u'\\')) {
    const QString current = HostFiles::CurrentDirectory();
    if (current.startsWith(drive, Qt::CaseInsensitive)) rest = current.mid(2) + u'\\' + rest;
  }
  return drive + u'\\' + HostFiles::ComponentsWithinRoot(rest).join(u'\\');
}

bool LiesInMachineRoot(const QString& path) {
  QString plain = path;
  plain.replace(u'/', u'\\');
  const qsizetype slash = plain.lastIndexOf(u'\\');
  const QString directory = slash < 0 ? u"."_s : QString(plain.left(slash + 1));
  return QFileInfo(HostFiles::ToHost(directory)).canonicalFilePath() == u"/";
}

}  // namespace torvane
