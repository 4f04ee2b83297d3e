#include <gtest/gtest.h>

#include "reader_mutations.h"
#include "support/mutation_run.h"

namespace torvane {

TEST(MediaReaders, TakeAnyInput) {
  test::ReaderMutations mutations(20041);
  EXPECT_EQ(test::ShortRun(mutations, 5000), QString());
}

}  // namespace torvane
