#pragma once

#include <sys/types.h>

#include <QElapsedTimer>
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace torvane {

/// How long running programs may do nothing.
struct Patience {
  double seconds = 0;      ///< 0 is for ever
  QStringList files = {};  ///< host paths of what they write
};

/// Notices when programs do nothing any more: they print, read and write nothing, nor does anything that they started,
/// and their files stay as they are. What a program works out in silence is no sign of life.
///
/// Looked at is what the system counts for each process (/proc/PID/io); one of another user tells nothing.
class IdleWatch {
 public:
  explicit IdleWatch(Patience patience);

  /// Milliseconds until the next look is due; -1 for never.
  int NextLookMs() const;

  /// Looks at the programs with these process identifiers, when a look is due. True when they, and what they started,
  /// have done nothing for as long as allowed.
  bool IsOver(const std::vector<pid_t>& programs);

 private:
  using Counters = std::array<qint64, 4>;

  struct State {
    QHash<pid_t, Counters> processes;
    QList<std::pair<qint64, qint64>> files;  // size, time of change in nanoseconds
    bool operator==(const State&) const = default;
  };

  State Look(const std::vector<pid_t>& programs) const;

  Patience patience_;
  qint64 limitMs_;
  State last_;
  QElapsedTimer sinceLook_;
  QElapsedTimer sinceChange_;
};

}  // namespace torvane
