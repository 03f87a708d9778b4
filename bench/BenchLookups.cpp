// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A lookup table of 50 thousand entries against the delivered one of some hundred: moving through it, and
// asking whether a coin uses an entry.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "PlainSqlite.h"
#include "store/CoinFile.h"
#include <QFile>
#include <QTemporaryDir>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

/// A collection of a thousand coins, opened, with its mints.
struct Mints
{
    explicit Mints(int moreMints)
    {
        const QString path = folder.filePath(u"coin.mdb"_s);
        if (!QFile::copy(collection(thousand), path))
            throw std::runtime_error("the collection could not be copied");
        execute(openPlain(path).get(),
                "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
                    std::to_string(moreMints) +
                    ") insert into mint (mindesc, mindescsort) select 'Mint ' || i, 'mint ' || i from n");
        database = openCoinDatabase(path);
        entries = database->openDynaset(u"Select * from mint order by mindesc"_s);
    }

    double next()
    {
        return milliseconds([&] {
            entries->moveNext();
            if (entries->eof())
                entries->moveFirst();
            benchmark::DoNotOptimize(entries->value(u"mindesc"));
        });
    }

    double inUse()
    {
        entries->moveNext();
        if (entries->eof())
            entries->moveFirst();
        return milliseconds([&] {
            const auto users = database->openForwardOnly(
                u"Select CoinID from Coin where minID = %1"_s.arg(entries->value(u"minid").toInt()));
            benchmark::DoNotOptimize(users->eof());
        });
    }

    QTemporaryDir folder;
    std::unique_ptr<Database> database;
    std::unique_ptr<Dynaset> entries;
};

Sides bothTables(double (Mints::*measure)())
{
    const auto many = std::make_shared<Mints>(50'000);
    const auto few = std::make_shared<Mints>(1);
    return {.ours = [=] { return (*many.*measure)(); }, .other = [=] { return (*few.*measure)(); }};
}

} // namespace

void addLookupBenches()
{
    registerComparison({.name = "next entry, 50 thousand",
                        .prepare = [] { return bothTables(&Mints::next); },
                        .pairs = 500,
                        .target = {.atMost = 1},
                        .against = "176 entries"});
    registerComparison({.name = "is the entry in use, 50 thousand",
                        .prepare = [] { return bothTables(&Mints::inUse); },
                        .pairs = 500,
                        .target = {.atMost = 1},
                        .against = "176 entries"});
}

} // namespace obelmark::bench
