#pragma once

#include <QElapsedTimer>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace torvane::test {

/// The main() of a program that gives damaged input to readers for as long as one likes: PROGRAM SECONDS [SEED].
/// `Mutations` takes a seed; its Round() returns what was broken, "" for nothing.
template <class Mutations>
int RunMutations(int argc, char** argv) {
  const qint64 milliseconds = (argc > 1 ? std::atoll(argv[1]) : 60) * 1000;
  const quint64 seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  Mutations mutations(seed);
  QElapsedTimer clock;
  clock.start();
  qint64 rounds = 0;
  qint64 slowest = 0;
  while (clock.elapsed() < milliseconds) {
    const qint64 before = clock.elapsed();
    const QString broken = mutations.Round();
    slowest = std::max(slowest, clock.elapsed() - before);
    ++rounds;
    if (broken.isEmpty()) continue;
    std::printf("round %lld of seed %llu: %s\n", rounds, seed, qPrintable(broken));
    return 1;
  }
  std::printf("%lld rounds in %lld s, the slowest %lld ms\n", rounds, clock.elapsed() / 1000, slowest);
  return 0;
}

/// The same for a test: `most` rounds, or as many as fit into two seconds on a slow machine. "" when nothing broke.
template <class Mutations>
QString ShortRun(Mutations& mutations, int most) {
  constexpr qint64 kMostMilliseconds = 2000;
  QElapsedTimer clock;
  clock.start();
  for (int round = 0; round < most && clock.elapsed() < kMostMilliseconds; ++round) {
    const QString broken = mutations.Round();
    if (!broken.isEmpty()) return QStringLiteral("round %1: ").arg(round) + broken;
  }
  return {};
}

}  // namespace torvane::test
