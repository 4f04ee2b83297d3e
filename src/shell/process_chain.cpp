#include "shell/process_chain.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>
#include <vector>

namespace torvane {
namespace {

constexpr qsizetype kWatchedBytes = 65536;
constexpr int kPatienceMs = 2000;  // between the request to end and the order
constexpr int kTurnMs = 20;

volatile std::sig_atomic_t stopSignal = 0;
volatile std::sig_atomic_t processGroup = 0;  // 0 while nothing runs or the stages share the group of this process
bool isStage = false;  // this process is a stage itself, and so a member of the group of its chain

void OnStopSignal(int signalNumber) {
  stopSignal = signalNumber;
  const int saved = errno;
  if (processGroup > 0) kill(-processGroup, SIGTERM);
  errno = saved;
}

/// What must be ready before the fork: between fork and exec a child only calls the system.
struct Prepared {
  QByteArray program;
  std::vector<QByteArray> texts;
  std::vector<char*> argv;
  std::vector<char*> envp;
};

Prepared Prepare(const ProcessStage& stage) {
  Prepared prepared;
  prepared.program = QFile::encodeName(stage.program);
  for (const QString& argument : stage.arguments) prepared.texts.push_back(QFile::encodeName(argument));
  const std::size_t environmentBegin = prepared.texts.size();
  for (char** entry = environ; *entry; ++entry) {
    const QByteArray text(*entry);
    if (!stage.environment.contains(QString::fromLocal8Bit(text.left(text.indexOf('='))))) {
      prepared.texts.push_back(text);
    }
  }
  for (auto entry = stage.environment.cbegin(); entry != stage.environment.cend(); ++entry) {
    if (!entry.value().isEmpty()) {
      prepared.texts.push_back(QFile::encodeName(entry.key()) + '=' + QFile::encodeName(entry.value()));
    }
  }
  for (std::size_t i = 0; i < prepared.texts.size(); ++i) {
    (i < environmentBegin ? prepared.argv : prepared.envp).push_back(prepared.texts[i].data());
  }
  prepared.argv.push_back(nullptr);
  prepared.envp.push_back(nullptr);
  return prepared;
}

void PlaceStreams(const Streams& streams) {
  // First out of the way of 0, 1 and 2, since the streams may be these in another order.
  const std::array<int, 3> high{fcntl(streams.in, F_DUPFD_CLOEXEC, 10), fcntl(streams.out, F_DUPFD_CLOEXEC, 10),
                                fcntl(streams.err, F_DUPFD_CLOEXEC, 10)};
  for (int handle = 0; handle < 3; ++handle) {
    if (high[std::size_t(handle)] < 0 || dup2(high[std::size_t(handle)], handle) < 0) close(handle);
  }
}

[[noreturn]] void RunChild(const ProcessStage& stage, Prepared& prepared, pid_t parent, pid_t group, int failureFd) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(127);
  if (group >= 0) setpgid(0, group);
  for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE}) signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  PlaceStreams(stage.streams);
  if (stage.inside) {
    close_range(3, ~0U, 0);  // the ends of the other stages' pipes
    isStage = true;
    processGroup = 0;
    _exit(stage.inside(Streams{}));
  }
  execve(prepared.program.constData(), prepared.argv.data(), prepared.envp.data());
  const int reason = errno;
  [[maybe_unused]] const ssize_t told = write(failureFd, &reason, sizeof reason);
  _exit(127);
}

/// The reason why a started child could not become its program; 0 when it did.
int StartFailure(const OwnedFd& readEnd) {
  int reason = 0;
  ssize_t got = 0;
  do {
    got = read(readEnd.Get(), &reason, sizeof reason);
  } while (got < 0 && errno == EINTR);
  return got == ssize_t(sizeof reason) ? reason : 0;
}

struct Running {
  pid_t pid = -1;
  bool ended = false;
  OwnedFd watch;     // read end of a watched error stream
  int passOnTo = 2;  // where its bytes go
};

void Take(int status, Running& running, ProcessEnd& end) {
  running.ended = true;
  if (WIFSIGNALED(status)) {
    end.signal = WTERMSIG(status);
  } else {
    end.exitStatus = WEXITSTATUS(status);
  }
}

/// Keeps the signals that matter while children run for the moments when they are awaited, so that none comes unseen
/// between a look and the wait that follows it.
class HeldSignals {
 public:
  HeldSignals() {
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGCHLD, &action, &formerChildAction_);
    sigset_t held;
    sigemptyset(&held);
    for (const int number : {SIGCHLD, SIGTERM, SIGINT, SIGHUP}) sigaddset(&held, number);
    sigprocmask(SIG_BLOCK, &held, &formerMask_);
    waitMask_ = formerMask_;
    for (const int number : {SIGCHLD, SIGTERM, SIGINT, SIGHUP}) sigdelset(&waitMask_, number);
  }
  ~HeldSignals() {
    sigprocmask(SIG_SETMASK, &formerMask_, nullptr);
    sigaction(SIGCHLD, &formerChildAction_, nullptr);
  }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  const sigset_t& WaitMask() const { return waitMask_; }

 private:
  struct sigaction formerChildAction_ = {};
  sigset_t formerMask_ = {};
  sigset_t waitMask_ = {};
};

/// Waits for a signal, for bytes in a watched stream or until the time is over (-1: no limit), and passes the bytes on.
/// False when there were none.
bool PassOn(std::vector<Running>& running, QList<ProcessEnd>& ends, int timeoutMs, const sigset_t& waitMask) {
  std::vector<pollfd> polled;
  std::vector<std::size_t> owners;
  for (std::size_t i = 0; i < running.size(); ++i) {
    if (!running[i].watch) continue;
    polled.push_back({running[i].watch.Get(), POLLIN, 0});
    owners.push_back(i);
  }
  const timespec limit{timeoutMs / 1000, (timeoutMs % 1000) * 1000000L};
  if (ppoll(polled.data(), polled.size(), timeoutMs < 0 ? nullptr : &limit, &waitMask) <= 0) return false;
  bool any = false;
  for (std::size_t k = 0; k < polled.size(); ++k) {
    if (polled[k].revents == 0) continue;
    Running& source = running[owners[k]];
    std::array<char, 4096> buffer;
    const ssize_t got = read(source.watch.Get(), buffer.data(), buffer.size());
    if (got <= 0) {
      source.watch = OwnedFd();
      continue;
    }
    any = true;
    const QByteArray bytes(buffer.data(), got);
    WriteAll(source.passOnTo, bytes);
    QByteArray& kept = ends[qsizetype(owners[k])].watchedOutput;
    kept += bytes;
    kept = kept.right(kWatchedBytes);
  }
  return any;
}

/// The group, when the children have one of their own, goes with all that they started.
void KillAll(const std::vector<Running>& running, int number) {
  if (processGroup > 0) kill(-processGroup, number);
  for (const Running& child : running) {
    if (!child.ended) kill(child.pid, number);
  }
}

/// Waits for all children, and gives those that do not heed a request to stop a limited time.
void Await(std::vector<Running>& running, QList<ProcessEnd>& ends, const Patience& patience, const sigset_t& waitMask) {
  IdleWatch watch(patience);
  bool isOver = false;
  int stoppingMs = 0;
  for (;;) {
    std::vector<pid_t> left;
    for (std::size_t i = 0; i < running.size(); ++i) {
      int status = 0;
      if (!running[i].ended && waitpid(running[i].pid, &status, WNOHANG) == running[i].pid) {
        Take(status, running[i], ends[qsizetype(i)]);
      }
      if (!running[i].ended) left.push_back(running[i].pid);
    }
    if (left.empty()) break;
    if (!isOver && !stopSignal && watch.IsOver(left)) {
      isOver = true;
      for (std::size_t i = 0; i < running.size(); ++i) ends[qsizetype(i)].wasIdle = !running[i].ended;
    }
    const bool isStopping = isOver || stopSignal;
    if (isStopping) {
      KillAll(running, stoppingMs < kPatienceMs ? SIGTERM : SIGKILL);
      stoppingMs += kTurnMs;
    }
    PassOn(running, ends, isStopping ? kTurnMs : watch.NextLookMs(), waitMask);
  }
  // A grandchild may keep a watched stream open: what waits there now is passed on, and no more is waited for.
  while (PassOn(running, ends, 0, waitMask)) continue;
}

}  // namespace

PipeEnds MakePipe() {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return {};
  return {OwnedFd(ends[0]), OwnedFd(ends[1])};
}

bool WriteAll(int fd, const QByteArray& bytes) {
  for (qsizetype done = 0; done < bytes.size();) {
    const ssize_t written = write(fd, bytes.constData() + done, std::size_t(bytes.size() - done));
    if (written < 0 && errno == EINTR && !stopSignal) continue;
    if (written <= 0) return false;
    done += written;
  }
  return true;
}

QList<ProcessEnd> RunProcesses(const QList<ProcessStage>& stages, const std::function<void()>& release,
                               const Patience& patience) {
  QList<ProcessEnd> ends(stages.size());
  std::vector<Running> running(std::size_t(stages.size()));
  // At a terminal the stages stay in the group that the terminal talks to, or they could not read from it.
  const bool ownGroup = !isatty(0) && !isStage;
  pid_t group = ownGroup ? 0 : -1;
  const pid_t self = getpid();
  const HeldSignals held;
  for (qsizetype i = 0; i < stages.size(); ++i) {
    ProcessStage stage = stages[i];
    Running& child = running[std::size_t(i)];
    PipeEnds watch;
    if (stage.watched) {
      watch = MakePipe();
      if (watch.write) {
        child.passOnTo = stage.streams.err;
        if (stage.streams.out == stage.streams.err) stage.streams.out = watch.write.Get();
        stage.streams.err = watch.write.Get();
      }
    }
    PipeEnds failure = MakePipe();
    Prepared prepared = Prepare(stage);
    child.pid = fork();
    if (child.pid == 0) RunChild(stage, prepared, self, group, failure.write.Get());
    failure.write = OwnedFd();
    if (child.pid < 0) {
      child.ended = true;
      ends[i].failure = QString::fromLocal8Bit(std::strerror(errno));
      continue;
    }
    if (ownGroup) {
      setpgid(child.pid, group);
      if (group == 0) group = child.pid;
      processGroup = group;
    }
    child.watch = std::move(watch.read);
    if (const int reason = stage.inside ? 0 : StartFailure(failure.read)) {
      ends[i].failure = QString::fromLocal8Bit(std::strerror(reason));
    }
  }
  release();
  Await(running, ends, patience, held.WaitMask());
  processGroup = 0;
  return ends;
}

void WatchForStopSignals() {
  struct sigaction action = {};
  action.sa_handler = OnStopSignal;
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) sigaction(number, &action, nullptr);
  signal(SIGPIPE, SIG_IGN);
}

int StopSignal() {
  return stopSignal;
}

}  // namespace torvane
