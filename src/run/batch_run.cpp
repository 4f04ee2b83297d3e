#include "run/batch_run.h"

#include <QThread>
#include <chrono>
#include <cstring>
#include <optional>
#include <utility>

#include "platform/host_files.h"
#include "run/source_guard.h"
#include "run/temp_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Number(std::uint32_t number) {
  return u"0x"_s + QString::number(number, 16).rightJustified(8, u'0').toUpper();
}

/// What is wrong with the way a console ended, in a line for the user; "" when nothing is.
QString FaultOf(const ConsoleEnd& end, const QString& commandLine) {
  switch (end.kind) {
    case ConsoleEnd::Kind::NotRun: {
      const ConsoleError& error = end.error;
      const QString detail = error.detail.isEmpty() ? QString() : u": "_s + error.detail;
      return u"%1 (%2 %3) for %4%5"_s.arg(error.text, error.source, Number(error.number), commandLine, detail);
    }
    case ConsoleEnd::Kind::Signalled:
      return u"The console running %1 was ended by signal %2 (%3)"_s.arg(commandLine, QString::number(end.code),
                                                                         QString::fromLocal8Bit(strsignal(end.code)));
    case ConsoleEnd::Kind::Exited:
      if (end.code == 0) break;
      return u"The console running %1 ended with status %2"_s.arg(commandLine, QString::number(end.code));
    case ConsoleEnd::Kind::Cancelled:
      break;
  }
  return {};
}

}  // namespace

qint64 RunClock::SteadyMilliseconds() {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
}

BatchRun::BatchRun(RunRequest request, Console& console, RunListener& listener, RunClock clock)
    : request_(std::move(request)),
      console_(console),
      listener_(listener),
      clock_(std::move(clock)),
      transcript_([this](const QString& text) { listener_.TextAppended(text); }),
      scan_(request_.Engine, request_.RunMode, request_.TempDir),
      muxManLog_(ToolLog::Tool::MuxMan, request_.OutDir, transcript_, [this](int ms) { Pause(ms); }),
      imgBurnLog_(ToolLog::Tool::ImgBurn, request_.OutDir, transcript_, [this](int ms) { Pause(ms); }),
      runLog_(request_.OutDir + u"\\TorvaneAuthor.log"_s),
      lastIndex_(request_.BatchList.size() - 1) {}

BatchRun::~BatchRun() = default;

void BatchRun::Open() {
  if (request_.Engine != 0) {
    HostFiles::RemoveFile(request_.OutDir + u"\\muxman.log"_s);
    for (const QString& folder : {u"\\DVD"_s, u"\\DVD\\VIDEO_TS"_s, u"\\DVD\\AUDIO_TS"_s}) {
      HostFiles::MakeDir(request_.OutDir + folder);
    }
  }
  HostFiles::RemoveFile(scan_.StackdumpFile());
  SetCaption(u"BatchRun Log"_s);
  runFinished_ = request_.BatchList.isEmpty();
  if (const Status started = runLog_.Start(u"Start CaptureConsole"_s); !started) {
    logFailed_ = true;
    FailWithLine(u"The log file cannot be written: "_s + started.Error());
    return;
  }
  const QString commandLine = u"cmd.exe"_s;
  TellFault(RunConsole(commandLine), commandLine, 0);
}

void BatchRun::Tick() {
  if (stepRunning_ || closed_) return;
  if (runFinished_) {
    CloseRun();
  } else {
    StartStep();
  }
}

RunOutcome BatchRun::RunToEnd() {
  Open();
  while (!closed_) {
    listener_.Pump();
    Tick();
  }
  return Outcome();
}

BatchRun::CloseAnswer BatchRun::RequestClose() {
  if (closed_) return CloseAnswer::MayClose;
  if (nextIndex_ <= lastIndex_) {
    Abort();
    return CloseAnswer::Aborting;
  }
  if (stepRunning_) return CloseAnswer::Busy;
  CloseRun();
  return CloseAnswer::MayClose;
}

void BatchRun::Terminate() {
  if (closed_) return;
  if (nextIndex_ <= lastIndex_) Abort();
  terminated_ = true;
  console_.Terminate();
}

void BatchRun::Abort() {
  StartNoMore();
  runAborted_ = true;
  SetCaption(caption_ + u"     Aborting..."_s);
}

RunOutcome BatchRun::Outcome() const {
  if (runAborted_) return RunOutcome::Aborted;
  return errorShown_ ? RunOutcome::Failed : RunOutcome::Finished;
}

void BatchRun::StartStep() {
  const qsizetype index = nextIndex_;
  const QString batch = request_.BatchList[index];
  runLog_.AddLine(u"Capture console running; Next command: cmd /k "_s + batch);
  SetCaption(u"BatchRun Log   Running: "_s + batch);
  transcript_.Add(u"Time: %1\r\n"_s.arg(Now()));
  if (!ScanFindsNothing()) {
    StartNoMore();
    return;
  }
  listener_.StepStarted(index, request_.BatchList.size(), batch);
  const qint64 started = clock_.milliseconds();
  const qsizetype from = transcript_.Shown().size();
  const QString commandLine = u"cmd /k "_s + batch;
  const ConsoleEnd end = RunConsole(commandLine);
  listener_.StepEnded(index, double(clock_.milliseconds() - started) / 1000);
  if (nextIndex_ == lastIndex_) runFinished_ = true;
  ++nextIndex_;
  TellFault(end, commandLine, from);
  EndStep(batch);
}

/// Judges the step that has ended, also the last one: what it has made is kept or not by this. The error words that it
/// printed are marked by the scan that follows.
void BatchRun::EndStep(const QString& batch) {
  if (!request_.keeper) return;
  const bool failed = errorShown_ || terminated_ || scan_.FindsError(transcript_);
  for (const QString& fault : request_.keeper->StepEnded(batch, failed)) FailWithLine(fault);
}

/// Fails the run for the way a console ended, unless the scan will find what it has printed. `from` is where its text
/// begins in what the user sees.
void BatchRun::TellFault(const ConsoleEnd& end, const QString& commandLine, qsizetype from) {
  const QString fault = FaultOf(end, commandLine);
  if (fault.isEmpty() || terminated_) return;
  if (end.kind == ConsoleEnd::Kind::Exited) {
    if (scan_.FindsError(transcript_)) return;
    // In a syntax check the scan passes over what the console itself says.
    const std::vector<RunMark> complaints = MarkComplaints(transcript_.Shown(), from);
    for (const RunMark& mark : complaints) listener_.Marked(mark);
    if (!complaints.empty()) {
      ShowError();
      StartNoMore();
      return;
    }
  }
  FailWithLine(fault);
}

/// Runs one console to its end, together with the logs that its tools write.
ConsoleEnd BatchRun::RunConsole(const QString& commandLine) {
  stepRunning_ = true;
  const QString tail = commandLine.toLower();
  watchedLogs_.clear();
  if (request_.Engine != 0 && tail.endsWith(u"author.bat")) watchedLogs_.push_back(&muxManLog_);
  if (request_.BurnRequested && request_.UseImgBurn && tail.endsWith(u"imgburnrun.bat")) {
    watchedLogs_.push_back(&imgBurnLog_);
  }
  const ConsoleEnd end = console_.RunProcess(commandLine, request_.TempDir, *this);
  for (ToolLog* log : watchedLogs_) log->CheckMuxManLogFile(ToolLog::Moment::Final);
  stepRunning_ = false;
  return end;
}

void BatchRun::ReadProcess(const QString& chunk) {
  transcript_.AddOutput(chunk, repair_.Take(chunk));
  if (chunk.endsWith(u'>')) {
    promptText_ = chunk.chopped(1);
    promptText_.remove(u'\r').remove(u'\n');
  }
}

void BatchRun::BeforePoll() {
  for (ToolLog* log : watchedLogs_) log->CheckMuxManLogFile(ToolLog::Moment::Running);
}

void BatchRun::Pause(int milliseconds) {
  listener_.Pump();
  QThread::msleep(static_cast<unsigned long>(milliseconds));
}

void BatchRun::CloseRun() {
  ScanFindsNothing();
  if (request_.keeper) request_.keeper->RunEnded();
  if (!errorShown_) listener_.SignShown(RunSign::Success);
  const bool logged = !logFailed_ && runLog_.Finish(transcript_.ConsoleText());
  if (request_.AutoDelete) {
    const QStringList kept = request_.protectedFiles + QStringList{runLog_.File(), request_.TVNLogFile};
    TempFiles(request_.TempDir).Clean(SourceGuard(kept));
  }
  if (!logged && !logFailed_) {
    // Cleaning may have made the room that was missing.
    if (const Status again = runLog_.Finish(transcript_.ConsoleText()); !again) {
      transcript_.AddShown(u"The log file is not complete: %1\r\n"_s.arg(again.Error()));
    }
  }
  if (request_.KeepLogFile && !request_.TVNLogFile.isEmpty()) AppendToProjectLog();
  closed_ = true;
  SetCaption(u"BatchRun Log   "_s + Verdict());
  listener_.Finished(Outcome());
}

/// A log that cannot be written is skipped with a word: it is the user's own diary, and the run is over.
void BatchRun::AppendToProjectLog() {
  const QString entry = u"\r\n\r\n%1Time: %2  BatchRun Log %3\r\n\r\n"_s;
  const Status added = HostFiles::Append(request_.TVNLogFile, entry.arg(request_.LogText, Now(), Verdict()).toUtf8());
  if (!added) transcript_.AddShown(u"Nothing was added to the log of all runs: %1\r\n"_s.arg(added.Error()));
}

QString BatchRun::Verdict() const {
  return runAborted_ ? u"Aborted"_s : u"Finished"_s;
}

bool BatchRun::ScanFindsNothing() {
  const std::vector<RunMark> marks = scan_.ScanConsoleOutput(transcript_);
  for (const RunMark& mark : marks) listener_.Marked(mark);
  if (!marks.empty()) ShowError();
  return marks.empty();
}

/// Ends the run for a reason that no tool has printed.
void BatchRun::FailWithLine(const QString& reason) {
  const qsizetype from = transcript_.Shown().size();
  transcript_.Add(u"\r\n*ERROR %1\r\n"_s.arg(reason));
  listener_.Marked({from + 2, transcript_.Shown().size() - from - 4});
  ShowError();
  StartNoMore();
}

void BatchRun::StartNoMore() {
  runFinished_ = true;
  nextIndex_ = lastIndex_ + 1;
}

void BatchRun::ShowError() {
  if (!std::exchange(errorShown_, true)) listener_.SignShown(RunSign::Error);
}

void BatchRun::SetCaption(const QString& caption) {
  caption_ = caption;
  listener_.CaptionChanged(caption);
}

QString BatchRun::Now() const {
  return clock_.now().toString(u"yyyy-MM-dd hh:mm:ss"_s);
}

}  // namespace torvane
