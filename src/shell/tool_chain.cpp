#include "shell/tool_chain.h"

#include <QRegularExpression>
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

}  // namespace

ChainOutcome RunToolChain(const QList<ToolCommand>& commands, const QStringList& created,
                          const std::function<void()>& release) {
  QList<ProcessStage> stages;
  QList<WrittenFile> outputs;
  for (const ToolCommand& command : commands) {
    stages << command.stage;
    if (!command.output.isEmpty()) outputs << WrittenFile(command.output);
  }
  const QList<ProcessEnd> ends = RunProcesses(stages, release);

  ChainOutcome outcome;
  for (qsizetype i = 0; i < ends.size(); ++i) {
    const ProcessEnd& end = ends[i];
    const Place place = i + 1 == ends.size() ? Place::Last : Place::Inner;
    const QString complaint = commands[i].name.isEmpty() ? QString() : Complaint(commands[i], end, place);
    if (!complaint.isEmpty()) outcome.complaints << complaint;
    if (place != Place::Last) continue;
    outcome.errorLevel = end.signal ? 128 + end.signal : end.exitStatus;
    if (!complaint.isEmpty() && outcome.errorLevel == 0) outcome.errorLevel = 1;
  }
  if (outcome.complaints.isEmpty()) {
    for (const WrittenFile& output : outputs) {
      if (!output.IsChanged() || !output.IsDiskFull()) continue;
      outcome.complaints << u"the disk is full; %1 may be cut off"_s.arg(output.HostPath());
      outcome.errorLevel = 1;
    }
  }
  if (outcome.complaints.isEmpty() && StopSignal() == 0) return outcome;
  for (const WrittenFile& output : outputs) output.RemoveChanged();
  for (const ToolCommand& command : commands) {
    if (command.discard) command.discard();
  }
  for (const QString& path : created) RemoveOrdinaryFile(path);
  return outcome;
}

}  // namespace torvane
