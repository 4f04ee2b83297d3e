#include "run/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>
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

/// The actions and attributes of a start, freed with the object.
class SpawnPlan {
 public:
  SpawnPlan() {
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
  }
  ~SpawnPlan() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnPlan(const SpawnPlan&) = delete;
  SpawnPlan& operator=(const SpawnPlan&) = delete;

  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
};

int Spawn(const ChildCommand& command, int outputEnd, pid_t& id) {
  SpawnPlan plan;
  posix_spawn_file_actions_addopen(&plan.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&plan.actions, outputEnd, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&plan.actions, outputEnd, STDERR_FILENO);
  if (!command.directory.isEmpty()) {
    posix_spawn_file_actions_addchdir_np(&plan.actions, QFile::encodeName(command.directory).constData());
  }
  sigset_t none;
  sigset_t usual;
  sigemptyset(&none);
  sigemptyset(&usual);
  sigaddset(&usual, SIGPIPE);
  posix_spawnattr_setsigmask(&plan.attributes, &none);
  posix_spawnattr_setsigdefault(&plan.attributes, &usual);
  posix_spawnattr_setpgroup(&plan.attributes, 0);
  posix_spawnattr_setflags(&plan.attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

  std::vector<std::string> words;
  const QStringList texts = QStringList{command.program} + command.arguments;
  for (const QString& text : texts) words.push_back(QFile::encodeName(text).toStdString());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  return posix_spawn(&id, argv[0], &plan.actions, &plan.attributes, argv.data(), environ);
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
  const ChildCommand absolute{QDir::current().absoluteFilePath(command.program), command.arguments, command.directory};
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
