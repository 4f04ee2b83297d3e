#pragma once

#include <QElapsedTimer>
#include <QString>
#include <memory>
#include <optional>

#include "run/child_process.h"
#include "run/console.h"
#include "run/console_decoder.h"

namespace torvane {

/// The real console: a child process whose output comes through a pipe, in pieces of at most 1024 bytes.
///
/// What a process prints within 50 ms makes one piece; the end of the process is noticed at once. A process has
/// ended when it is gone, not when it has printed a prompt: a tool's output that happens to end in ">" stops nothing.
/// What a process left behind in the background prints later is not waited for.
class ConsoleCapture : public Console {
 public:
  /// "cmd.exe" and "cmd" in a command line stand for `consoleProgram`, a host path. It is told to end a tool that does
  /// nothing for `toolPatience` minutes; 0 is never.
  explicit ConsoleCapture(QString consoleProgram = DefaultConsoleProgram(), double toolPatience = 0);
  ~ConsoleCapture() override;

  /// "torvane-cmd" in the directory of the running program.
  static QString DefaultConsoleProgram();

  QString CommandLine() const override { return commandLine_; }
  std::int32_t ProcessID() const override;

  /// Fails with the numbers 0x80040190 (a process is already running), 0x80040191 (no pipe), 0x80040192 (no process).
  ConsoleEnd RunProcess(const QString& commandLine, const QString& directory, ConsoleClient& client) override;
  void Cancel() override { cancelled_ = true; }
  void Terminate() override;

 private:
  enum class Turn { Go, Closed, Over };

  ChildEnd Listen(ConsoleClient& client);
  Turn TakeOutput(ConsoleClient& client);
  void GatherChunk(QByteArray& chunk);
  void Drain(ConsoleClient& client);
  void HandOn(const QString& text, ConsoleClient& client);
  void PumpWhenDue(ConsoleClient& client);
  void EndByForceWhenDue();

  QString consoleProgram_;
  double toolPatience_;
  QString commandLine_;
  std::unique_ptr<ChildProcess> child_;
  ConsoleDecoder decoder_;
  bool cancelled_ = false;
  std::optional<QElapsedTimer> terminating_;
  QElapsedTimer sincePump_;
};

}  // namespace torvane
