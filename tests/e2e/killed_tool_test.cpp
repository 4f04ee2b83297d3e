// Tools that die, hang or only pretend: a run that meets one fails with the tool's name, and a run that is killed takes
// its tools with it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include "platform/host_files.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A folder that comes first in PATH, for as long as the object lives.
class FakeTools {
 public:
  FakeTools() { qputenv("PATH", folder_.path().toUtf8() + ':' + former_); }
  ~FakeTools() { qputenv("PATH", former_); }

  void Put(const QString& name, const QByteArray& script) const {
    test::Put(folder_.filePath(name), "#!/bin/sh\n" + script + '\n');
    EXPECT_TRUE(QFile::setPermissions(folder_.filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  }
  void Remove(const QString& name) const { EXPECT_TRUE(QFile::remove(folder_.filePath(name))); }

  /// Only what lies in the folder is found.
  void HideOthers() const { qputenv("PATH", folder_.path().toUtf8()); }

 private:
  QTemporaryDir folder_;
  QByteArray former_ = qgetenv("PATH");
};

bool IsRunning(pid_t process) {
  QFile state(u"/proc/%1/stat"_s.arg(process));
  return state.open(QIODevice::ReadOnly) && !state.readAll().contains(") Z ");
}

/// Half a file where the tool's output goes: behind -o, or on its standard output.
const QByteArray kHalf =
    "out=/dev/stdout; while [ $# -gt 0 ]; do [ \"$1\" = -o ] && out=$2; shift; done; echo half >> \"$out\"; ";

TEST(KilledToolTest, EveryToolOfARunFailsItByNameHoweverItFails) {
  const FakeTools tools;
  Workshop workshop;
  const CliResult compiled = workshop.Run(u"compile"_s);
  ASSERT_TRUE(Succeeded(compiled));
  // What a former run has left must not pass for the work of this one.
  ASSERT_TRUE(
      Succeeded(workshop.RunPlain(u"run"_s, QString::fromUtf8(compiled.output).split(u'\n', Qt::SkipEmptyParts))));

  // From the last one back, since a failure takes what the later steps read.
  const std::pair<QString, QString> steps[] = {
      {u"genisoimage"_s, u"makeiso.bat"_s}, {u"dvdauthor"_s, u"author.bat"_s}, {u"spumux"_s, u"MMBrun2.bat"_s},
      {u"mplex"_s, u"batchrun0.bat"_s},     {u"mpeg2enc"_s, u"MMBrun1.bat"_s}, {u"png2yuv"_s, u"MMBrun1.bat"_s},
      {u"jpeg2yuv"_s, u"EBrun1.bat"_s},
  };
  const std::pair<const char*, QByteArray> deaths[] = {
      {"killed", "kill -9 $$"},          {"a status", "exit 1"},
      {"nothing made", "exit 0"},        {"half a file, status", kHalf + "exit 1"},
      {"half a file", kHalf + "exit 0"}, {"hangs", "exec sleep 60"},
  };
  for (const auto& [tool, batch] : steps) {
    for (const auto& [how, script] : deaths) {
      // Whether an image is whole is asked of the image, in a build.
      if (tool == u"genisoimage" && script == kHalf + "exit 0") continue;
      tools.Put(tool, script);
      const CliResult run = workshop.RunPlain(u"run"_s, {u"--set"_s, u"ToolPatience=0.005"_s, batch});
      EXPECT_EQ(run.exitCode, 1) << tool.toStdString() << ' ' << how << run.Words();
      EXPECT_THAT(run.output.toStdString(), HasSubstr(tool == u"genisoimage" ? "mkisofs" : tool.toStdString())) << how;
      EXPECT_THAT(run.messages.toStdString(), Not(HasSubstr("finished"))) << tool.toStdString() << ' ' << how;
    }
    tools.Remove(tool);
  }
}

TEST(KilledToolTest, ACheckWithoutDvdauthorFails) {
  const FakeTools tools;
  Workshop workshop;
  tools.HideOthers();
  const CliResult check = workshop.Run(u"check"_s);
  EXPECT_EQ(check.exitCode, 1) << check.Words();
  EXPECT_THAT(check.messages.toStdString(), HasSubstr("dvdauthor is not installed"));
}

/// Tools write their process identifiers into a file, and wait together with what they have started.
class KilledRunTest : public testing::TestWithParam<const char*> {
 protected:
  KilledRunTest() {
    const QByteArray waits = "sleep 60 & echo $$ $! >> '" + PidFile().toUtf8() + "'; wait";
    for (const QString& name : {u"mplex"_s, u"png2yuv"_s, u"mpeg2enc"_s, u"ffmpeg"_s}) tools_.Put(name, waits);
    Put(workshop_.TempDir() + u"/x.bat"_s,
        QByteArray(GetParam()).replace("{T}", HostFiles::ToDos(workshop_.Dir()).toUtf8()));
  }

  QString PidFile() const { return workshop_.Dir() + u"/pids"_s; }

  /// Starts the run and waits until `count` tools and what they have started are there.
  std::unique_ptr<QProcess> Start(qsizetype count) {
    std::unique_ptr<QProcess> run = workshop_.StartPlain(u"run"_s, {u"x.bat"_s});
    QElapsedTimer patience;
    patience.start();
    while (processes_.size() < 2 * count && patience.elapsed() < 20'000) {
      QThread::msleep(10);
      const QByteArray content = QFile::exists(PidFile()) ? ContentOf(PidFile()) : QByteArray();
      processes_.clear();
      for (const QByteArray& number : content.simplified().split(' ')) {
        if (number.toInt() > 1) processes_ << number.toInt();
      }
    }
    EXPECT_EQ(processes_.size(), 2 * count);
    return run;
  }

  void ExpectAllGone() const {
    for (const pid_t process : processes_) {
      for (int i = 0; i < 500 && IsRunning(process); ++i) QThread::msleep(10);
      EXPECT_FALSE(IsRunning(process)) << process;
    }
  }

  Workshop workshop_;
  FakeTools tools_;
  QList<pid_t> processes_;
};

TEST_P(KilledRunTest, TakesItsToolsWithIt) {
  const qsizetype count = QByteArray(GetParam()).contains('|') ? 2 : 1;
  const std::unique_ptr<QProcess> run = Start(count);
  run->kill();
  run->waitForFinished();
  ExpectAllGone();
}

INSTANTIATE_TEST_SUITE_P(Of, KilledRunTest,
                         testing::Values("mplex -o {T}\\o.mpg {T}\\film1.m2v\r\n",
                                         "png2yuv -j {T}\\background.png | mpeg2enc -o {T}\\o.m2v\r\n",
                                         "requant 2 {T}\\film1.m2v {T}\\o.mpv\r\n"));

class InterruptTest : public KilledRunTest {};

TEST_P(InterruptTest, SaysWhatItDoesAndEndsTheStepAtTheSecondPress) {
  const std::unique_ptr<QProcess> run = Start(1);
  run->setReadChannel(QProcess::StandardError);
  QByteArray messages;
  const auto expect = [&](const QByteArray& words) {
    for (int i = 0; i < 100 && !messages.contains(words); ++i) {
      run->waitForReadyRead(100);
      messages += run->readAllStandardError();
    }
    EXPECT_TRUE(messages.contains(words)) << messages.toStdString();
  };
  EXPECT_EQ(kill(pid_t(run->processId()), SIGINT), 0);
  expect("stopping after this step; once more stops now\n");
  EXPECT_TRUE(IsRunning(processes_.first()));
  EXPECT_EQ(kill(pid_t(run->processId()), SIGINT), 0);
  expect("stopping now\n");
  ASSERT_TRUE(run->waitForFinished(20'000));
  EXPECT_EQ(run->exitCode(), 1);
  ExpectAllGone();
  messages += run->readAllStandardError();
  EXPECT_TRUE(messages.endsWith("aborted\n")) << messages.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Of, InterruptTest, testing::Values("mplex -o {T}\\o.mpg {T}\\film1.m2v\r\n"));

}  // namespace
}  // namespace torvane::test
