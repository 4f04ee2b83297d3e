#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <string>

#include "platform/host_files.h"

namespace torvane::test {

/// What a run of the console printed, on one stream as the batch runner sees it, and its exit code.
struct ConsoleRun {
  std::string output;
  int exitCode = -1;
};

/// A drive C in a temporary folder, which is also the current directory of the console.
class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() {
    QDir(dir_.path()).mkpath(QStringLiteral("drive/T"));
    QDir(dir_.path()).mkpath(QStringLiteral("tmp"));
    environment_ = QProcessEnvironment::systemEnvironment();
    environment_.insert(QStringLiteral("TORVANE_DRIVE_C"), Drive());
    environment_.insert(QStringLiteral("TMPDIR"), dir_.filePath(QStringLiteral("tmp")));
  }

  QString Drive() const { return dir_.filePath(QStringLiteral("drive")); }
  QString Host(const QString& name) const { return Drive() + QStringLiteral("/T/") + name; }

  /// Files of the directory C:\T, sorted.
  QStringList Files() const { return QDir(Host({})).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  /// What private copies were left behind.
  QStringList Leftovers() const {
    return QDir(dir_.filePath(QStringLiteral("tmp"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  }

  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Host(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.fileName().toStdString();
    file.write(bytes);
  }

  QByteArray Read(const QString& name) const {
    QFile file(Host(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
  }

  void Start(QProcess& process, const QStringList& arguments) const {
    process.setProcessEnvironment(environment_);
    process.setWorkingDirectory(Host({}));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(TORVANE_BIN_DIR "/torvane-cmd"), arguments);
  }

  ConsoleRun Run(const QStringList& arguments, const QByteArray& input = {}) const {
    QProcess process;
    Start(process, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
      process.kill();
      process.waitForFinished();
      return {"(did not end)", -1};
    }
    return {process.readAll().toStdString(), process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1};
  }

  /// Runs lines as the batch "x.bat", with echo off.
  std::string RunBatch(const QByteArray& lines, const QStringList& arguments = {}) const {
    Write(QStringLiteral("x.bat"), "@echo off\r\n" + lines);
    return Run(QStringList{QStringLiteral("/c"), QStringLiteral("x.bat")} + arguments).output;
  }

  /// The test program as a batch names it.
  static QByteArray Probe() {
    return '"' + HostFiles::ToDos(QStringLiteral(TORVANE_BIN_DIR "/shell_probe")).toUtf8() + '"';
  }

  QTemporaryDir dir_;
  QProcessEnvironment environment_;
};

}  // namespace torvane::test
