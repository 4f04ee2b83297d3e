#include "shell/idle_watch.h"

#include <dirent.h>
#include <sys/stat.h>

#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kShortestLookMs = 20;
constexpr qint64 kLongestLookMs = 2000;
constexpr double kLongestPatienceMs = 1e12;

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The parent of a process; 0 when there is none any more.
pid_t ParentOf(pid_t process) {
  // pid (name) state parent ...; the name may hold anything.
  const QByteArray stat = ContentOf(u"/proc/%1/stat"_s.arg(process));
  const QList<QByteArray> rest = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
  return rest.size() > 1 ? rest[1].toInt() : 0;
}

/// The processes and all that they started, as far as the one that started it still lives.
std::vector<pid_t> WithDescendants(const std::vector<pid_t>& roots) {
  QMultiHash<pid_t, pid_t> children;
  if (DIR* processes = opendir("/proc")) {
    while (const dirent* entry = readdir(processes)) {
      const pid_t process = std::atoi(entry->d_name);
      if (process > 0) children.insert(ParentOf(process), process);
    }
    closedir(processes);
  }
  std::vector<pid_t> found = roots;
  for (std::size_t i = 0; i < found.size(); ++i) {
    for (const pid_t child : children.values(found[i])) found.push_back(child);
  }
  return found;
}

}  // namespace

IdleWatch::IdleWatch(Patience patience)
    : patience_(std::move(patience)), limitMs_(std::llround(std::min(patience_.seconds * 1000, kLongestPatienceMs))) {
  sinceLook_.start();
  sinceChange_.start();
}

int IdleWatch::NextLookMs() const {
  if (limitMs_ <= 0) return -1;
  const qint64 between = std::clamp(limitMs_ / 4, kShortestLookMs, kLongestLookMs);
  return int(std::max<qint64>(between - sinceLook_.elapsed(), 0));
}

bool IdleWatch::IsOver(const std::vector<pid_t>& programs) {
  if (NextLookMs() != 0) return false;
  sinceLook_.restart();
  if (State now = Look(programs); now != last_) {
    last_ = std::move(now);
    sinceChange_.restart();
  }
  return sinceChange_.elapsed() >= limitMs_;
}

IdleWatch::State IdleWatch::Look(const std::vector<pid_t>& programs) const {
  State state;
  for (const pid_t process : WithDescendants(programs)) {
    Counters counters{};
    for (const QByteArray& line : ContentOf(u"/proc/%1/io"_s.arg(process)).split('\n')) {
      constexpr std::array kNames{"rchar:", "wchar:", "read_bytes:", "write_bytes:"};
      for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (line.startsWith(kNames[i])) counters[i] = line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
      }
    }
    state.processes.insert(process, counters);
  }
  for (const QString& path : patience_.files) {
    struct stat file = {};
    if (stat(QFile::encodeName(path).constData(), &file) != 0) file = {};
    state.files << std::pair(qint64(file.st_size), qint64(file.st_mtim.tv_sec) * 1'000'000'000 + file.st_mtim.tv_nsec);
  }
  return state;
}

}  // namespace torvane
