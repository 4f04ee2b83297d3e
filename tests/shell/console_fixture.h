#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "platform/host_files.h"
#include "support/text_lines.h"

namespace torvane::test {

using namespace Qt::Literals::StringLiterals;

/// What a run of the console printed, on one stream as the batch runner sees it, and its exit code.
struct ConsoleRun {
  std::string output;
  int exitCode = -1;
};

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// A drive C in a temporary folder, which is also the current directory of the console.
class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() : environment_(QProcessEnvironment::systemEnvironment()) {
    QDir(dir_.path()).mkpath(u"drive/T"_s);
    QDir(dir_.path()).mkpath(u"tmp"_s);
    environment_.insert(u"TORVANE_DRIVE_C"_s, Drive());
    environment_.insert(u"TMPDIR"_s, dir_.filePath(u"tmp"_s));
  }

  /// A file of the folder "data" beside this test, with the line ends of DOS.
  static QString Data(const QString& name) {
    QFile file(u"" TORVANE_TEST_DATA "/data/"_s + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(WithCrLf(file.readAll()));
  }

  QString Drive() const { return dir_.filePath(u"drive"_s); }
  QString Host(const QString& name) const { return Drive() + u"/T/"_s + name; }

  /// Files of the directory C:\T, sorted.
  QStringList Files() const { return QDir(Host({})).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  /// What private copies were left behind.
  QStringList Leftovers() const {
    return QDir(dir_.filePath(u"tmp"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
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
    Write(u"x.bat"_s, "@echo off\r\n" + lines);
    return Run(QStringList{u"/c"_s, u"x.bat"_s} + arguments).output;
  }

  /// Runs lines as the batch "x.bat" and expects what it prints. In the lines "probe" is the test program, in the
  /// output {C} the host's name of drive C.
  void ExpectOutputs(const std::vector<std::pair<QByteArray, QByteArray>>& cases,
                     const QStringList& arguments = {}) const {
    for (auto [lines, output] : cases) {
      const std::string expected = output.replace("{C}", Drive().toUtf8()).toStdString();
      EXPECT_EQ(RunBatch(lines.replace("probe", Probe()), arguments), expected) << lines.toStdString();
    }
  }

  /// The test program as a batch names it.
  static QByteArray Probe() {
    return '"' + HostFiles::ToDos(QStringLiteral(TORVANE_BIN_DIR "/shell_probe")).toUtf8() + '"';
  }

  QTemporaryDir dir_;
  QProcessEnvironment environment_;
};

}  // namespace torvane::test
