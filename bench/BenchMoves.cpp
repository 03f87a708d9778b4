// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Moves in the three orders of a million coins, each with everything that the window shows of the coin read.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "PlainSqlite.h"
#include "store/CoinFile.h"
#include <stdexcept>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int pairs = 2000;

/// Both sides on the same coin, far enough from the end of the order to move either way.
struct Movers
{
    explicit Movers(const SortOrder &sortOrder)
        : order(sortOrder), database(openCoinDatabase(collection(million))),
          coins(openCoins(*database, CoinOrder(order.number))),
          plainDatabase(openPlain(twinOf(collection(million)))), plainCoins(plainDatabase.get(), order.keys)
    {
        coins->moveLast();
        plainCoins.moveLast();
        for (int i = 0; i < 5 * pairs; ++i) {
            coins->movePrevious();
            plainCoins.movePrevious();
        }
    }

    const SortOrder &order;
    std::unique_ptr<Database> database;
    std::unique_ptr<Dynaset> coins;
    Connection plainDatabase;
    PlainCursor plainCoins;
};

struct Move
{
    const char *name;
    void (*ours)(Movers &);
    void (*plain)(PlainCursor &);
};

constexpr Move moves[] = {
    {"first", [](Movers &m) { m.coins->moveFirst(); }, [](PlainCursor &c) { c.moveFirst(); }},
    {"next", [](Movers &m) { m.coins->moveNext(); }, [](PlainCursor &c) { c.moveNext(); }},
    {"previous", [](Movers &m) { m.coins->movePrevious(); }, [](PlainCursor &c) { c.movePrevious(); }},
    {"last", [](Movers &m) { m.coins->moveLast(); }, [](PlainCursor &c) { c.moveLast(); }},
    {"change of order",
     [](Movers &m) {
         // As the main window does. Opening makes the first coin current; then it moves to the last and back.
         m.coins = openCoins(*m.database, CoinOrder(m.order.number));
         m.coins->moveLast();
         m.coins->moveFirst();
     },
     [](PlainCursor &c) {
         c.moveFirst();
         c.moveLast();
         c.moveFirst();
     }},
};

Sides prepareMove(const SortOrder &order, const Move &move)
{
    const auto movers = std::make_shared<Movers>(order);
    const auto ours = [=] {
        move.ours(*movers);
        readRow(*movers->coins);
    };
    const auto checkSameCoin = [=] {
        if (movers->coins->value(u"coinid").toInt() != movers->plainCoins.coinId())
            throw std::runtime_error("the two sides are on different coins");
    };
    return {.ours = [=] { return milliseconds(ours); },
            .other = [=] { return milliseconds([&] { move.plain(movers->plainCoins); }); },
            .afterPair = checkSameCoin};
}

} // namespace

void addMoveBenches()
{
    for (const SortOrder &order : sortOrders) {
        for (const Move &move : moves)
            registerComparison({.name = std::string(move.name) + " " + order.name + ", 1 million",
                                .prepare = [&order, move] { return prepareMove(order, move); },
                                .pairs = pairs,
                                .target = {.atMost = 1, .ratio = 3}});
    }
}

} // namespace obelmark::bench
