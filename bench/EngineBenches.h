// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/Dynaset.h"
#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace obelmark::bench {

void addOpenBenches();
void addMoveBenches();
void addFindBenches();
void addUpdateBenches();
void addLookupBenches();
void addFileBenches();

/// The main window's three orders, as openCoins() numbers them, and the columns that SQL orders them by.
struct SortOrder
{
    int number;
    std::string name;
    std::vector<std::string> keys;
};
inline const std::array<SortOrder, 3> sortOrders{{
    {1, "by description", {"descrsort"}},
    {2, "by catalogue number", {"catsort", "catnumsort"}},
    {3, "by year", {"Year"}},
}};

/// What the main window shows and saves of a coin.
inline constexpr std::array coinColumns{
    u"descr",    u"catnum",   u"catsort",   u"face",    u"Year",      u"wantlist",  u"quantity",
    u"conid",    u"couid",    u"minid",     u"catid",   u"typid",     u"forid",     u"SerNum",
    u"Metal",    u"Errors",   u"issuedate", u"bouid",   u"pricepaid", u"totalpaid", u"PurchaseDate",
    u"catvalue", u"totalval", u"SoldDate",  u"forsale", u"sold",      u"priceask",  u"totalsales",
    u"notes",    u"misc1",    u"misc2",
};

/// Reads all of that.
inline void readRow(const Dynaset &coins)
{
    for (const char16_t *column : coinColumns)
        benchmark::DoNotOptimize(coins.value(column));
}

} // namespace obelmark::bench
