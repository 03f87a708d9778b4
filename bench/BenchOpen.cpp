// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Opening a collection up to its first coin, with everything that the window shows of it read.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "PlainSqlite.h"
#include "store/CoinFile.h"

namespace obelmark::bench {

namespace {

struct OpenCollection
{
    std::unique_ptr<Database> database;
    std::unique_ptr<Dynaset> coins;
};

OpenCollection openToFirstCoin(const QString &path)
{
    OpenCollection opened;
    opened.database = openCoinDatabase(path);
    opened.coins = openCoins(*opened.database);
    opened.coins->moveLast();
    opened.coins->moveFirst();
    readRow(*opened.coins);
    return opened;
}

double timeToFirstCoin(const QString &path)
{
    OpenCollection opened; // closed when the time has been taken
    return milliseconds([&] { opened = openToFirstCoin(path); });
}

double plainTimeToFirstCoin(const QString &path)
{
    Connection database;
    return milliseconds([&] {
        database = openPlain(path);
        PlainCursor coins(database.get(), sortOrders[0].keys);
        coins.moveLast();
        coins.moveFirst();
    });
}

using Measure = double (*)(const QString &);

Sides openBoth(const QString &path, const QString &otherPath, Measure otherMeasure)
{
    return {.ours = [=] { return timeToFirstCoin(path); }, .other = [=] { return otherMeasure(otherPath); }};
}

} // namespace

void addOpenBenches()
{
    for (const qint64 coins : {100 * thousand, million})
        registerComparison(
            {.name = "open + first coin, " + sizeName(coins),
             .prepare = [=] { return openBoth(collection(coins), collection(thousand), timeToFirstCoin); },
             .pairs = 200,
             .target = {.ratio = 1.2, .more = 1},
             .against = "1 thousand"});
    registerComparison({.name = "open + first coin, 1 million, no layers",
                        .prepare =
                            [] {
                                const QString path = collection(million);
                                return openBoth(path, twinOf(path), plainTimeToFirstCoin);
                            },
                        .pairs = 200});
}

} // namespace obelmark::bench
