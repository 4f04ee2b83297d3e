#include "project_mutations.h"
#include "support/mutation_run.h"

/// Damaged project files for a number of seconds: project_fuzz SECONDS [SEED]
int main(int argc, char** argv) { return torvane::test::RunMutations<torvane::test::ProjectMutations>(argc, argv); }
