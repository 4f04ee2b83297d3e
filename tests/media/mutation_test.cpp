#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "reader_mutations.h"

namespace torvane {

TEST(MediaReaders, TakeAnyInput) {
  constexpr int kRounds = 5000;
  constexpr qint64 kMostMilliseconds = 2000;  // a slow machine does fewer rounds of the same sequence
  test::ReaderMutations mutations(20041);
  QElapsedTimer clock;
  clock.start();
  for (int round = 0; round < kRounds && clock.elapsed() < kMostMilliseconds; ++round) {
    ASSERT_EQ(mutations.Round(), QString()) << "round " << round;
  }
}

}  // namespace torvane
