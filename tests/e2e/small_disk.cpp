#include "small_disk.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStorageInfo>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

constexpr qint64 megabyte = 1024 * 1024;

/// A shared memory file system above this size is the machine's own and no place to fill.
constexpr qint64 largestFilled = 256 * megabyte;

}  // namespace

SmallDisk::SmallDisk(int megabytes) {
  if (!Mount(megabytes) && !FillSharedMemory(megabytes) && !MountImage(megabytes)) {
    ADD_FAILURE() << "No small disk can be had here. This test needs one of these: root; name spaces for users "
                     "(sysctl kernel.unprivileged_userns_clone=1); a /dev/fuse that the user may open, with the "
                     "packages fuse2fs and fuse3; a /dev/shm of at most 256 MB.";
  }
}

SmallDisk::~SmallDisk() {
  if (mount_ == MountKind::Tmpfs) umount2(QFile::encodeName(path_).constData(), MNT_DETACH);
  if (mount_ == MountKind::Fuse) QProcess::execute(u"fusermount3"_s, {u"-u"_s, u"-z"_s, path_});
}

bool SmallDisk::Mount(int megabytes) {
  dir_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/torvane-disk-XXXXXX"_s);
  const QByteArray options = "size=" + QByteArray::number(megabytes) + "m";
  if (mount("tmpfs", QFile::encodeName(dir_->path()).constData(), "tmpfs", 0, options.constData()) != 0) return false;
  mount_ = MountKind::Tmpfs;
  path_ = dir_->path();
  return true;
}

bool SmallDisk::FillSharedMemory(int megabytes) {
  const QStorageInfo memory(u"/dev/shm"_s);
  if (!memory.isValid() || memory.bytesTotal() > largestFilled) return false;
  dir_ = std::make_unique<QTemporaryDir>(u"/dev/shm/torvane-disk-XXXXXX"_s);
  QFile filler(dir_->filePath(u"filler"_s));
  if (!dir_->isValid() || !filler.open(QIODevice::WriteOnly)) return false;
  const QByteArray block(int(megabyte), 'x');
  for (qint64 rest = memory.bytesAvailable() / megabyte - megabytes; rest > 0; --rest) filler.write(block);
  path_ = dir_->path() + u"/disk"_s;
  return filler.flush() && QDir().mkpath(path_);
}

bool SmallDisk::MountImage(int megabytes) {
  dir_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/torvane-disk-XXXXXX"_s);
  const QString image = dir_->filePath(u"image"_s);
  const QString path = dir_->filePath(u"disk"_s);
  QFile file(image);
  if (!file.open(QIODevice::WriteOnly) || !file.resize(megabytes * megabyte) || !QDir().mkpath(path)) return false;
  file.close();
  const auto run = [](const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  };
  if (!run(u"/sbin/mke2fs"_s, {u"-q"_s, u"-t"_s, u"ext2"_s, u"-m"_s, u"0"_s, image})) return false;
  run(u"fuse2fs"_s, {u"-o"_s, u"rw,fakeroot"_s, image, path});
  // fuse2fs ends with 0 also where it may not open /dev/fuse; then this is no other disk than that around it.
  if (QStorageInfo(path).rootPath() != QFileInfo(path).canonicalFilePath()) return false;
  mount_ = MountKind::Fuse;
  path_ = path;
  return true;
}

}  // namespace torvane::test
