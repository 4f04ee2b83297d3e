#include "cli/commands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Runs the program's commands in a folder of their own and catches what they print.
class CommandsTest : public testing::Test {
 protected:
  CommandsTest() {
    qputenv("TORVANE_DRIVE_C", dir_.path().toUtf8());
    for (const QString& name : {u"O"_s, u"T"_s, u"p"_s}) QDir(dir_.path()).mkdir(name);
  }
  ~CommandsTest() override { qunsetenv("TORVANE_DRIVE_C"); }

  int Run(const QStringList& arguments) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = RunCli(QStringList{u"--profile"_s, u"C:\\p"_s, u"--set"_s, u"OutDir=C:\\O"_s, u"--set"_s,
                                        u"TempDir=C:\\T"_s, u"--set"_s, u"NoTitleSets=1"_s} +
                            arguments);
    out_ = QString::fromStdString(testing::internal::GetCapturedStdout());
    error_ = QString::fromStdString(testing::internal::GetCapturedStderr());
    return code;
  }

  QTemporaryDir dir_;
  QString out_;
  QString error_;
};

TEST_F(CommandsTest, ANewProjectSavedAgainIsTheSameFile) {
  ASSERT_EQ(Run({u"--set"_s, u"VideoNormPal=0"_s, u"new"_s, u"C:\\new"_s}), kExitDone) << error_.toStdString();
  ASSERT_EQ(Run({u"save"_s, u"C:\\new.tvn"_s, u"C:\\again.TVN"_s}), kExitDone) << error_.toStdString();
  EXPECT_EQ(*HostFiles::Read(u"C:\\new.tvn"_s), *HostFiles::Read(u"C:\\again.TVN"_s));
  EXPECT_TRUE(HostFiles::Read(u"C:\\new.tvn"_s)->contains(" NORM=\"0\" "));
  ASSERT_EQ(Run({u"tree"_s, dir_.path() + u"/new.tvn"}), kExitDone);
  EXPECT_TRUE(out_.startsWith(u"0\tTS\t1\t\tTotalSize(MB)=1\n0\tMM\t1\t\tMainMenu\n1\tMMBG\t7\t\tBackground\n"))
      << out_.toStdString();
  EXPECT_EQ(HostFiles::FileNames(u"C:\\p"_s), QStringList());
}

TEST_F(CommandsTest, ExitCodesTellUsageFromFailure) {
  EXPECT_EQ(Run({u"nonsense"_s}), kExitUsage);
  EXPECT_EQ(Run({u"--settings"_s, u"C:\\missing.txt"_s, u"new"_s, u"C:\\x"_s}), kExitUsage);
  EXPECT_EQ(Run({u"tree"_s, u"C:\\missing.tvn"_s}), kExitFailed);
  EXPECT_TRUE(error_.startsWith(u"error: Could not load file C:\\missing.tvn\n")) << error_.toStdString();
  ASSERT_EQ(Run({u"new"_s, u"C:\\empty.tvn"_s}), kExitDone);
  EXPECT_EQ(Run({u"build"_s, u"C:\\empty.tvn"_s}), kExitFailed);
  EXPECT_EQ(error_, u"torvane-cli: the main menu has no button, so there is nothing to make\n"_s);
  EXPECT_EQ(Run({u"run"_s, u"missing.bat"_s}), kExitFailed);
  EXPECT_EQ(error_, u"error: There is no batch file C:\\T\\missing.bat\n"_s);
  EXPECT_EQ(Run({u"--help"_s}), kExitDone);
}

TEST_F(CommandsTest, ASettingsFileComesBeforeTheCommandLine) {
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\s.txt"_s, "RasterX=8\r\nRasterY=9\r\n"));
  ASSERT_EQ(Run({u"--settings"_s, u"C:\\s.txt"_s, u"--set"_s, u"RasterX=7"_s, u"new"_s, u"C:\\s.tvn"_s}), kExitDone);
  ASSERT_EQ(Run({u"tree"_s, u"C:\\s.tvn"_s}), kExitDone);
  EXPECT_TRUE(out_.contains(u"RasterX=7\n"));
  EXPECT_TRUE(out_.contains(u"RasterY=9\n"));
}

TEST_F(CommandsTest, ComposeDrawsOneMenu) {
  ASSERT_EQ(Run({u"new"_s, u"C:\\m.tvn"_s}), kExitDone);
  ASSERT_EQ(Run({u"compose"_s, u"C:\\m.tvn"_s, u"MM"_s, u"-o"_s, u"C:\\pictures"_s}), kExitDone) << error_.toStdString();
  EXPECT_EQ(HostFiles::FileNames(u"C:\\pictures"_s),
            (QStringList{u"MMAct.png"_s, u"MMBackg.png"_s, u"MMHigh.png"_s, u"MMSpu.xml"_s}));
  EXPECT_EQ(Run({u"compose"_s, u"C:\\m.tvn"_s, u"MM7"_s, u"-o"_s, u"C:\\none"_s}), kExitFailed);
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\none"_s));
}

TEST_F(CommandsTest, GermanIsSpokenOnRequest) {
  EXPECT_EQ(Run({u"--lang"_s, u"de"_s, u"tree"_s, u"C:\\missing.tvn"_s}), kExitFailed);
  const QString german = error_;
  EXPECT_EQ(Run({u"tree"_s, u"C:\\missing.tvn"_s}), kExitFailed);
  EXPECT_NE(german, error_);
  EXPECT_TRUE(german.contains(u"C:\\missing.tvn"));
}

}  // namespace
}  // namespace torvane
