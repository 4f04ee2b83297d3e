#include "cli_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using CommandsTest = test::CliTest;

TEST_F(CommandsTest, ANewProjectSavedAgainIsTheSameFile) {
  ASSERT_EQ(Run(uR"(--set VideoNormPal=0 new C:\new)"_s), kExitDone) << error_.toStdString();
  ASSERT_EQ(Run(uR"(save C:\new.tvn C:\again.TVN)"_s), kExitDone) << error_.toStdString();
  EXPECT_EQ(*HostFiles::Read(u"C:\\new.tvn"_s), *HostFiles::Read(u"C:\\again.TVN"_s));
  EXPECT_TRUE(HostFiles::Read(u"C:\\new.tvn"_s)->contains(" NORM=\"0\" "));
  ASSERT_EQ(Run(u"tree "_s + drive_.Host(u"new.tvn"_s)), kExitDone);
  EXPECT_TRUE(out_.startsWith(u"0\tTS\t1\t\tTotalSize(MB)=1\n0\tMM\t1\t\tMainMenu\n1\tMMBG\t7\t\tBackground\n"))
      << out_.toStdString();
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\s"_s));
}

TEST_F(CommandsTest, ExitCodesTellUsageFromFailure) {
  const struct {
    QString line;
    int code;
    QString error;
  } cases[] = {
      {u"nonsense"_s, kExitUsage, u"torvane-cli: There is no command \"nonsense\".\n"_s},
      {uR"(--settings C:\missing.txt new C:\x)"_s, kExitUsage, u"torvane-cli: "_s},
      {uR"(tree C:\missing.tvn)"_s, kExitFailed, u"error: Could not load file C:\\missing.tvn\n"_s},
      {uR"(--lang de tree C:\missing.tvn)"_s, kExitFailed, u"error: Die Datei C:\\missing.tvn konnte nicht geladen werden\n"_s},
      {uR"(new C:\empty.tvn)"_s, kExitDone, {}},
      {uR"(build C:\empty.tvn)"_s, kExitFailed, u"torvane-cli: the main menu has no button, so there is nothing to make\n"_s},
      {u"run missing.bat"_s, kExitFailed, u"error: There is no batch file C:\\T\\missing.bat\n"_s},
      {u"--help"_s, kExitDone, {}},
  };
  for (const auto& [line, code, error] : cases) {
    EXPECT_EQ(Run(line), code) << line.toStdString();
    EXPECT_TRUE(error.isEmpty() ? error_.isEmpty() : error_.startsWith(error)) << error_.toStdString();
  }
}

TEST_F(CommandsTest, ASettingsFileComesBeforeTheCommandLine) {
  drive_.Write(u"s.txt"_s, "RasterX=8\r\nRasterY=9\r\n");
  ASSERT_EQ(Run(uR"(--settings C:\s.txt --set RasterX=7 new C:\s.tvn)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(tree C:\s.tvn)"_s), kExitDone);
  EXPECT_TRUE(out_.contains(u"RasterX=7\n"));
  EXPECT_TRUE(out_.contains(u"RasterY=9\n"));
}

TEST_F(CommandsTest, ComposeDrawsOneMenu) {
  ASSERT_EQ(Run(uR"(new C:\m.tvn)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(compose C:\m.tvn MM -o C:\pictures)"_s), kExitDone) << error_.toStdString();
  EXPECT_EQ(HostFiles::FileNames(u"C:\\pictures"_s),
            (QStringList{u"MMAct.png"_s, u"MMBackg.png"_s, u"MMHigh.png"_s, u"MMSpu.xml"_s}));
  EXPECT_EQ(Run(uR"(compose C:\m.tvn MM7 -o C:\none)"_s), kExitFailed);
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\none"_s));
}

}  // namespace
}  // namespace torvane
