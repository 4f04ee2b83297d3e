#pragma once

#include <QDir>
#include <QTemporaryDir>

namespace torvane::test {

/// Makes C:\ an empty temporary directory with these folders for the life of the object.
class DriveC {
 public:
  explicit DriveC(const QStringList& folders = {}) {
    qputenv("TORVANE_DRIVE_C", dir_.path().toUtf8());
    for (const QString& folder : folders) QDir(dir_.path()).mkpath(folder);
  }
  ~DriveC() { qunsetenv("TORVANE_DRIVE_C"); }
  DriveC(const DriveC&) = delete;
  DriveC& operator=(const DriveC&) = delete;

  QString Path() const { return dir_.path(); }

 private:
  QTemporaryDir dir_;
};

}  // namespace torvane::test
