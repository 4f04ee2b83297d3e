#include "shell/tool_chain.h"

#include <QRegularExpression>
#include <algorithm>
#include <csignal>
#include <cstring>
#include <optional>

#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// How many subpictures a spumux run says it added, by its closing statistics.
int SubpicturesAdded(const QByteArray& output) {
  static const QRegularExpression kStatistics(u"(\\d+) subtitles added"_s);
  int added = 0;
  auto matches = kStatistics.globalMatch(QString::fromLatin1(output));
  while (matches.hasNext()) added = matches.next().captured(1).toInt();
  return added;
}

enum class Place { Inner, Last };

/// What is wrong with how a program ended; "" when nothing is.
QString Complaint(const ToolCommand& command, const ProcessEnd& end, Place place) {
  if (!end.failure.isEmpty()) return u"%1 could not be started: %2"_s.arg(command.name, end.failure);
  if (end.signal == SIGPIPE && place == Place::Inner) return {};
  if (end.signal != 0) {
    const QString signalName = QString::fromLocal8Bit(strsignal(end.signal));
    return u"%1 was ended by signal %2 (%3)"_s.arg(command.name).arg(end.signal).arg(signalName);
  }
  if (end.exitStatus != 0) return u"%1 ended with status %2"_s.arg(command.name).arg(end.exitStatus);
  if (command.addsSubpictures && SubpicturesAdded(end.watchedOutput) == 0) {
    return u"%1 added no subpicture"_s.arg(command.name);
  }
  return {};
}

/// The same for a program that takes the output of another. That one may be to blame, although it seems to have ended
/// well.
QString ComplaintInChain(const QList<ToolCommand>& commands, const QList<ProcessEnd>& ends, qsizetype i) {
  const Place place = i + 1 == ends.size() ? Place::Last : Place::Inner;
  const QString complaint = Complaint(commands[i], ends[i], place);
  const bool byStatus = ends[i].failure.isEmpty() && ends[i].signal == 0 && ends[i].exitStatus != 0;
  if (!byStatus || i == 0 || !commands[i - 1].streamsOutput || !ends[i - 1].Ok()) return complaint;
  return u"%1 ended with status %2; %3, whose output it takes, ended well"_s.arg(commands[i].name)
      .arg(ends[i].exitStatus)
      .arg(commands[i - 1].name);
}

/// One who waits does nothing either, so that all of a chain that still ran are named.
QString IdleComplaint(const QList<ToolCommand>& commands, const QList<ProcessEnd>& ends, double minutes) {
  QStringList names;
  for (qsizetype i = 0; i < ends.size(); ++i) {
    if (ends[i].wasIdle && !commands[i].name.isEmpty()) names << commands[i].name;
  }
  if (names.isEmpty()) return {};
  return u"%1 did nothing for %2 minutes (ToolPatience) and was ended"_s.arg(names.join(u" | ")).arg(minutes);
}

/// The longest of what the programs may take; 0 when one of them may take for ever.
double PatienceOf(const QList<ToolCommand>& commands, double usersChoice) {
  double longest = usersChoice;
  for (const ToolCommand& command : commands) {
    if (usersChoice > 0) longest = std::max(longest, command.patience);
  }
  return longest;
}

/// What a chain writes: what stood in its place before is gone when this is made.
class ChainOutputs {
 public:
  ChainOutputs(const QList<ToolCommand>& commands, const QStringList& created) : commands_(commands), made_(created) {
    QStringList read;
    for (const ToolCommand& command : commands) {
      made_ << command.outputs;
      read << command.inputs;
    }
    const QString both = WrittenWhileRead(made_, read);
    if (!both.isEmpty()) {
      made_ = created;
      obstacle_ = u"%1 would be overwritten while it is read"_s.arg(both);
      return;
    }
    for (const ToolCommand& command : commands) {
      for (const QString& path : command.outputs) {
        if (const Status way = MakeWayFor(path); !way) obstacle_ = way.Error();
      }
      for (const auto& [path, ending] : command.promised)
        promised_ << Promised{command.name, WrittenFile(path), ending};
    }
  }

  /// Why the chain cannot run; "" when it can.
  const QString& Obstacle() const { return obstacle_; }

  /// What is wrong with what the programs have left, when they ended well.
  QStringList Faults() const {
    QStringList faults;
    for (const Promised& promised : promised_) {
      const WrittenFile& file = promised.file;
      if (file.IsSpecial()) continue;
      if (!file.IsChanged()) {
        faults << u"%1 made no %2"_s.arg(promised.program, file.HostPath());
      } else if (file.IsEmpty()) {
        faults << u"%1 left %2 empty"_s.arg(promised.program, file.HostPath());
      } else if (!file.EndsWith(promised.ending)) {
        faults << u"%1 left %2 unfinished"_s.arg(promised.program, file.HostPath());
      } else if (file.IsDiskFull()) {
        faults << u"the disk is full; %1 may be cut off"_s.arg(file.HostPath());
      }
    }
    return faults;
  }

  void Remove() const {
    for (const QString& path : made_) RemoveOrdinaryFile(path);
    for (const ToolCommand& command : commands_) {
      if (command.discard) command.discard();
    }
  }

 private:
  struct Promised {
    QString program;
    WrittenFile file;
    QByteArray ending;
  };

  const QList<ToolCommand>& commands_;
  QStringList made_;
  QList<Promised> promised_;
  QString obstacle_;
};

/// What the programs' ends say. The level is never 0 where there is a complaint about the last one.
ChainOutcome Judge(const QList<ToolCommand>& commands, const QList<ProcessEnd>& ends, double patience) {
  ChainOutcome outcome;
  const QString idle = IdleComplaint(commands, ends, patience);
  if (!idle.isEmpty()) outcome.complaints << idle;
  for (qsizetype i = 0; i < ends.size(); ++i) {
    const ProcessEnd& end = ends[i];
    const Place place = i + 1 == ends.size() ? Place::Last : Place::Inner;
    const bool told = commands[i].name.isEmpty() || end.wasIdle;
    const QString complaint = told ? QString() : ComplaintInChain(commands, ends, i);
    const bool byStatus = end.failure.isEmpty() && end.signal == 0 && end.exitStatus != 0;
    if (place == Place::Last && byStatus) {
      outcome.statusComplaint = complaint;
    } else if (!complaint.isEmpty()) {
      outcome.complaints << complaint;
    }
    if (place != Place::Last) continue;
    outcome.errorLevel = end.signal ? 128 + end.signal : end.exitStatus;
    if (!complaint.isEmpty() && outcome.errorLevel == 0) outcome.errorLevel = 1;
  }
  return outcome;
}

}  // namespace

ChainOutcome RunToolChain(const QList<ToolCommand>& commands, const QStringList& created, double patience,
                          const std::function<void()>& release) {
  const ChainOutputs outputs(commands, created);
  if (!outputs.Obstacle().isEmpty()) {
    release();
    outputs.Remove();
    return {.errorLevel = 1, .complaints = {outputs.Obstacle()}, .statusComplaint = {}};
  }
  QList<ProcessStage> stages;
  QStringList watched;
  for (const ToolCommand& command : commands) {
    stages << command.stage;
    for (const PromisedFile& promised : command.promised) watched << promised.hostPath;
  }
  const double minutes = PatienceOf(commands, patience);
  const QList<ProcessEnd> ends = RunProcesses(stages, release, {minutes * 60, watched});

  ChainOutcome outcome = Judge(commands, ends, minutes);
  if (outcome.complaints.isEmpty() && outcome.statusComplaint.isEmpty() && StopSignal() == 0) {
    outcome.complaints = outputs.Faults();
    if (outcome.complaints.isEmpty()) return outcome;
    if (outcome.errorLevel == 0) outcome.errorLevel = 1;
  }
  outputs.Remove();
  return outcome;
}

}  // namespace torvane
