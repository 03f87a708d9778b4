// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_engine: the engine, the store and the work on whole files against SQLite's own C calls.
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
    addFileBenches();
    return runComparisons(argc, argv);
}
