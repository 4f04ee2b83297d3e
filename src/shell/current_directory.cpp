#include "shell/current_directory.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString CurrentDosDirectory() {
  const QString current = QDir::currentPath();
  QString best;
  qsizetype bestRoot = 0;
  for (char16_t letter = u'A'; letter <= u'Y'; ++letter) {
    const QString root = QFileInfo(HostFiles::ToHost(QChar(letter) + u":\\"_s)).canonicalFilePath();
    if (root.size() <= bestRoot || (current != root && !current.startsWith(root + u'/'))) continue;
    bestRoot = root.size();
    best = QChar(letter) + u":\\"_s + current.sliced(root.size()).mid(1).replace(u'/', u'\\');
  }
  return best.isEmpty() ? HostFiles::ToDos(current) : best;
}

QString ResolveDosPath(const QString& path) {
  if (path.isEmpty()) return {};
  QString plain = path;
  plain.replace(u'/', u'\\');
  const bool climbs = plain.split(u'\\').contains(u".."_s);
  QString drive = plain.left(2);
  QString rest = plain.mid(2);
  if (!HostFiles::HasDrive(plain)) {
    if (!plain.startsWith(u'\\') && !climbs) return path;
    const QString current = CurrentDosDirectory();
    drive = current.left(2);
    rest = plain.startsWith(u'\\') ? plain : QString(current.mid(2) + u'\\' + plain);
  } else if (!rest.startsWith(u'\\')) {
    const QString current = CurrentDosDirectory();
    if (current.startsWith(drive, Qt::CaseInsensitive)) rest = current.mid(2) + u'\\' + rest;
  }
  QStringList components;
  for (const QString& component : rest.split(u'\\', Qt::SkipEmptyParts)) {
    if (component == u"..") {
      if (!components.isEmpty()) components.removeLast();
    } else if (component != u".") {
      components << component;
    }
  }
  return drive + u'\\' + components.join(u'\\');
}

bool LiesInMachineRoot(const QString& path) {
  QString plain = path;
  plain.replace(u'/', u'\\');
  const qsizetype slash = plain.lastIndexOf(u'\\');
  const QString directory = slash < 0 ? u"."_s : QString(plain.left(slash + 1));
  return QFileInfo(HostFiles::ToHost(directory)).canonicalFilePath() == u"/";
}

}  // namespace torvane
