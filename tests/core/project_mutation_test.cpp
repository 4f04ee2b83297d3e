#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "project_mutations.h"

namespace torvane {

TEST(ProjectReader, LoadsADamagedFileWholeOrNotAtAll) {
  constexpr int kRounds = 800;
  constexpr qint64 kMostMilliseconds = 5000;  // a slow machine does fewer rounds of the same sequence
  test::ProjectMutations mutations(30042);
  QElapsedTimer clock;
  clock.start();
  int loaded = 0;
  int rounds = 0;
  for (; rounds < kRounds && clock.elapsed() < kMostMilliseconds; ++rounds) {
    ASSERT_EQ(mutations.Round(), QString()) << "round " << rounds << "\n" << mutations.last.toStdString();
    if (mutations.loaded) ++loaded;
  }
  EXPECT_GT(loaded, rounds / 20);  // damage that is never taken would test the parser alone
  EXPECT_LT(loaded, rounds);
}

}  // namespace torvane
