#include "shell/current_directory.h"

#include <QDir>
#include <QFileInfo>

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

}  // namespace torvane
