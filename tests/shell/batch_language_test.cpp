#include "console_fixture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using BatchLanguage = ConsoleTest;

TEST_F(BatchLanguage, PrintsWhatTheLinesSay) {
  ExpectOutputs(
      {
          {"echo (shrink and) mux video and audio files\r\n", "(shrink and) mux video and audio files\r\n"},
          {"echo.\r\necho *mux to MMback.mpg\r\nECHO.text\r\n", "\r\n*mux to MMback.mpg\r\ntext\r\n"},
          {"echo \"a & b | c > d\" ^& e ^> f ^^ g\r\n", "\"a & b | c > d\" & e > f ^ g\r\n"},
          {"echo 100%% of %%PATH%%\r\necho a%nothing%b 5% c\r\n", "100% of %PATH%\r\nab 5 c\r\n"},
          {"echo\r\n@echo   hi  \r\necho on the road\r\necho:on\r\n",
           "ECHO is off.\r\n  hi  \r\non the road\r\non\r\n"},
          {"echo a&echo b& echo c&&echo d||echo e\r\n", "a\r\nb\r\nc\r\nd\r\n"},
          {"REM echo a & echo b\r\nrem\r\n:: echo c\r\necho d\r\n", "d\r\n"},
          {"set A=x y\r\nSET \"b=z\"\r\necho [%a%][%B%]\r\nset a=\r\necho [%A%]\r\n", "[x y][z]\r\n[]\r\n"},
          {"set Q1=1\r\nset Q2=a=b\r\nset q\r\nset nothing_such\r\n",
           "Q1=1\r\nQ2=a=b\r\nEnvironment variable nothing_such not defined\r\n"},
          {"echo one ^\r\ntwo\r\n", "one two\r\n"},
          {"goto Over\r\necho a\r\n:OVER here\r\necho b\r\ngoto:eof\r\necho c\r\n", "b\r\n"},
          {"set n=1\r\n:again\r\nif %n%==3 goto end\r\nset n=%n%x\r\nif %n%==1x set n=2\r\nif %n%==2x set n=3\r\n"
           "echo %n%\r\ngoto again\r\n:end\r\n",
           "2\r\n3\r\n"},
          {"if a==a echo same\r\nif not \"a b\"==\"a c\" echo other\r\nIF /I A==a echo case\r\nif A==a echo no\r\n",
           "same\r\nother\r\ncase\r\n"},
          {"if 10 GTR 9 echo number\r\nif b LSS a echo no\r\nif defined Q echo no\r\nset Q=1\r\nif defined q echo "
           "yes\r\n",
           "number\r\nyes\r\n"},
          {"if exist x.bat if exist \"C:\\T\\X.BAT\" echo there & echo too\r\nif exist C:\\nowhere\\nul echo no\r\n"
           "if exist c:\\t\\NUL echo folder\r\nif not exist *.mpg echo none\r\n",
           "there \r\ntoo\r\nfolder\r\nnone\r\n"},
          {"call :sub 1 \"2 3\"\r\necho back %1\r\nexit /b 4\r\n:sub\r\necho %~1-%2-%3\r\n",
           "1-\"2 3\"-\r\nback first\r\n"},
          {"echo 0=%~nx0 1=%1 2=%~2 all=%*\r\n", "0=x.bat 1=first 2=and second all=first \"and second\" %3\r\n"},
          {"exit /b 3 & echo not this\r\n", ""},
          {"cd\r\ncd ..\r\ncd\r\ncd /d C:\\t\r\necho %CD%\r\ncd nowhere\r\n",
           "C:\\T\r\nC:\\\r\nC:\\T\r\nThe system cannot find the path specified.\r\n"},
          {"echo hidden > nul\r\nECHO shown>con.txt\r\ntype CON.TXT\r\n", "shown\r\n"},
          {"echo one>a.txt\r\necho two >> A.TXT\r\n>>a.txt echo three\r\ntype a.txt\r\n", "one\r\ntwo \r\nthree\r\n"},
          {"type nothing 2>e.txt\r\necho -\r\ntype nothing>e2.txt 2>&1\r\ntype e.txt e2.txt\r\n",
           "-\r\nThe system cannot find the file specified.\r\nThe system cannot find the file specified.\r\n"},
          {"echo through| type nothing\r\n", "The system cannot find the file specified.\r\n"},
      },
      {u"first"_s, u"and second"_s, u"%3"_s});
}

TEST_F(BatchLanguage, TellsWhatItCannotDoInALineThatTheScanFinds) {
  ExpectOutputs({
      {"goto nowhere\r\necho no\r\n", "*ERROR: The batch has no label nowhere\r\n"},
      {"call nowhere.bat\r\necho next\r\n",
       "*ERROR: the batch cannot be read: nowhere.bat: No such file or directory\r\nnext\r\n"},
      {"echo a > \r\n", "*ERROR: The syntax of the command is incorrect.\r\n"},
      {"| echo a\r\n", "*ERROR: The syntax of the command is incorrect.\r\n"},
      {"if a==\r\n", "*ERROR: The syntax of the command is incorrect.\r\n"},
      {"frobnicate x\r\n", "*ERROR: frobnicate is neither a command nor a program that exists\r\n"},
      {"\"C:\\tools\\muxman.exe\" -o a b\r\n", "*ERROR: muxman is not available on this system\r\n"},
      {"x.bat\r\n", "*ERROR: batches call each other too deeply\r\n"},
      {"call x.bat & call x.bat\r\n", "*ERROR: batches call each other too deeply\r\n"},
  });
}

TEST_F(BatchLanguage, ShowsCommandsWhileEchoIsOn) {
  Write(u"x.bat"_s, "echo a\r\n@echo b\r\n\r\nset V=%1\r\n@echo off\r\necho c\r\n");
  EXPECT_EQ(Run({u"/c"_s, u"x.bat"_s, u"1"_s}).output, "\r\nC:\\T>echo a\r\na\r\nb\r\n\r\nC:\\T>set V=1\r\nc\r\n");
}

TEST_F(BatchLanguage, AnswersWithErrorLevels) {
  const QByteArray batch = Probe() +
                           " status 3\r\nIF ERRORLEVEL 4 GOTO Four\r\nIF ERRORLEVEL 3 GOTO Three\r\n"
                           "echo none\r\n:Four\r\necho four\r\n:Three\r\necho three %ERRORLEVEL%\r\n";
  EXPECT_EQ(RunBatch(batch), "three 3\r\n");
  Write(u"y.bat"_s, "@exit /b 7\r\n");
  EXPECT_EQ(RunBatch("call y\r\nif not errorlevel 8 if errorlevel 7 echo seven\r\n"), "seven\r\n");
  EXPECT_EQ(Run({u"/c"_s, u"y.bat"_s}).exitCode, 7);
  EXPECT_EQ(Run({u"/c"_s, u"exit"_s, u"5"_s}).exitCode, 5);
}

TEST_F(BatchLanguage, ComplainsOfAStatusThatNobodyAsksAboutAndTellsItWithItsOwn) {
  const struct {
    QByteArray lines;
    bool complains;
  } cases[] = {
      {"probe status 3\r\n\r\n:next\r\n@if not errorlevel 1 echo no\r\n", false},
      {"if exist x.bat probe status 3\r\nIF %ErrorLevel% == 3 echo three\r\n", false},
      {"probe status 3 & if errorlevel 1 echo asked\r\n", false},
      {"probe status 3 || echo asked\r\n", false},
      {"exit /b 7\r\n", false},
      {"probe status 3\r\n", true},
      {"probe status 3\r\necho between\r\nif errorlevel 1 echo late\r\n", true},
      {"probe status 3 && echo no\r\n", true},
      {"probe signal 9\r\nif errorlevel 1 echo asked\r\n", true},
      {"probe status 3 | probe cat\r\nif errorlevel 1 echo asked\r\n", true},
      {"nothing.exe\r\nif errorlevel 1 echo asked\r\n", true},
      {"if exist\r\n", true},
  };
  for (auto [lines, complains] : cases) {
    Write(u"x.bat"_s, "@echo off\r\n" + lines.replace("probe", Probe()));
    const ConsoleRun run = Run({u"/k"_s, u"x.bat"_s});
    EXPECT_EQ(Contains(run.output, "*ERROR"), complains) << lines.toStdString();
    EXPECT_EQ(run.exitCode, complains ? 120 : 0) << lines.toStdString();
  }
}

TEST_F(BatchLanguage, CallReturnsAndAPlainBatchDoesNot) {
  Write(u"MMBrun1.bat"_s, "@echo off\r\necho one %1\r\n");
  EXPECT_EQ(RunBatch("Call mmbrun1.bat x\r\nMMBrun1 y\r\necho not this\r\n"), "one x\r\none y\r\n");
}

TEST_F(BatchLanguage, ClosesWithAPrompt) {
  Write(u"x.bat"_s, "@echo off\r\necho done\r\n");
  EXPECT_EQ(Run({u"/k"_s, u"X.BAT"_s}).output, "done\r\n\r\nC:\\T>");
  EXPECT_EQ(Run({}).output, "C:\\T>");
  const ConsoleRun typed = Run({}, "echo a\r\ncd ..\necho %CD% 5% %%\nexit 6\necho no\n");
  EXPECT_EQ(typed.output, "C:\\T>a\r\n\r\nC:\\T>\r\nC:\\>C:\\ 5% %%\r\n\r\nC:\\>");
  EXPECT_EQ(typed.exitCode, 6);
}

TEST_F(BatchLanguage, TakesCommandLinesAsTheShellOfThisMachineHandsThem) {
  Write(u"a b.bat"_s, "@echo [%1] [%2]\r\n");
  EXPECT_EQ(Run({u"/c"_s, u"a b.bat"_s, u"x"_s, u"y z"_s}).output, "[x] [\"y z\"]\r\n");
  EXPECT_EQ(Run({u"/C"_s, Host(u"a b.bat"_s)}).output, "[] []\r\n");
  EXPECT_EQ(Run({u"/c"_s, u"echo a& echo b"_s}).output, "a\r\nb\r\n");
  EXPECT_EQ(Run({u"/x"_s}).exitCode, 2);
  EXPECT_TRUE(Run({u"--help"_s}).output.find("torvane-cmd /c author.bat\n") != std::string::npos);
}

TEST_F(BatchLanguage, ReadsBothEncodingsAndPrintsOne) {
  Write(u"Größe.txt"_s, "found\r\n");
  EXPECT_EQ(RunBatch("echo \x84\xC3\xA4\xE1\r\ntype \"C:\\T\\Gr\x94\xE1"
                     "e.txt\"\r\ntype Gr\xC3\xB6\xC3\x9F"
                     "e.txt\r\n"),
            "ääß\r\nfound\r\nfound\r\n");
}

TEST_F(BatchLanguage, DeletesAndMakesAsDosDoes) {
  for (const char* name : {"A.MPG", "b.mpg", "noending", "c.mpg.bak", ".hidden"}) Write(QString::fromLatin1(name), "x");
  QDir(Host({})).mkdir(u"folder.mpg"_s);
  EXPECT_EQ(RunBatch("erase \"C:\\T\\*.mpg\" /Q\r\ndel /q c.mpg.b?k\r\nerase nothing\r\n"),
            "Could Not Find nothing\r\n");
  EXPECT_EQ(Files(), (QStringList{u".hidden"_s, u"noending"_s, u"x.bat"_s}));
  EXPECT_TRUE(QDir(Host(u"folder.mpg"_s)).exists());

  EXPECT_EQ(RunBatch("mkdir \"C:\\T\\TempSub.d\\a b\"\r\nmd TempSub.d\r\nrmdir TempSub.d\r\n"
                     "erase TempSub.d\\*.* /Q\r\nrd \"TempSub.d\\a b\"\r\nrmdir tempsub.d\r\nrmdir tempsub.d\r\n"
                     "mkdir z\\y\r\necho a>z\\y\\f\r\nrmdir /S /Q z\r\nif not exist z echo gone\r\n"),
            "A subdirectory or file TempSub.d already exists.\r\nThe directory is not empty.\r\n"
            "Could Not Find TempSub.d\\*.*\r\nThe system cannot find the file specified.\r\ngone\r\n");

  EXPECT_EQ(RunBatch("erase *.* /Q\r\n"), "");
  EXPECT_EQ(Files(), QStringList());
}

TEST_F(BatchLanguage, StaysOnTheCurrentDriveAndSparesTheRootOfTheMachine) {
  Write(u"a.txt"_s, "a\r\n");
  QFile outside(dir_.filePath(u"outside.txt"_s));
  ASSERT_TRUE(outside.open(QIODevice::WriteOnly));
  outside.close();
  EXPECT_EQ(RunBatch("cd \\\r\ncd\r\ncd ..\r\ncd ..\\..\\T\r\ncd\r\ntype \\T\\a.txt\r\ntype C:a.txt\r\n"
                     "type ..\\..\\t\\a.txt\r\necho b> \\b.txt\r\nif exist C:\\..\\b.txt echo there\r\n"
                     "erase \\..\\*.txt /Q\r\nif not exist \\b.txt echo gone\r\nC:\r\ncd\r\n"),
            "C:\\\r\nC:\\T\r\na\r\na\r\na\r\nthere\r\ngone\r\nC:\\\r\n");
  EXPECT_TRUE(outside.exists());

  // No file here answers to this name, so that a failure of the guard would do no harm.
  EXPECT_EQ(RunBatch("erase Z:\\torvane-no-such-*.* /Q\r\nZ:\r\nerase torvane-no-such-*.* /Q\r\n"
                     "mkdir C:\\T\\d\r\nrmdir /S /Q Z:\\torvane-no-such\r\n"),
            "*ERROR: erase takes no wildcard in the root of this machine\r\n"
            "*ERROR: erase takes no wildcard in the root of this machine\r\n"
            "The system cannot find the file specified.\r\n");
}

TEST_F(BatchLanguage, KeepsReadOnlyFilesUntilAttribFreesThem) {
  Write(u"Film1_req.mpv"_s, "x");
  EXPECT_EQ(RunBatch("attrib +r Film1_req.mpv\r\nerase Film1_req.mpv\r\nattrib -r \"C:\\T\\Film1_req.mpv\"\r\n"
                     "erase \"C:\\T\\Film1_req.mpv\"\r\nattrib -r gone\r\n"),
            "Film1_req.mpv\r\nAccess is denied.\r\nFile not found - gone\r\n");
  EXPECT_EQ(Files(), QStringList{u"x.bat"_s});
}

TEST_F(BatchLanguage, CopiesFiles) {
  Write(u"Sub.sup"_s, QByteArray("a\0b\x1A", 4) + QByteArray(100000, 'x'));
  Write(u"1.txt"_s, "1");
  Write(u"2.txt"_s, "2");
  EXPECT_EQ(RunBatch("copy \"C:\\T\\sub.SUP\" \"C:\\T\\TempSub.sup\"\r\nmkdir d\r\ncopy /Y /B *.txt d\r\n"
                     "copy nothing d\r\ncopy 1.txt 1.txt\r\ntype d\\1.txt d\\2.txt\r\n"),
            "        1 file(s) copied.\r\n        2 file(s) copied.\r\n"
            "The system cannot find the file specified.\r\n"
            "The file cannot be copied onto itself.\r\n        0 file(s) copied.\r\n12");
  EXPECT_EQ(Read(u"TempSub.sup"_s), Read(u"Sub.sup"_s));
  EXPECT_EQ(Read(u"1.txt"_s), "1");
}

}  // namespace
}  // namespace torvane::test
