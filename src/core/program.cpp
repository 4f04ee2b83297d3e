#include "core/program.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString ProgramDir() {
  return HostFiles::ToDos(QCoreApplication::applicationDirPath());
}

QString WritableProgramDir(const QString& appPath) {
  if (HostFiles::IsWritableDir(appPath)) return appPath;
  QString dir = HostFiles::ToDos(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/torvane"_s);
  HostFiles::MakeDir(dir);
  return dir;
}

QString DocumentsDir() {
  return HostFiles::ToDos(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

}  // namespace torvane
