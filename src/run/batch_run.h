#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "run/console.h"
#include "run/repeat_repair.h"
#include "run/run_keeper.h"
#include "run/run_listener.h"
#include "run/run_log.h"
#include "run/tool_log.h"

namespace torvane {

/// Everything a run depends on, as it stands when the run begins. Paths are DOS paths.
struct RunRequest {
  QStringList BatchList;                  ///< batch files relative to TempDir, in order
  QString RunMode = QStringLiteral("0");  ///< "0" for a real run, "1" for a syntax check
  int Engine = 0;                         ///< 0 dvdauthor, 1 MuxMan
  QString TempDir;                        ///< where all batches run
  QString OutDir;                         ///< where TorvaneAuthor.log and the tools' own logs lie
  bool AutoDelete = false;                ///< clean TempDir of our own files at the end, whatever the outcome
  bool KeepLogFile = false;               ///< add LogText and a closing line to TVNLogFile
  QString TVNLogFile;
  QString LogText;
  bool BurnRequested = false;
  bool UseImgBurn = false;
  RunKeeper* keeper = nullptr;  ///< asked at the end of each step, and when no further one will follow
  QStringList protectedFiles;  ///< the project file and all files it names: cleaning leaves them, and the logs
};

/// The clocks of a run.
struct RunClock {
  std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
  std::function<qint64()> milliseconds = SteadyMilliseconds;  ///< from any start, never set back
  static qint64 SteadyMilliseconds();
};

/// Runs batch files one after the other through a console and stops behind the first one that fails: by an error word
/// in its text as it came, by an exit status of the console other than 0, by a console that died, or by what the keeper
/// finds wrong with what it made.
///
/// A window calls Open once, Tick about every 100 ms (also from within RunListener::Pump, where it does nothing while
/// a step runs) and RequestClose when the user closes it. A command line calls RunToEnd.
///
/// Files: {OutDir}\TorvaneAuthor.log holds the line "Start CaptureConsole" and a line for each step during the run,
/// and the whole text at its end (UTF-8). TVNLogFile grows by one entry a run.
class BatchRun : private ConsoleClient {
 public:
  enum class CloseAnswer {
    Aborting,  ///< no further step starts; the run ends when the running step has ended
    Busy,      ///< already aborting: the step still runs
    MayClose
  };

  BatchRun(RunRequest request, Console& console, RunListener& listener, RunClock clock = {});
  ~BatchRun() override;
  Q_DISABLE_COPY_MOVE(BatchRun)

  /// Prepares the logs and starts the console once, to see that it works. Fails the run with a clear line in the text
  /// when the log cannot be written or the console not be started.
  void Open();

  /// Runs the next step to its end, or closes the run when there is none. Does nothing while a step runs and after
  /// the run is closed.
  void Tick();

  CloseAnswer RequestClose();

  /// Aborts, and ends the running step with everything it started.
  void Terminate();

  /// Open, then Tick until the run is closed.
  RunOutcome RunToEnd();

  bool IsClosed() const { return closed_; }
  RunOutcome Outcome() const;
  const QString& Caption() const { return caption_; }
  const QString& ShownText() const { return transcript_.Shown(); }
  const QString& ConsoleText() const { return transcript_.ConsoleText(); }

  /// The last prompt of the console, without its ">" and line ends.
  const QString& PromptText() const { return promptText_; }

 private:
  void ReadProcess(const QString& chunk) override;
  void BeforePoll() override;
  void Pump() override { listener_.Pump(); }

  void StartStep();
  void EndStep(const QString& batch);
  void TellFault(const ConsoleEnd& end, const QString& commandLine, qsizetype from);
  ConsoleEnd RunConsole(const QString& commandLine);
  void Pause(int milliseconds);
  void CloseRun();
  void AppendToProjectLog();
  bool ScanFindsNothing();
  void FailWithLine(const QString& reason);
  void Abort();
  void StartNoMore();
  void ShowError();
  void SetCaption(const QString& caption);
  QString Verdict() const;
  QString Now() const;

  RunRequest request_;
  Console& console_;
  RunListener& listener_;
  RunClock clock_;
  Transcript transcript_;
  LogScan scan_;
  RepeatRepair repair_;
  ToolLog muxManLog_;
  ToolLog imgBurnLog_;
  RunLog runLog_;
  std::vector<ToolLog*> watchedLogs_;
  qsizetype lastIndex_;
  qsizetype nextIndex_ = 0;
  bool stepRunning_ = false;
  bool runFinished_ = false;
  bool runAborted_ = false;
  bool terminated_ = false;
  bool errorShown_ = false;
  bool logFailed_ = false;
  bool closed_ = false;
  QString caption_;
  QString promptText_;
};

}  // namespace torvane
