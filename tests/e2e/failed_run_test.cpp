// Runs that must fail: each ends with exit code 1, the tool's own words in the log, and the project as it was.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include "small_disk.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::HasSubstr;
using testing::Not;

void ExpectFailed(const Workshop& workshop, const CliResult& result, const std::string& words) {
  EXPECT_EQ(result.exitCode, 1) << result.messages.toStdString();
  EXPECT_THAT(workshop.Log().toStdString(), HasSubstr(words));
  EXPECT_THAT(result.output.toStdString(), HasSubstr(words));
  EXPECT_THAT(result.output.toStdString(), Not(HasSubstr("Batchrun finished")));
  EXPECT_TRUE(workshop.ProjectIsUntouched());
  EXPECT_FALSE(QFile::exists(workshop.IsoFile()));
}

/// Process ids of the children, grandchildren and so on of a process that bear the name.
std::vector<pid_t> Descendants(pid_t root, const QByteArray& name) {
  std::vector<pid_t> found;
  std::vector<pid_t> open{root};
  while (!open.empty()) {
    const pid_t parent = open.back();
    open.pop_back();
    for (const QString& process : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
      QFile file(u"/proc/%1/stat"_s.arg(process));
      if (!file.open(QIODevice::ReadOnly)) continue;
      // pid (name) state parent ...
      const QByteArray stat = file.readAll();
      const QList<QByteArray> rest = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
      if (rest.size() < 2 || rest[1].toInt() != parent) continue;
      open.push_back(process.toInt());
      const qsizetype begin = stat.indexOf('(') + 1;
      if (stat.mid(begin, stat.lastIndexOf(')') - begin) == name) found.push_back(process.toInt());
    }
  }
  return found;
}

TEST(FailedRunTest, AHighlightPictureIsMissing) {
  Workshop workshop;
  const CliResult compiled = workshop.Run(u"compile"_s);
  ASSERT_TRUE(Succeeded(compiled));
  ASSERT_TRUE(QFile::remove(workshop.TempDir() + u"/MMHigh.png"_s));
  const QStringList batches = QString::fromUtf8(compiled.output).split(u'\n', Qt::SkipEmptyParts);
  ExpectFailed(workshop, workshop.RunPlain(u"run"_s, batches), "Unable to open file");
  EXPECT_FALSE(QFile::exists(workshop.OutDir() + u"/DVD/VIDEO_TS/VIDEO_TS.IFO"_s));
}

TEST(FailedRunTest, AVideoThatNoDiscCanBeMadeOfIsRefusedBeforeAnythingIsTouched) {
  const std::pair<std::optional<QByteArray>, std::string> cases[] = {
      {"This is no film.\n", "film1.m2v is a text"},
      {QByteArray(300'000, '\xa5'), "film1.m2v is"},
      {"", "film1.m2v is empty"},
      {std::nullopt, "film1.m2v is missing"},
  };
  for (const auto& [content, words] : cases) {
    Workshop workshop;
    content ? workshop.ReplaceMedia(u"film1.m2v"_s, *content) : workshop.RemoveMedia(u"film1.m2v"_s);
    const CliResult result = workshop.Run(u"build"_s);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.messages.toStdString(), HasSubstr("error: Film 1 ("));
    EXPECT_THAT(result.messages.toStdString(), HasSubstr(words));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(QDir(workshop.TempDir()).entryList(QDir::Files), QStringList());
  }
}

TEST(FailedRunTest, AToolIsKilled) {
  Workshop workshop;
  // A tool that waits for its input can be met at any time.
  workshop.RemoveMedia(u"film2.ac3"_s);
  ASSERT_EQ(mkfifo(QFile::encodeName(workshop.Dir() + u"/film2.ac3"_s).constData(), 0600), 0);
  // No build takes what is no file; its batches do.
  const CliResult compiled = workshop.Run(u"compile"_s);
  ASSERT_TRUE(Succeeded(compiled));
  const QStringList batches = QString::fromUtf8(compiled.output).split(u'\n', Qt::SkipEmptyParts);
  const std::unique_ptr<QProcess> build = workshop.StartPlain(u"run"_s, batches);
  QElapsedTimer patience;
  patience.start();
  QByteArray output;
  while (!output.contains("[mplex] Multiplex completion") && patience.elapsed() < 120'000) {
    build->waitForReadyRead(100);
    output += build->readAllStandardOutput();
  }
  std::vector<pid_t> tools;
  while (tools.empty() && build->state() == QProcess::Running && patience.elapsed() < 120'000) {
    QThread::msleep(20);
    tools = Descendants(pid_t(build->processId()), "mplex");
  }
  ASSERT_EQ(tools.size(), 1u) << output.toStdString();
  EXPECT_EQ(kill(tools[0], SIGKILL), 0);
  ASSERT_TRUE(build->waitForFinished(60'000));
  const CliResult result{build->exitCode(), output + build->readAllStandardOutput(), build->readAllStandardError()};
  ExpectFailed(workshop, result, "mplex");
}

TEST(FailedRunTest, NoRunStartsWhereTheUserSaysNoToAFullDisk) {
  const SmallDisk disk(8);
  ASSERT_FALSE(disk.Path().isEmpty());
  Workshop workshop;
  workshop.SetTempDir(disk.Path());
  const CliResult result = workshop.Run(u"build"_s, {}, u"no"_s);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.messages.toStdString(), HasSubstr("question: The free space on drive"));
  EXPECT_EQ(workshop.Log(), "");
}

struct FullDisk {
  const char* test;
  void (Workshop::*moveThere)(const QString&);
  const char* words;
};

class FullDiskTest : public testing::TestWithParam<FullDisk> {};

TEST_P(FullDiskTest, EndsTheRun) {
  const SmallDisk disk(8);
  ASSERT_FALSE(disk.Path().isEmpty());
  Workshop workshop;
  (workshop.*GetParam().moveThere)(disk.Path());
  ExpectFailed(workshop, workshop.Run(u"build"_s), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(OfThe, FullDiskTest,
                         testing::Values(FullDisk{"TempDir", &Workshop::SetTempDir, "Failed write"},
                                         FullDisk{"OutDir", &Workshop::SetOutDir, "writing data"},
                                         FullDisk{"Image", &Workshop::SetIsoDir, "No space left on device"}),
                         [](const auto& which) { return which.param.test; });

}  // namespace
}  // namespace torvane::test
