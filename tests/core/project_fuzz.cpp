#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>

#include "project_mutations.h"

/// Loads damaged project files for a number of seconds: project_fuzz SECONDS [SEED]
int main(int argc, char** argv) {
  const qint64 milliseconds = (argc > 1 ? std::atoll(argv[1]) : 60) * 1000;
  const quint64 seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  torvane::test::ProjectMutations mutations(seed);
  QElapsedTimer clock;
  clock.start();
  qint64 rounds = 0;
  qint64 loaded = 0;
  qint64 slowest = 0;
  while (clock.elapsed() < milliseconds) {
    const qint64 before = clock.elapsed();
    const QString broken = mutations.Round();
    slowest = std::max(slowest, clock.elapsed() - before);
    ++rounds;
    if (mutations.loaded) ++loaded;
    if (broken.isEmpty()) continue;
    std::printf("round %lld of seed %llu: %s\n%s\n", rounds, seed, qPrintable(broken), mutations.last.constData());
    return 1;
  }
  std::printf("%lld rounds in %lld s, %lld loaded, the slowest %lld ms\n", rounds, clock.elapsed() / 1000, loaded, slowest);
  return 0;
}
