#include "support/mutation_run.h"
#include "tool_mutations.h"

/// Damaged input for the console's own tools for a number of seconds: shell_fuzz SECONDS [SEED]
int main(int argc, char** argv) {
  return torvane::test::RunMutations<torvane::test::ToolMutations>(argc, argv);
}
