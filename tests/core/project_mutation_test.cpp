#include <gtest/gtest.h>

#include "project_mutations.h"
#include "support/mutation_run.h"

namespace torvane {

TEST(ProjectReader, LoadsADamagedFileWholeOrNotAtAll) {
  test::ProjectMutations mutations(30042);
  EXPECT_EQ(test::ShortRun(mutations, 800), QString());
  // Damage that is never taken would test the XML parser alone.
  EXPECT_GT(mutations.loadedFiles, mutations.refusedFiles / 20);
  EXPECT_GT(mutations.refusedFiles, 0);
}

}  // namespace torvane
