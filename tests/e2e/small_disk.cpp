#include "small_disk.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <QDir>
#include <QFile>
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
  if (!Mount(megabytes) && !FillSharedMemory(megabytes)) {
    ADD_FAILURE() << "no small disk can be had here: neither may a tmpfs be mounted, nor is /dev/shm a small one";
  }
}

SmallDisk::~SmallDisk() {
  if (mounted_) umount2(QFile::encodeName(path_).constData(), MNT_DETACH);
}

bool SmallDisk::Mount(int megabytes) {
  dir_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/torvane-disk-XXXXXX"_s);
  const QByteArray options = "size=" + QByteArray::number(megabytes) + "m";
  mounted_ = mount("tmpfs", QFile::encodeName(dir_->path()).constData(), "tmpfs", 0, options.constData()) == 0;
  if (mounted_) path_ = dir_->path();
  return mounted_;
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

}  // namespace torvane::test
