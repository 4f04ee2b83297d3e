#include "run/batch_run.h"

#include <gtest/gtest.h>

#include <QFile>
#include <csignal>

#include "platform/host_files.h"
#include "run/console_capture.h"
#include "run/interrupt_watch.h"
#include "run/temp_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Plays back what was written for each command line, and records in which directory it ran.
class FakeConsole : public Console {
 public:
  struct Play {
    QStringList chunks;
    ConsoleEnd end;
    std::function<void()> meanwhile = [] {};
  };

  QString CommandLine() const override { return {}; }
  std::int32_t ProcessID() const override { return 0; }
  void Cancel() override {}
  void Terminate() override { ++terminated; }

  ConsoleEnd RunProcess(const QString& commandLine, const QString& directory, ConsoleClient& client) override {
    ran << commandLine + u" in "_s + directory;
    const Play play = plays.value(commandLine, Play{{u"C:\\T>"_s}, {}});
    for (const QString& chunk : play.chunks) {
      client.BeforePoll();
      client.ReadProcess(chunk);
      client.Pump();
    }
    play.meanwhile();
    return play.end;
  }

  QHash<QString, Play> plays;
  QStringList ran;
  int terminated = 0;
};

/// Writes down each event of a run as a line.
class Recorder : public RunListener {
 public:
  void TextAppended(const QString& text) override {
    shown += text;
    events << u"text "_s + QString(text).replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s);
  }
  void CaptionChanged(const QString& caption) override { events << u"caption "_s + caption; }
  void StepStarted(qsizetype index, qsizetype count, const QString& batch) override {
    events << u"step %1/%2 %3"_s.arg(index).arg(count).arg(batch);
  }
  void StepEnded(qsizetype index, double seconds) override { events << u"ended %1 %2 s"_s.arg(index).arg(seconds); }
  void Marked(const RunMark& mark) override { events << u"red "_s + shown.mid(mark.from, mark.length).trimmed(); }
  void SignShown(RunSign sign) override { events << (sign == RunSign::Error ? u"error sign"_s : u"success sign"_s); }
  void Finished(RunOutcome outcome) override { events << u"outcome %1"_s.arg(int(outcome)); }
  void Pump() override { onPump(); }

  QString shown;
  QStringList events;
  std::function<void()> onPump = [] {};
};

/// Finds fault with what one step has made, and writes down what it is asked.
class FaultFinder : public RunKeeper {
 public:
  QStringList StepEnded(const QString& batch, bool failed) override {
    asked << batch + (failed ? u" failed"_s : u""_s);
    return batch == faultyBatch ? QStringList{u"The disc is not whole."_s} : QStringList();
  }
  void RunEnded() override { asked << u"end"_s; }

  QString faultyBatch;
  QStringList asked;
};

class BatchRunTest : public testing::Test {
 protected:
  BatchRunTest() {
    clock_.now = [] { return QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9)); };
    clock_.milliseconds = [this] { return milliseconds_ += 1500; };
  }

  static RunRequest Request(const QStringList& batches) {
    RunRequest request;
    request.BatchList = batches;
    request.TempDir = u"C:\\T"_s;
    request.OutDir = u"C:\\O"_s;
    return request;
  }
  RunOutcome Run(const RunRequest& request) { return BatchRun(request, console_, recorder_, clock_).RunToEnd(); }

  static QByteArray Log(const QString& dosPath = u"C:\\O\\TorvaneAuthor.log"_s) {
    const Result<QByteArray> content = HostFiles::Read(dosPath);
    return content ? *content : "failed: " + content.Error().toUtf8();
  }
  static void Make(const QString& dosPath, const QByteArray& content = "x") {
    ASSERT_TRUE(HostFiles::WriteAtomically(dosPath, content));
  }

  test::DriveC drive_{{u"T"_s, u"O"_s}};
  FakeConsole console_;
  Recorder recorder_;
  RunClock clock_;
  qint64 milliseconds_ = 0;
};

TEST_F(BatchRunTest, RunsAllStepsAndWritesTheLog) {
  Make(u"C:\\O\\TorvaneAuthor.log"_s, QByteArray(5000, 'z'));
  Make(u"C:\\T\\spumux.exe.stackdump"_s);
  QByteArray logMeanwhile;
  console_.plays[u"cmd.exe"_s] = {{u"Console\r\nC:\\T>"_s}, {}};
  console_.plays[u"cmd /k a.bat"_s] = {{u"größe\r\n"_s, u"größe\r\n"_s, u"50%>"_s, u"\r\nC:\\T>"_s}, {}};
  console_.plays[u"cmd /k b.bat"_s] = {{u"C:\\T>"_s}, {}, [&] { logMeanwhile = Log(); }};
  BatchRun run(Request({u"a.bat"_s, u"b.bat"_s}), console_, recorder_, clock_);
  EXPECT_EQ(run.RunToEnd(), RunOutcome::Finished);
  EXPECT_EQ(recorder_.events.join(u'\n'),
            uR"(caption BatchRun Log
text Console\r\nC:\T>
caption BatchRun Log   Running: a.bat
text Time: 2024-05-06 07:08:09\r\n
step 0/2 a.bat
text größe\r\n
text 50%>
text \r\nC:\T>
ended 0 1.5 s
caption BatchRun Log   Running: b.bat
text Time: 2024-05-06 07:08:09\r\n
step 1/2 b.bat
text C:\T>
ended 1 1.5 s
success sign
caption BatchRun Log   Finished
outcome 0)");
  EXPECT_EQ(logMeanwhile,
            "Start CaptureConsole\r\n"
            "Capture console running; Next command: cmd /k a.bat\r\n"
            "Capture console running; Next command: cmd /k b.bat\r\n");
  EXPECT_EQ(Log(),
            u"Console\r\nC:\\T>Time: 2024-05-06 07:08:09\r\ngröße\r\n50%>\r\nC:\\T>"
            "Time: 2024-05-06 07:08:09\r\nC:\\T>"_s.toUtf8());
  EXPECT_EQ(run.PromptText(), u"C:\\T"_s);
  EXPECT_EQ(console_.ran, (QStringList{u"cmd.exe in C:\\T"_s, u"cmd /k a.bat in C:\\T"_s, u"cmd /k b.bat in C:\\T"_s}));
  EXPECT_EQ(run.RequestClose(), BatchRun::CloseAnswer::MayClose);
  run.Tick();
  EXPECT_EQ(recorder_.events.size(), 17);
}

TEST_F(BatchRunTest, AnErrorWordStopsTheStepsBehind) {
  console_.plays[u"cmd /k a.bat"_s] = {{u"*ERROR: no\r\nC:\\T>"_s}, {}};
  EXPECT_EQ(Run(Request({u"a.bat"_s, u"b.bat"_s})), RunOutcome::Failed);
  EXPECT_EQ(recorder_.events.sliced(5).join(u'\n'),
            uR"(text *ERROR: no\r\nC:\T>
ended 0 1.5 s
caption BatchRun Log   Running: b.bat
text Time: 2024-05-06 07:08:09\r\n
red *ERROR: no
error sign
caption BatchRun Log   Finished
outcome 1)");
}

TEST_F(BatchRunTest, AnErrorWordOfTheLastStepFailsTheRun) {
  console_.plays[u"cmd /k a.bat"_s] = {{u"x\nERR: no\r\n"_s}, {}};
  RunRequest request = Request({u"a.bat"_s});
  for (const auto& [mode, outcome] : {std::pair(u"0"_s, RunOutcome::Failed), std::pair(u"1"_s, RunOutcome::Finished),
                                      std::pair(QString(), RunOutcome::Finished)}) {
    request.RunMode = mode;
    EXPECT_EQ(Run(request), outcome) << mode.toStdString();
  }
}

TEST_F(BatchRunTest, AStepWhoseWorkIsNotWholeFailsTheRun) {
  struct Case {
    QString faulty, broken, asked;
    RunOutcome outcome;
  };
  const Case cases[] = {
      {{}, {}, u"a.bat b.bat end"_s, RunOutcome::Finished},
      {u"a.bat"_s, {}, u"a.bat end"_s, RunOutcome::Failed},
      {u"b.bat"_s, {}, u"a.bat b.bat end"_s, RunOutcome::Failed},
      {{}, u"a.bat"_s, u"a.bat failed end"_s, RunOutcome::Failed},
      {{}, u"b.bat"_s, u"a.bat b.bat failed end"_s, RunOutcome::Failed},
  };
  for (const Case& c : cases) {
    FaultFinder keeper;
    keeper.faultyBatch = c.faulty;
    RunRequest request = Request({u"a.bat"_s, u"b.bat"_s});
    request.keeper = &keeper;
    console_.plays = {{u"cmd /k "_s + c.broken, {{u"*ERROR it broke\r\nC:\\T>"_s}, {}}}};
    EXPECT_EQ(Run(request), c.outcome);
    EXPECT_EQ(keeper.asked.join(u' '), c.asked);
    EXPECT_EQ(Log().contains("\r\n*ERROR The disc is not whole.\r\n"), !c.faulty.isEmpty());
  }
}

TEST_F(BatchRunTest, AStepFailsByWhatItSaidAsItCameAndByTheConsolesStatus) {
  // Between the blank lines of one piece of output the complaint looks like a repeat, which is not shown.
  const QString swallowed = u"mux\r\n\r\n*ERROR: mplex died\r\n\r\nC:\\T>"_s;
  ASSERT_FALSE(RepairRepeatedLines(swallowed).contains(u"*ERROR"));
  const ConsoleEnd complained{ConsoleEnd::Kind::Exited, 120, {}};
  const QByteArray statusLine = "\r\n*ERROR The console running cmd /k a.bat ended with status 120\r\n";
  const QString missing = u"*ERROR: dvdauthor is missing\r\n"_s;
  const struct {
    const char* what;
    QString runMode, text;
    ConsoleEnd end;
    QByteArray logEnd;
    QString marked;
  } cases[] = {
      {"swallowed", u"0"_s, swallowed, {}, "\r\n*ERROR: mplex died\r\n", u"red *ERROR: mplex died"_s},
      {"no word", u"0"_s, u"C:\\T>"_s, complained, statusLine, u"red "_s + QString::fromUtf8(statusLine).trimmed()},
      {"a word and a status", u"0"_s, missing, complained, "*ERROR: dvdauthor is missing\r\n",
       u"red "_s + missing.trimmed()},
      {"syntax check", u"1"_s, missing, complained, "*ERROR: dvdauthor is missing\r\n", u"red "_s + missing.trimmed()},
  };
  for (const auto& c : cases) {
    Recorder recorder;
    FaultFinder keeper;
    console_.plays = {{u"cmd /k a.bat"_s, {{c.text}, c.end}}};
    RunRequest request = Request({u"a.bat"_s});
    request.RunMode = c.runMode;
    request.keeper = &keeper;
    EXPECT_EQ(BatchRun(request, console_, recorder, clock_).RunToEnd(), RunOutcome::Failed) << c.what;
    EXPECT_TRUE(Log().endsWith(c.logEnd)) << c.what << Log().toStdString();
    EXPECT_TRUE(recorder.events.contains(c.marked)) << c.what << recorder.events.join(u'\n').toStdString();
    EXPECT_EQ(keeper.asked.join(u' '), u"a.bat failed end"_s) << c.what;
  }
}

TEST_F(BatchRunTest, AStackdumpFailsTheRunAtEachScan) {
  console_.plays[u"cmd /k a.bat"_s] = {{u"C:\\T>"_s}, {}, [] { Make(u"C:\\T\\spumux.exe.stackdump"_s); }};
  EXPECT_EQ(Run(Request({u"a.bat"_s, u"b.bat"_s})), RunOutcome::Failed);
  EXPECT_EQ(Log(),
            "C:\\T>Time: 2024-05-06 07:08:09\r\nTime: 2024-05-06 07:08:09\r\n"
            "*ERROR spumux crashed (stackdump)\r\n*ERROR spumux crashed (stackdump)\r\n");
}

TEST_F(BatchRunTest, ClosingAbortsBehindTheRunningStepAndIsRefusedUntilThen) {
  std::vector<BatchRun::CloseAnswer> answers;
  console_.plays[u"cmd /k a.bat"_s] = {{u"one\r\n"_s, u"two\r\n"_s, u"C:\\T>"_s}, {}};
  RunRequest request = Request({u"a.bat"_s, u"b.bat"_s, u"c.bat"_s});
  request.KeepLogFile = true;
  request.TVNLogFile = u"C:\\O\\all.log"_s;
  request.LogText = u"Project: P %1\r\n"_s;
  Make(request.TVNLogFile, "before\r\n");
  BatchRun run(request, console_, recorder_, clock_);
  run.Open();
  recorder_.onPump = [&] {
    run.Tick();
    if (answers.size() < 2) answers.push_back(run.RequestClose());
  };
  run.Tick();
  EXPECT_FALSE(run.IsClosed());
  run.Tick();
  EXPECT_TRUE(run.IsClosed());
  answers.push_back(run.RequestClose());
  using enum BatchRun::CloseAnswer;
  EXPECT_EQ(answers, (std::vector{Aborting, Busy, MayClose}));
  EXPECT_EQ(run.Outcome(), RunOutcome::Aborted);
  EXPECT_EQ(recorder_.events.sliced(4).join(u'\n'),
            uR"(step 0/3 a.bat
text one\r\n
caption BatchRun Log   Running: a.bat     Aborting...
text two\r\n
text C:\T>
ended 0 1.5 s
success sign
caption BatchRun Log   Aborted
outcome 2)");
  EXPECT_EQ(Log(request.TVNLogFile),
            "before\r\n\r\n\r\nProject: P %1\r\nTime: 2024-05-06 07:08:09  BatchRun Log Aborted\r\n\r\n");
}

TEST_F(BatchRunTest, ClosingBetweenTheLastStepAndTheClosingWorkDoesThatWork) {
  BatchRun run(Request({u"a.bat"_s}), console_, recorder_, clock_);
  run.Open();
  run.Tick();
  EXPECT_EQ(run.RequestClose(), BatchRun::CloseAnswer::MayClose);
  EXPECT_EQ(run.Outcome(), RunOutcome::Finished);
  EXPECT_EQ(Log(), "C:\\T>Time: 2024-05-06 07:08:09\r\n");
}

TEST_F(BatchRunTest, CleansUpWhateverTheOutcomeButNeverASource) {
  for (const bool fails : {false, true}) {
    ASSERT_TRUE(TempFiles(u"C:\\T"_s).Note({u"Author.xml"_s, u"a.bat"_s, u"source.mpg"_s, u"TorvaneAuthor.log"_s}));
    for (const QString& file : {u"Author.xml"_s, u"a.bat"_s, u"source.mpg"_s, u"mine.mpg"_s}) Make(u"C:\\T\\"_s + file);
    console_.plays[u"cmd /k a.bat"_s] = {{fails ? u"*ERROR\r\n"_s : u"fine\r\n"_s}, {}};
    RunRequest request = Request({u"a.bat"_s});
    request.AutoDelete = true;
    request.OutDir = u"C:\\T"_s;
    request.protectedFiles = {u"c:\\t\\SOURCE.mpg"_s};
    EXPECT_EQ(Run(request), fails ? RunOutcome::Failed : RunOutcome::Finished);
    EXPECT_EQ(HostFiles::FileNames(u"C:\\T"_s).join(u' '), u".torvane-files TorvaneAuthor.log mine.mpg source.mpg");
  }
}

TEST_F(BatchRunTest, NoLogIsWrittenThroughALink) {
  Make(u"C:\\mine"_s);
  ASSERT_TRUE(QFile::link(drive_.Host(u"mine"_s), drive_.Host(u"O/TorvaneAuthor.log"_s)));
  ASSERT_TRUE(QFile::link(drive_.Host(u"mine"_s), drive_.Host(u"O/all.log"_s)));
  RunRequest request = Request({u"a.bat"_s});
  request.KeepLogFile = true;
  request.TVNLogFile = u"C:\\O\\all.log"_s;
  EXPECT_EQ(Run(request), RunOutcome::Finished);
  EXPECT_EQ(Log(u"C:\\mine"_s), "x");
  EXPECT_TRUE(Log().contains("Time: 2024"));
  EXPECT_TRUE(recorder_.shown.contains(u"/O/all.log: ")) << recorder_.shown.toStdString();
}

TEST_F(BatchRunTest, TakesTheLogsOfMuxManAndImgBurn) {
  Make(u"C:\\O\\muxman.log"_s, "old");
  console_.plays[u"cmd /k Author.bat"_s] = {
      {u"C:\\T>"_s}, {}, [] { Make(u"C:\\O\\muxman.log"_s, "Multiplexing\r\n"); }};
  console_.plays[u"cmd /k ImgBurnRun.bat"_s] = {
      {u"one\r\n"_s, u"C:\\T>"_s}, {}, [] { Make(u"C:\\O\\ImgBurn.log"_s, "burnt\r\n"); }};
  const QString time = u"Time: 2024-05-06 07:08:09\r\n"_s;
  const struct {
    const char* what;
    int engine;
    bool burn, useImgBurn, disc;
    RunOutcome outcome;
    QString log;
  } cases[] = {
      {"disc and burn", 1, true, true, true, RunOutcome::Finished,
       u"C:\\T>"_s + time + u"Multiplexing\r\n"_s + time + u"one\r\nC:\\T>burnt\r\n"_s},
      {"not burnt with ImgBurn", 1, true, false, true, RunOutcome::Finished,
       u"C:\\T>"_s + time + u"Multiplexing\r\n"_s + time + u"one\r\nC:\\T>"_s},
      {"no disc", 1, true, true, false, RunOutcome::Failed,
       u"C:\\T>"_s + time + u"Multiplexing\r\n\r\nMuxMan error!"_s + time},
      {"dvdauthor", 0, false, true, false, RunOutcome::Finished, u"C:\\T>"_s + time + time + u"one\r\nC:\\T>"_s},
  };
  for (const auto& c : cases) {
    const QString ifo = u"C:\\O\\DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s;
    HostFiles::MakeDir(u"C:\\O\\DVD\\VIDEO_TS"_s);
    HostFiles::RemoveFile(ifo);
    if (c.disc) Make(ifo);
    RunRequest request = Request({u"Author.bat"_s, u"ImgBurnRun.bat"_s});
    request.Engine = c.engine;
    request.BurnRequested = c.burn;
    request.UseImgBurn = c.useImgBurn;
    BatchRun run(request, console_, recorder_, clock_);
    EXPECT_EQ(run.RunToEnd(), c.outcome) << c.what;
    EXPECT_EQ(run.ConsoleText(), c.log) << c.what;
    EXPECT_TRUE(c.engine == 0 || HostFiles::DirExists(u"C:\\O\\DVD\\AUDIO_TS"_s));
  }
}

TEST_F(BatchRunTest, AConsoleThatFailsFailsTheRunWithALine) {
  const struct {
    QString command;
    ConsoleEnd end;
    QByteArray log;
  } cases[] = {
      {u"cmd.exe"_s,
       {ConsoleEnd::Kind::NotRun, 0, {0x80040192, u"ConsoleCapture"_s, u"Not launched"_s, u"/x: missing"_s}},
       "C:\\T>\r\n*ERROR Not launched (ConsoleCapture 0x80040192) for cmd.exe: /x: missing\r\n"},
      {u"cmd /k a.bat"_s,
       {ConsoleEnd::Kind::Signalled, 9, {}},
       "C:\\T>Time: 2024-05-06 07:08:09\r\nhalf\r\n"
       "*ERROR The console running cmd /k a.bat was ended by signal 9 (Killed)\r\n"},
  };
  for (const auto& c : cases) {
    console_.plays.clear();
    console_.plays[c.command] = {{c.command == u"cmd.exe"_s ? u"C:\\T>"_s : u"half"_s}, c.end};
    EXPECT_EQ(Run(Request({u"a.bat"_s, u"b.bat"_s})), RunOutcome::Failed);
    EXPECT_EQ(Log(), c.log);
  }
  EXPECT_FALSE(console_.ran.contains(u"cmd /k b.bat in C:\\T"_s));
}

TEST_F(BatchRunTest, ALogThatCannotBeWrittenFailsTheRunBeforeItStarts) {
  RunRequest request = Request({u"a.bat"_s});
  request.OutDir = u"C:\\nowhere"_s;
  BatchRun run(request, console_, recorder_, clock_);
  EXPECT_EQ(run.RunToEnd(), RunOutcome::Failed);
  EXPECT_EQ(console_.ran, QStringList());
  const QString line =
      u"*ERROR The log file cannot be written: %1/nowhere/TorvaneAuthor.log: No such file or directory"_s;
  EXPECT_EQ(run.ShownText(), u"\r\n"_s + line.arg(drive_.Path()) + u"\r\n"_s);
}

TEST_F(BatchRunTest, NoStepsAreARunThatFinishes) {
  EXPECT_EQ(Run(Request({})), RunOutcome::Finished);
  EXPECT_EQ(console_.ran, QStringList{u"cmd.exe in C:\\T"_s});
}

TEST_F(BatchRunTest, TheFirstInterruptAbortsAndTheSecondEndsTheStep) {
  ConsoleCapture console(QStringLiteral(TORVANE_BIN_DIR "/run_console_helper"));
  BatchRun run(Request({u"hang"_s, u"exit 3"_s}), console, recorder_, clock_);
  std::vector<InterruptWatch::Effect> effects;
  {
    InterruptWatch interrupts;
    int pumps = 0;
    recorder_.onPump = [&] {
      if (run.ShownText().endsWith(u'\n') && run.ShownText().count(u'\n') > 2 && ++pumps <= 2) raise(SIGINT);
      const auto effect = interrupts.ApplyTo(run);
      if (effect != InterruptWatch::Effect::None) effects.push_back(effect);
    };
    EXPECT_EQ(run.RunToEnd(), RunOutcome::Aborted);
  }
  using enum InterruptWatch::Effect;
  EXPECT_EQ(effects, (std::vector{StopsAfterStep, StopsNow}));
  EXPECT_EQ(run.Caption(), u"BatchRun Log   Aborted"_s);
  EXPECT_FALSE(run.ShownText().contains(u"*ERROR"_s)) << run.ShownText().toStdString();
}

}  // namespace
}  // namespace torvane
