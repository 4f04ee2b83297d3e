#include "run/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

namespace torvane {
namespace {

std::vector<pid_t>& Abandoned() {
  static std::vector<pid_t> processes;
  return processes;
}

QString SystemReason(int error) {
  return QString::fromLocal8Bit(std::strerror(error));
}

/// What must be ready before the fork: between fork and exec a child only calls the system.
struct Prepared {
  std::vector<QByteArray> texts;
  std::vector<char*> argv;
  std::vector<char*> envp;
  QByteArray directory;
};

Prepared Prepare(const ChildCommand& command) {
  Prepared prepared;
  prepared.directory = QFile::encodeName(command.directory);
  for (const QString& text : QStringList{command.program} + command.arguments) {
    prepared.texts.push_back(QFile::encodeName(text));
  }
  const size_t environmentBegin = prepared.texts.size();
  for (char** entry = environ; *entry; ++entry) {
    const QByteArray text(*entry);
    if (!command.environment.contains(QString::fromLocal8Bit(text.left(text.indexOf('='))))) {
      prepared.texts.push_back(text);
    }
  }
  for (auto entry = command.environment.cbegin(); entry != command.environment.cend(); ++entry) {
    prepared.texts.push_back(QFile::encodeName(entry.key() + u'=' + entry.value()));
  }
  for (size_t i = 0; i < prepared.texts.size(); ++i) {
    (i < environmentBegin ? prepared.argv : prepared.envp).push_back(prepared.texts[i].data());
  }
  prepared.argv.push_back(nullptr);
  prepared.envp.push_back(nullptr);
  return prepared;
}

/// Ends with this program, also when that is killed: the request to end comes from the system then. It must find no
/// handler of this program, and none comes to a child whose parent was gone before it asked for it.
void EndWithParent(pid_t parent) {
  signal(SIGTERM, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(127);
}

[[noreturn]] void BecomeProgram(const Prepared& prepared, int outputEnd, int failureEnd, pid_t parent) {
  setpgid(0, 0);
  EndWithParent(parent);
  signal(SIGPIPE, SIG_DFL);
  // First out of the way of 0, 1 and 2, which may be closed in this program.
  outputEnd = fcntl(outputEnd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  failureEnd = fcntl(failureEnd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int nothing = open("/dev/null", O_RDONLY);
  const bool placed =
      dup2(nothing, STDIN_FILENO) >= 0 && dup2(outputEnd, STDOUT_FILENO) >= 0 && dup2(outputEnd, STDERR_FILENO) >= 0;
  if (nothing > STDERR_FILENO) close(nothing);
  if (placed && (prepared.directory.isEmpty() || chdir(prepared.directory.constData()) == 0)) {
    execve(prepared.argv[0], prepared.argv.data(), prepared.envp.data());
  }
  const int reason = errno;
  [[maybe_unused]] const ssize_t told = write(failureEnd, &reason, sizeof reason);
  _exit(127);
}

/// The reason why a started child could not become its program; 0 when it did.
int StartFailure(int readEnd) {
  int reason = 0;
  ssize_t got = 0;
  do {
    got = read(readEnd, &reason, sizeof reason);
  } while (got < 0 && errno == EINTR);
  return got == ssize_t(sizeof reason) ? reason : 0;
}

/// Gives the system's reason when the program could not be started, else 0.
int Spawn(const ChildCommand& command, int outputEnd, pid_t& id) {
  int failure[2];
  if (pipe2(failure, O_CLOEXEC) != 0) return errno;
  const Prepared prepared = Prepare(command);
  const pid_t self = getpid();
  id = fork();
  if (id == 0) BecomeProgram(prepared, outputEnd, failure[1], self);
  int reason = id < 0 ? errno : 0;
  close(failure[1]);
  if (id > 0) reason = StartFailure(failure[0]);
  close(failure[0]);
  if (id > 0 && reason != 0) waitpid(id, nullptr, 0);
  return reason;
}

}  // namespace

ChildProcess::~ChildProcess() {
  if (id_ != 0) Abandon();
}

ChildProcess::Started ChildProcess::Start(const ChildCommand& command, QString& reason) {
  if (!command.directory.isEmpty() && !QFileInfo(command.directory).isDir()) {
    reason = command.directory + QStringLiteral(": ") + SystemReason(ENOENT);
    return Started::NoProcess;
  }
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) {
    reason = SystemReason(errno);
    return Started::NoPipe;
  }
  // The program is named from here, not from the directory it will run in.
  ChildCommand absolute = command;
  absolute.program = QDir::current().absoluteFilePath(command.program);
  const int error = Spawn(absolute, ends[1], id_);
  close(ends[1]);
  if (error != 0) {
    close(ends[0]);
    id_ = 0;
    reason = absolute.program + QStringLiteral(": ") + SystemReason(error);
    return Started::NoProcess;
  }
  output_ = ends[0];
  fcntl(output_, F_SETFL, O_NONBLOCK);
  return Started::Yes;
}

ChildProcess::Output ChildProcess::Read(QByteArray& bytes, qsizetype limit, int milliseconds) {
  if (output_ < 0) return Output::Closed;
  pollfd waiting{output_, POLLIN, 0};
  if (poll(&waiting, 1, milliseconds) <= 0) return Output::Idle;
  bytes.resize(limit);
  const ssize_t count = read(output_, bytes.data(), static_cast<size_t>(limit));
  bytes.resize(count > 0 ? count : 0);
  if (count > 0) return Output::Data;
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return Output::Idle;
  CloseOutput();
  return Output::Closed;
}

std::optional<ChildEnd> ChildProcess::Ended() const {
  siginfo_t state{};
  if (waitid(P_PID, static_cast<id_t>(id_), &state, WEXITED | WNOHANG | WNOWAIT) != 0) return ChildEnd{};
  if (state.si_pid != id_) return std::nullopt;
  return ChildEnd{state.si_code != CLD_EXITED, state.si_status};
}

void ChildProcess::Reap() {
  while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
  }
  id_ = 0;
  CloseOutput();
}

void ChildProcess::SignalGroup(int signal) const {
  if (id_ != 0) kill(-id_, signal);
}

void ChildProcess::Abandon() {
  Abandoned().push_back(id_);
  id_ = 0;
  CloseOutput();
  ReapAbandoned();
}

void ChildProcess::ReapAbandoned() {
  std::erase_if(Abandoned(), [](pid_t id) { return waitpid(id, nullptr, WNOHANG) != 0; });
}

void ChildProcess::CloseOutput() {
  if (output_ >= 0) close(output_);
  output_ = -1;
}

}  // namespace torvane
