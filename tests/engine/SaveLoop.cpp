// Saves coins until it is killed: SaveLoop <database> <number of the first save>. Tells "put <key> <save>" or
// "remove <key>" before each save and "done" after it.

#include "engine/SaveLoop.h"
#include "engine/Database.h"
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

void save(Dynaset &coins, int number, unsigned choice)
{
    if (choice < 4 || coins.isEmpty()) {
        coins.addNew();
    } else {
        coins.moveFirst();
        for (unsigned steps = choice; steps > 0 && !coins.eof(); --steps)
            coins.moveNext();
        if (coins.eof())
            coins.moveLast();
        if (choice % 4 == 0) {
            std::printf("remove %lld\n", coins.value(u"coinid").toInt());
            coins.remove();
            return;
        }
        coins.edit();
    }
    const SavedCoin coin(number);
    coins.setValue(u"descr", coin.description);
    coins.setValue(u"Year", coin.year);
    coins.setValue(u"notes", coin.notes);
    std::printf("put %lld %d\n", coins.value(u"coinid").toInt(), number);
    coins.update();
}

} // namespace

int main(int, char **arguments)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto database =
        Database::open(QString::fromLocal8Bit(arguments[1]), Database::Access::Exclusive, {u"Coin"_s});
    const auto coins = database->openDynaset(u"select * from Coin order by descr"_s);
    std::mt19937 chance(std::random_device{}());
    for (int number = std::atoi(arguments[2]);; ++number) {
        save(*coins, number, chance() % 12);
        std::puts("done");
    }
}
