#include <signal.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "console_fixture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

class Programs : public ConsoleTest {
 protected:
  /// Runs a batch in which "probe" stands for the test program.
  std::string RunProbes(QByteArray lines) const { return RunBatch(lines.replace("probe", Probe())); }

  /// Lays a script into a folder that comes first in PATH.
  void MakeTool(const QString& name, const QByteArray& script) {
    const QString folder = dir_.filePath(u"bin"_s);
    QDir().mkpath(folder);
    QFile file(folder + u'/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment_.insert(u"PATH"_s, folder + u":/usr/bin:/bin"_s);
  }
};

/// False for a process that has ended, also where nobody has asked for its status yet.
bool IsRunning(int pid) {
  QFile file(u"/proc/%1/stat"_s.arg(pid));
  return file.open(QIODevice::ReadOnly) && !file.readAll().contains(") Z ");
}

TEST_F(Programs, PrintWhatTheyPrintUnchangedAndInOrder) {
  ExpectOutputs({
      {"echo a\r\nprobe out 10%%~r err x~n out 20%%~r out \"last, no end\"\r\necho b\r\n",
       "a\r\n10%\rx\n20%\rlast, no endb\r\n"},
      {"probe args \"a b\" -o\"C:\\T\\n e w\" -xC:/t/X.BAT \"\" 1.25 -V:w C:\\ \"x.BAT\" sub\\y\r\n",
       "[a b]\n[-o{C}/T/n e w]\n[-x{C}/T/x.bat]\n[]\n[1.25]\n[-V:w]\n[{C}]\n[x.bat]\n[sub/y]\n"},
      {"set Q=1 2\r\nset PATH=C:\\tools\r\nprobe env Q\r\nset Q=\r\nprobe env Q\r\nprobe env PATH > p\r\n"
       "if exist p echo there\r\n",
       "1 2\n(none)\nthere\r\n"},
      {"probe out a~nb err c~n | probe cat out -~n\r\n", "c\na\nb-\n"},
      {"type x.bat | probe cat > copy.bat\r\ntype copy.bat | probe cat | probe cat > copy2.bat\r\n", ""},
      {"echo ab> in.txt\r\nprobe cat <in.txt > \"C:\\T\\o u t\" & probe cat< \"o u t\" | probe cat\r\n", "ab\r\n"},
      {"probe out a err b > o.txt 2> e.txt\r\nprobe out c err d >> o.txt 2>&1\r\ntype o.txt\r\ntype e.txt\r\n", "acdb"},
      {"probe out a 2>&1 1>nul err b~n\r\n", "b\n"},
      {"echo a | probe cat\r\necho b|call echo c|probe cat\r\n", "a \r\nc\r\n"},
      {"probe status 0 && echo yes\r\nprobe out x && probe out y~n || echo no\r\n", "yes\r\nxy\n"},
  });
  EXPECT_EQ(Read(u"copy2.bat"_s), Read(u"copy.bat"_s));
}

TEST_F(Programs, TellHowTheyFailed) {
  ExpectOutputs({
      {"probe out half status 3\r\necho next %ERRORLEVEL%\r\n",
       "half\r\n*ERROR: shell_probe ended with status 3\r\nnext 3\r\n"},
      {"probe signal 9\r\necho next %ERRORLEVEL%\r\n",
       "\r\n*ERROR: shell_probe was ended by signal 9 (Killed)\r\nnext 137\r\n"},
      {"probe fill | probe close status 4\r\n", "\r\n*ERROR: shell_probe ended with status 4\r\n"},
      {"probe fill | probe close\r\necho well %ERRORLEVEL%\r\n", "well 0\r\n"},
      {"probe status 5 | probe cat\r\necho level %ERRORLEVEL%\r\n",
       "\r\n*ERROR: shell_probe ended with status 5\r\nlevel 0\r\n"},
      {"probe status 5 | probe cat status 6\r\n",
       "\r\n*ERROR: shell_probe ended with status 5\r\n\r\n*ERROR: shell_probe ended with status 6\r\n"},
      {"probe cat < nothing.mpg > out.mpg\r\nif not exist out.mpg echo none %ERRORLEVEL%\r\n",
       "*ERROR: nothing.mpg: No such file or directory\r\nnone 1\r\n"},
      {"probe out a > C:\\nowhere\\x\r\n", "*ERROR: {C}/nowhere/x: No such file or directory\r\n"},
      {"\"C:\\T\\x.txt\" a\r\necho a>x.txt\r\n\"C:\\T\\X.txt\" a\r\n",
       "*ERROR: C:\\T\\x.txt is neither a command nor a program that exists\r\n"
       "*ERROR: {C}/T/x.txt cannot be run on this system\r\n"},
  });
}

TEST_F(Programs, LeaveNoHalfOutputBehindWhenTheyFail) {
  EXPECT_EQ(RunProbes("probe out half status 1 > film.mpg\r\nprobe out half status 1 > log.txt 2>&1\r\n"
                      "echo before> kept.txt\r\nprobe out half status 1 >> kept.txt\r\nprobe status 1 > nul\r\n"
                      "probe out half > pipe.mpg | probe status 1\r\n")
                .size(),
            std::string("\r\n*ERROR: shell_probe ended with status 1\r\n").size() * 5);
  EXPECT_EQ(Files(), (QStringList{u"kept.txt"_s, u"log.txt"_s, u"x.bat"_s}));
  EXPECT_EQ(Read(u"kept.txt"_s), "before\r\nhalf");
  EXPECT_TRUE(QFile::exists(u"/dev/null"_s));

  MakeTool(u"mplex"_s, "for last; do :; done; [ -f \"$last\" ] || exit 1; echo half > \"$5\"; exit 2\n");
  Write(u"in.m2v"_s, "x");
  Write(u"former.mpg"_s, "whole");
  RunBatch("mplex.exe -M -f 8 -o \"C:\\T\\new.mpg\" in.m2v\r\nmplex.exe -M -f 8 -o former.mpg nothing.m2v\r\n");
  EXPECT_EQ(Files(), (QStringList{u"in.m2v"_s, u"kept.txt"_s, u"log.txt"_s, u"x.bat"_s}));
}

TEST_F(Programs, KeepWhatTheyPromise) {
  const std::string host = Host({}).toStdString();
  const struct {
    const char* what;
    QString tool;
    QByteArray does, line;
    std::string complaint;
  } cases[] = {
      {"nothing", u"mplex"_s, "", "mplex -o out.mpg in", "mplex made no out.mpg"},
      {"an empty file", u"mpeg2enc"_s, ": > \"$2\"", "mpeg2enc -o out.mpg", "mpeg2enc left out.mpg empty"},
      {"half a file", u"mplex"_s, "echo half > \"$2\"", "mplex -o out.mpg in", "mplex left out.mpg unfinished"},
      {"a whole file", u"mplex"_s, "printf 'x\\000\\000\\001\\271' > \"$2\"", "mplex -o out.mpg in", ""},
      {"nothing behind >", u"png2yuv"_s, "", "png2yuv -j in > C:\\T\\out.mpg", "png2yuv made no " + host + "out.mpg"},
      {"no disc", u"dvdauthor"_s, "", "dvdauthor -x A.xml", "dvdauthor made no " + host + "D/VIDEO_TS/VIDEO_TS.IFO"},
      {"a new disc", u"dvdauthor"_s, "echo x >> D/VIDEO_TS/VIDEO_TS.IFO", "dvdauthor -x A.xml", ""},
  };
  Write(u"A.xml"_s, "<dvdauthor dest=\"C:\\T\\D\"><vmgm/></dvdauthor>");
  QDir().mkpath(Host(u"D/VIDEO_TS"_s));
  for (const auto& c : cases) {
    MakeTool(c.tool, c.does + '\n');
    Write(u"out.mpg"_s, "former");
    Write(u"D/VIDEO_TS/VIDEO_TS.IFO"_s, "former");
    const std::string expected = c.complaint.empty() ? "" : "\r\n*ERROR: " + c.complaint + "\r\n";
    EXPECT_EQ(RunBatch(c.line + "\r\n"), expected) << c.what;
    EXPECT_NE(Read(u"out.mpg"_s), c.tool == u"dvdauthor" ? "(no file)" : "former") << c.what;
    EXPECT_TRUE(Read(u"D/VIDEO_TS/VIDEO_TS.IFO"_s).startsWith("former")) << c.what;
  }
}

TEST_F(Programs, NeverOverwriteWhatTheyReadNorWriteThroughALink) {
  MakeTool(u"mplex"_s, "echo made > \"$2\"; printf '\\000\\000\\001\\271' >> \"$2\"\n");
  QFile::link(Host(u"in.mpg"_s), Host(u"link.mpg"_s));
  QFile::link(u"/dev/full"_s, Host(u"device"_s));
  const std::string both = "would be overwritten while it is read\r\n";
  for (const auto& [line, complaint] : {
           std::pair<QByteArray, std::string>{"mplex -o in.mpg IN.MPG", both},
           {"mplex -o link.mpg in.mpg", both},
           {"probe cat < in.mpg > in.mpg", both},
           {"type in.mpg | probe cat > C:\\T\\link.mpg", both},
           {"png2yuv -j in.mpg > in.mpg", both},
           {"mplex -o device in.mpg", "is a link to something that is no file; nothing is written there\r\n"},
           {"probe out x > device", "is a link to something that is no file; nothing is written there\r\n"},
           {"probe out x >> link.mpg", "Too many levels of symbolic links\r\n"},
       }) {
    Write(u"in.mpg"_s, "source");
    const std::string printed = RunBatch(QByteArray(line).replace("probe", Probe()) + "\r\n");
    EXPECT_TRUE(printed.starts_with("\r\n*ERROR: ") || printed.starts_with("*ERROR: ")) << printed;
    EXPECT_TRUE(printed.ends_with(complaint)) << printed;
    EXPECT_EQ(Read(u"in.mpg"_s), "source") << line.toStdString();
  }
  // A link that leads elsewhere is replaced.
  for (const char* line : {"mplex -o link.mpg x.bat", "probe out made > link.mpg"}) {
    QFile::remove(Host(u"link.mpg"_s));
    QFile::link(Host(u"in.mpg"_s), Host(u"link.mpg"_s));
    EXPECT_EQ(RunBatch(QByteArray(line).replace("probe", Probe()) + "\r\n"), "") << line;
    EXPECT_EQ(Read(u"in.mpg"_s), "source");
    EXPECT_TRUE(Read(u"link.mpg"_s).startsWith("made"));
  }
  EXPECT_EQ(QFile::symLinkTarget(Host(u"device"_s)), u"/dev/full"_s);
}

TEST_F(Programs, AreEndedWhenTheyDoNothingForTooLong) {
  environment_.insert(u"TORVANE_TOOL_PATIENCE"_s, u"0.005"_s);
  ExpectOutputs({
      {"probe sleep\r\necho next %ERRORLEVEL%\r\n",
       "\r\n*ERROR: shell_probe did nothing for 0.005 minutes (ToolPatience) and was ended\r\nnext 143\r\n"},
      {"probe sleep | probe ignore 15 cat\r\n",
       "\r\n*ERROR: shell_probe | shell_probe did nothing for 0.005 minutes (ToolPatience) and was ended\r\n"},
  });
  // One that works, or has others work for it, may take its time; so may all where patience has no end.
  for (const auto& [minutes, work] :
       {std::pair(u"0.02"_s, "for i in 1 2; do sleep 0.4; echo $i >&2; (sleep 0.4; echo $i >> o); done"),
        std::pair(u"0"_s, "sleep 0.4")}) {
    environment_.insert(u"TORVANE_TOOL_PATIENCE"_s, minutes);
    MakeTool(u"dvdauthor"_s, QByteArray(work) + "\n");
    EXPECT_FALSE(Contains(RunBatch("dvdauthor\r\n"), "*ERROR")) << work;
  }
  environment_.insert(u"TORVANE_TOOL_PATIENCE"_s, u"soon"_s);
  EXPECT_EQ(Run({u"/c"_s, u"x.bat"_s}).exitCode, 2);
}

TEST_F(Programs, AreLookedUpByStemAndNamedWithTheirPackageWhenMissing) {
  MakeTool(u"genisoimage"_s, "for a; do printf '[%s]\\n' \"$a\"; done; echo $LC_ALL; echo x > \"$6\"\n");
  EXPECT_EQ(RunBatch("\"C:\\no tools\\MKISOFS.EXE\" -dvd-video -V \"a:\\b\" -udf -o \"C:\\T\\D 1.ISO\" \"C:\\T\"\r\n"),
            "[-dvd-video]\n[-V]\n[a:\\b]\n[-udf]\n[-o]\n[" + Host(u"D 1.ISO"_s).toStdString() + "]\n[" +
                Host({}).chopped(1).toStdString() + "]\nC.UTF-8\n");
  MakeTool(u"png2yuv"_s, "printf '%s\\n' \"$2\"\n");
  EXPECT_EQ(RunBatch("png2yuv -j \"C:\\100%%\\a.png\"\r\n"), Drive().toStdString() + "/100%%/a.png\n");

  environment_.insert(u"PATH"_s, dir_.filePath(u"nothing"_s));
  EXPECT_EQ(
      RunBatch("dvdauthor -x a\r\n\"C:\\t\\SpuMux.exe\" a\r\nmplex\r\nmpeg2enc\r\npng2yuv\r\njpeg2yuv | mpeg2enc\r\n"
               "mkisofs\r\n"),
      "*ERROR: dvdauthor is not installed; install the Debian package dvdauthor\r\n"
      "*ERROR: spumux is not installed; install the Debian package dvdauthor\r\n"
      "*ERROR: mplex is not installed; install the Debian package mjpegtools\r\n"
      "*ERROR: mpeg2enc is not installed; install the Debian package mjpegtools\r\n"
      "*ERROR: png2yuv is not installed; install the Debian package mjpegtools\r\n"
      "*ERROR: jpeg2yuv is not installed; install the Debian package mjpegtools\r\n"
      "*ERROR: genisoimage is not installed; install the Debian package genisoimage\r\n");
}

TEST_F(Programs, GoToWineWhereARealOneLies) {
  Write(u"requant.exe"_s, "MZ\x90");
  Write(u"dvdauthor.exe"_s, "MZ\x90");
  Write(u"Author.xml"_s, "<vob file=\"C:\\T\\a|\"/>");
  environment_.insert(u"PATH"_s, u"/usr/bin:/bin"_s);
  EXPECT_EQ(RunBatch("muxman 1.25 a b\r\n"), "*ERROR: muxman is not available on this system\r\n");
  MakeTool(u"wine"_s,
           "for a; do printf '[%s]\\n' \"$a\"; done; eval last=\\${$#}\n"
           "case $last in *Author.xml) cat \"$(printf %s \"$last\" | tr '\\\\' / | cut -c 3-)\"; echo;; esac\n");
  const QString z = HostFiles::ToDos(Host({}));
  EXPECT_EQ(RunBatch("\"C:\\T\\Requant.exe\" 1.25 \"C:\\T\\a\"\r\n"),
            u"[%1]\n[1.25]\n[%2a]\n"_s.arg(Host(u"requant.exe"_s), z).toStdString());
  const std::string run = RunBatch("\"C:\\T\\dvdauthor\" -w -x \"C:\\T\\Author.xml\"\r\n");
  EXPECT_TRUE(run.starts_with(u"[%1]\n[-w]\n[-x]\n[Z:\\"_s.arg(Host(u"dvdauthor.exe"_s)).toStdString())) << run;
  EXPECT_TRUE(run.find("\n<vob file=\"Z:\\") != std::string::npos) << run;
}

TEST_F(Programs, GetNoNameThatTheyTakeForMoreThanAName) {
  MakeTool(u"dvdauthor"_s, "for a; do last=$a; done; cat \"$last\"\n");
  MakeTool(u"mplex"_s, "for a; do printf '[%s]' \"$a\"; done\n");
  Write(u"Author.xml"_s, "<vob file=\"-\"/><vob file=\"&3\"/><VOB FILE='&#38;3'/><pgc palette=\"a; b |\"/>");
  const QString run = QString::fromStdString(RunBatch("\"C:\\T\\dvdauthor.exe\" -x \"C:\\T\\Author.xml\"\r\n"));
  for (const QString& name : run.split(u'"').sliced(1)) {
    EXPECT_TRUE(name.contains(u'<') || (name.startsWith(u'/') && !name.endsWith(u'|'))) << run.toStdString();
  }
  EXPECT_EQ(run.count(u'"'), 8);
  EXPECT_EQ(RunBatch("\"C:\\T\\mplex.exe\" -M \"-S\" \"a|\"\r\n"), "[-M][./-S][a|]");
}

TEST_F(Programs, EndWithTheConsole) {
  Write(u"Author.xml"_s, "<dvdauthor/>");
  Write(u"x.bat"_s,
        "@echo off\r\ndvdauthor -x Author.xml > half.txt 2>nul | " + Probe() + " cat sleep\r\necho not this\r\n");
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    QProcess process;
    // One that does not heed the request is ended all the same.
    MakeTool(u"dvdauthor"_s, QByteArray(number == SIGTERM ? "trap '' TERM; " : "") +
                                 "echo $$; echo ready; while :; do sleep 1; done\n");
    Write(u"y.bat"_s, "@echo off\r\ndvdauthor -x Author.xml\r\necho not this\r\n");
    Start(process, {u"/c"_s, number == SIGTERM ? u"y.bat"_s : u"x.bat"_s});
    QByteArray printed;
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 10000 && !(number == SIGTERM ? printed : Read(u"half.txt"_s)).contains("ready")) {
      process.waitForReadyRead(20);
      printed += process.readAll();
    }
    const int tool = (number == SIGTERM ? printed : Read(u"half.txt"_s)).split('\n').first().toInt();
    ASSERT_GT(tool, 1) << printed.toStdString();
    EXPECT_EQ(Leftovers().size(), 1);
    waited.restart();
    kill(pid_t(process.processId()), number);
    ASSERT_TRUE(process.waitForFinished(10000));
    EXPECT_LT(waited.elapsed(), 6000);
    EXPECT_EQ(process.exitCode(), 128 + number);
    EXPECT_FALSE(IsRunning(tool));
    EXPECT_FALSE(process.readAll().contains("not this"));
    EXPECT_FALSE(QFile::exists(Host(u"half.txt"_s)));
    EXPECT_EQ(Leftovers(), QStringList());
  }
}

TEST_F(Programs, EndWhenTheConsoleIsKilled) {
  MakeTool(u"mplex"_s, "echo $$; exec sleep 60\n");
  Write(u"x.bat"_s, "@mplex\r\n");
  QProcess process;
  Start(process, {u"/c"_s, u"x.bat"_s});
  ASSERT_TRUE(process.waitForReadyRead(10000));
  const int tool = process.readAll().trimmed().toInt();
  ASSERT_GT(tool, 1);
  process.kill();
  process.waitForFinished();
  QElapsedTimer waited;
  waited.start();
  while (waited.elapsed() < 5000 && IsRunning(tool)) usleep(10000);
  EXPECT_FALSE(IsRunning(tool));
}

TEST_F(Programs, EndWhenNobodyReadsTheConsole) {
  Write(u"x.bat"_s, "@echo off\r\n" + Probe() + " fill\r\n:again\r\necho again\r\ngoto again\r\n");
  QProcess process;
  process.setProcessEnvironment(environment_);
  process.setWorkingDirectory(Host({}));
  process.start(u"/bin/sh"_s, {u"-c"_s, QStringLiteral(TORVANE_BIN_DIR "/torvane-cmd /c x.bat | head -c 1")});
  EXPECT_TRUE(process.waitForFinished(10000));
  EXPECT_EQ(process.readAll(), "x");
}

}  // namespace
}  // namespace torvane::test
