// bench_engine: the engine and the store against SQLite's own C calls.
#include "Comparison.h"
#include "EngineBenches.h"

int main(int argc, char *argv[])
{
    using namespace obelmark::bench;
    addOpenBenches();
    addMoveBenches();
    addFindBenches();
    addUpdateBenches();
    addLookupBenches();
    return runComparisons(argc, argv);
}
