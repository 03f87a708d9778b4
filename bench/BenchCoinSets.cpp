// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_coin_sets: a million coins by place, in some order, as a list of coins has them; against plain
// SQLite, which reads their keys in one go.
#include "Collections.h"
#include "Comparison.h"
#include "PlainSqlite.h"
#include "coins/CoinSet.h"
#include "common/CollectionChanges.h"
#include "store/CoinFile.h"
#include <algorithm>

namespace obelmark::bench {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// No slice may keep the window from answering.
constexpr double longestSliceMs = 50;

struct SetBench
{
    const char *name;
    CoinQuery query;
    const char *plainSql;
};

struct Reader
{
    explicit Reader(const SetBench &bench)
        : database(openCoinDatabase(collection(million))), query(bench.query),
          plainDatabase(openPlain(twinOf(collection(million)))),
          plainQuery(prepare(plainDatabase.get(), bench.plainSql))
    {
    }

    /// Reads the set; answers the milliseconds of the longest slice.
    double read()
    {
        double longest = 0;
        const auto slice = [&](const std::function<void()> &work) {
            longest = std::max(longest, milliseconds(work));
        };
        slice([&] { set = std::make_unique<CoinSet>(*database, query); });
        for (bool isComplete = false; !isComplete;)
            slice([&] { isComplete = set->read(10ms); });
        return longest;
    }
    double readPlain()
    {
        return milliseconds([&] {
            std::vector<qint64> keys;
            while (sqlite3_step(plainQuery.get()) == SQLITE_ROW)
                keys.push_back(sqlite3_column_int64(plainQuery.get(), 0));
            sqlite3_reset(plainQuery.get());
            benchmark::DoNotOptimize(keys);
        });
    }

    std::unique_ptr<Database> database;
    CoinQuery query;
    std::unique_ptr<CoinSet> set;
    Connection plainDatabase;
    Statement plainQuery;
};

void addBenches(const SetBench &bench)
{
    const auto prepareReading = [=] {
        const auto reader = std::make_shared<Reader>(bench);
        return Sides{.ours = [=] { return milliseconds([&] { reader->read(); }); },
                     .other = [=] { return reader->readPlain(); }};
    };
    const auto prepareSlices = [=] {
        const auto reader = std::make_shared<Reader>(bench);
        return Sides{.ours = [=] { return reader->read(); }, .other = [=] { return reader->readPlain(); }};
    };
    const auto prepareChange = [=] {
        const auto reader = std::make_shared<Reader>(bench);
        reader->read();
        Changes changes;
        changes.rows.push_back({RowChange::Kind::Changed, u"Coin"_s, million / 3, {}});
        return Sides{.ours = [=] { return milliseconds([&] { reader->set->apply(changes); }); },
                     .other = [] { return 0.0; }};
    };
    const std::string name = std::string("1 million, ") + bench.name;
    registerComparison({.name = "set of " + name, .prepare = prepareReading, .pairs = 3});
    registerComparison({.name = "longest slice of " + name,
                        .prepare = prepareSlices,
                        .pairs = 3,
                        .target = {.atMost = longestSliceMs}});
    registerComparison({.name = "a changed coin of " + name,
                        .prepare = prepareChange,
                        .pairs = 30,
                        .target = {.atMost = longestSliceMs}});
}

} // namespace

} // namespace obelmark::bench

int main(int argc, char *argv[])
{
    using namespace obelmark::bench;
    using namespace Qt::StringLiterals;
    const SetBench benches[] = {
        {"by description", {{}, {{u"descr"_s}}}, "select coinid from Coin order by descrsort, coinid"},
        {"by price",
         {{}, {{u"pricepaid"_s, true}}},
         "select coinid from Coin order by pricepaid desc, coinid"},
        {"by country and description",
         {{}, {{u"coudesc"_s}, {u"descr"_s}}},
         "select coinid from Coin left join country using (couid) order by coudescsort, descrsort, coinid"},
        {"those with a text in one of two fields",
         {u"descr like '*eagle*' or notes like '*eagle*'"_s, {{u"Year"_s}}},
         "select coinid from Coin where descr like '%eagle%' or notes like '%eagle%' order by Year, coinid"},
    };
    for (const SetBench &bench : benches)
        addBenches(bench);
    return runComparisons(argc, argv);
}
