#include "run/console_capture.h"

#include <QCoreApplication>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <utility>

#include "platform/host_files.h"
#include "run/command_line.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kChunkSize = 1024;
constexpr qsizetype kPipeCapacity = 65536;
constexpr int kPollMs = 50;
constexpr int kForceAfterMs = 3000;

ConsoleEnd NotRun(std::uint32_t number, const QString& text, const QString& detail = {}) {
  return {.kind = ConsoleEnd::Kind::NotRun, .code = 0, .error = {number, u"ConsoleCapture"_s, text, detail}};
}

}  // namespace

ConsoleCapture::ConsoleCapture(QString consoleProgram, double toolPatience)
    : consoleProgram_(std::move(consoleProgram)), toolPatience_(toolPatience) {}

ConsoleCapture::~ConsoleCapture() = default;

QString ConsoleCapture::DefaultConsoleProgram() {
  return QCoreApplication::applicationDirPath() + u"/torvane-cmd"_s;
}

std::int32_t ConsoleCapture::ProcessID() const {
  return child_ ? child_->Id() : 0;
}

ConsoleEnd ConsoleCapture::RunProcess(const QString& commandLine, const QString& directory, ConsoleClient& client) {
  if (child_) return NotRun(0x80040190, u"A process is already running"_s);
  ChildProcess::ReapAbandoned();

  ChildCommand command = ParseCommandLine(commandLine, consoleProgram_);
  command.directory = HostFiles::ToHost(directory);
  command.environment[u"TORVANE_TOOL_PATIENCE"_s] = QString::number(toolPatience_);
  auto child = std::make_unique<ChildProcess>();
  QString reason;
  switch (child->Start(command, reason)) {
    case ChildProcess::Started::Yes:
      break;
    case ChildProcess::Started::NoPipe:
      return NotRun(0x80040191, u"An error occured while creating the pipe"_s, reason);
    case ChildProcess::Started::NoProcess:
      return NotRun(0x80040192, u"An error occured while launching the process"_s, reason);
  }
  child_ = std::move(child);
  commandLine_ = commandLine;
  cancelled_ = false;
  terminating_.reset();
  decoder_ = {};
  sincePump_.start();

  const ChildEnd end = Listen(client);
  if (cancelled_) {
    child_->Abandon();
  } else {
    // What a crashed or terminated console had started must not go on writing behind its back.
    if (terminating_ || end.signalled) child_->SignalGroup(SIGKILL);
    child_->Reap();
  }
  child_.reset();
  commandLine_.clear();
  if (cancelled_) return {.kind = ConsoleEnd::Kind::Cancelled, .error = {}};
  return {
      .kind = end.signalled ? ConsoleEnd::Kind::Signalled : ConsoleEnd::Kind::Exited, .code = end.code, .error = {}};
}

void ConsoleCapture::Terminate() {
  if (!child_) return;
  child_->SignalGroup(terminating_ ? SIGKILL : SIGTERM);
  if (!terminating_) terminating_.emplace().start();
}

ChildEnd ConsoleCapture::Listen(ConsoleClient& client) {
  unsigned long napUs = 100;
  while (!cancelled_) {
    client.BeforePoll();
    EndByForceWhenDue();
    const Turn turn = TakeOutput(client);
    if (turn != Turn::Go || sincePump_.elapsed() >= kPollMs) {
      if (const auto end = child_->Ended()) {
        Drain(client);
        HandOn(decoder_.Flush(), client);
        return *end;
      }
    }
    PumpWhenDue(client);
    if (turn == Turn::Closed) {
      // The pipe closes a moment before the process is gone; one that closed it on purpose may run on for long.
      QThread::usleep(napUs);
      napUs = std::min(2 * napUs, 1000UL * kPollMs);
    }
  }
  return {};
}

ConsoleCapture::Turn ConsoleCapture::TakeOutput(ConsoleClient& client) {
  QByteArray chunk;
  switch (child_->Read(chunk, kChunkSize, kPollMs)) {
    case ChildProcess::Output::Data:
      GatherChunk(chunk);
      HandOn(decoder_.Decode(chunk), client);
      return Turn::Go;
    case ChildProcess::Output::Idle:
      client.Pump();
      sincePump_.restart();
      return Turn::Over;
    case ChildProcess::Output::Closed:
      break;
  }
  return Turn::Closed;
}

/// A tool that prints byte by byte would otherwise come in pieces of one byte, and of two equal pieces one is dropped.
void ConsoleCapture::GatherChunk(QByteArray& chunk) {
  QElapsedTimer timer;
  timer.start();
  QByteArray more;
  while (chunk.size() < kChunkSize && timer.elapsed() < kPollMs) {
    const int rest = static_cast<int>(kPollMs - timer.elapsed());
    if (child_->Read(more, kChunkSize - chunk.size(), std::max(rest, 0)) != ChildProcess::Output::Data) return;
    chunk += more;
  }
}

/// Takes what the process left in the pipe, but not what something in the background keeps adding.
void ConsoleCapture::Drain(ConsoleClient& client) {
  QByteArray chunk;
  for (qsizetype taken = 0; taken < kPipeCapacity; taken += chunk.size()) {
    if (child_->Read(chunk, kChunkSize, 0) != ChildProcess::Output::Data) return;
    HandOn(decoder_.Decode(chunk), client);
  }
}

void ConsoleCapture::HandOn(const QString& text, ConsoleClient& client) {
  if (!text.isEmpty()) client.ReadProcess(text);
}

void ConsoleCapture::PumpWhenDue(ConsoleClient& client) {
  if (sincePump_.elapsed() < kPollMs) return;
  client.Pump();
  sincePump_.restart();
}

void ConsoleCapture::EndByForceWhenDue() {
  if (terminating_ && terminating_->elapsed() >= kForceAfterMs) child_->SignalGroup(SIGKILL);
}

}  // namespace torvane
