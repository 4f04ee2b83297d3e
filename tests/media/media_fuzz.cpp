#include "reader_mutations.h"
#include "support/mutation_run.h"

/// Random and damaged media files for a number of seconds: media_fuzz SECONDS [SEED]
int main(int argc, char** argv) { return torvane::test::RunMutations<torvane::test::ReaderMutations>(argc, argv); }
