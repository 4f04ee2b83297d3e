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
  drive_.Write(u"s.txt"_s, "RasterX=8\r\nRasterY=10\r\n");
  ASSERT_EQ(Run(uR"(--settings C:\s.txt --set RasterX=6 new C:\s.tvn)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(tree C:\s.tvn)"_s), kExitDone);
  EXPECT_TRUE(out_.contains(u"RasterX=6\n"));
  EXPECT_TRUE(out_.contains(u"RasterY=10\n"));
}

TEST_F(CommandsTest, NothingIsOverwrittenUnasked) {
  ASSERT_EQ(Run(uR"(new C:\p)"_s), kExitDone);
  drive_.Write(u"work.tvn"_s, "mine");
  drive_.Write(u"look.tvp"_s, "mine");
  for (const QString& line : {uR"(new C:\work)"_s, uR"(save C:\p.tvn C:\work.tvn)"_s, uR"(preset save C:\look)"_s,
                              uR"(add-label C:\p.tvn Sea -o C:\WORK.TVN)"_s}) {
    const QString name = line.contains(u"preset") ? u"look.tvp"_s : u"work.tvn"_s;
    EXPECT_EQ(Run(line), kExitFailed) << line.toStdString();
    const QString question = u"question: There is a file %1 already. Write over it? [No]\n"_s.arg(drive_.Host(name));
    EXPECT_EQ(error_, question) << line.toStdString();
    EXPECT_EQ(*HostFiles::Read(u"C:\\"_s + name), "mine");
    EXPECT_EQ(Run(u"--assume yes "_s + line), kExitDone) << error_.toStdString();
    EXPECT_NE(*HostFiles::Read(u"C:\\"_s + name), "mine");
    drive_.Write(name, "mine");
  }
  ASSERT_TRUE(QFile::link(drive_.Host(u"p.tvn"_s), drive_.Host(u"link.tvn"_s)));
  for (const QString& line : {uR"(save C:\p.tvn C:\P.tvn)"_s, uR"(add-label C:\p.tvn Sea)"_s,
                              uR"(add-label C:\p.tvn Sea -o C:\link.tvn)"_s}) {
    EXPECT_EQ(Run(line), kExitDone) << error_.toStdString();
    EXPECT_EQ(error_, QString()) << "a project saved onto the file it was loaded from";
  }
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
