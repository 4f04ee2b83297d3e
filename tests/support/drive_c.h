#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "platform/host_files.h"

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
  /// The host's path of a file on the drive: "a/b.txt".
  QString Host(const QString& relative) const { return dir_.path() + u'/' + relative; }

  /// Makes a file with the folders that lead to it.
  void Write(const QString& relative, const QByteArray& content = "x") const {
    QDir(dir_.path()).mkpath(QFileInfo(relative).path());
    ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\" + relative, content)) << relative.toStdString();
  }

 private:
  QTemporaryDir dir_;
};

}  // namespace torvane::test
