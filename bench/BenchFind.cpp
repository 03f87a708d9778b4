// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finding coins among a million, and reading the entries of a lookup list.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "PlainSqlite.h"
#include "store/CoinFile.h"
#include <stdexcept>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

struct Finders
{
    Finders(const QString &path, const QString &plainSql)
        : database(openCoinDatabase(path)), coins(openCoins(*database)),
          plainDatabase(openPlain(twinOf(path))),
          plainQuery(prepare(plainDatabase.get(), plainSql.toStdString()))
    {
    }

    std::unique_ptr<Database> database;
    std::unique_ptr<Dynaset> coins;
    Connection plainDatabase;
    Statement plainQuery;
};

Sides prepareFindByKey()
{
    const auto finders =
        std::make_shared<Finders>(collection(million), u"select * from Coin where coinid = ?"_s);
    const auto key = std::make_shared<qint64>(0);
    const auto ours = [=] { finders->coins->findFirst(u"CoinID = %1"_s.arg(*key)); };
    const auto plain = [query = finders->plainQuery.get(), key] {
        sqlite3_bind_int64(query, 1, *key);
        sqlite3_step(query);
        benchmark::DoNotOptimize(readRow(query));
        sqlite3_reset(query);
    };
    const auto check = [=] {
        if (finders->coins->noMatch() || finders->coins->value(u"coinid").toInt() != *key)
            throw std::runtime_error("the coin was not found");
    };
    return {.ours = [=] { return milliseconds(ours); },
            .other = [=] { return milliseconds(plain); },
            .beforePair = [=] { *key = (*key + 618'033) % million + 1; }, // all over the file
            .afterPair = check};
}

struct LikeBench
{
    const char *name;
    void (Dynaset::*find)(const QString &);
    QString column;
    Letters letters;
    QString text; ///< stands in no coin
};

Sides prepareLike(const LikeBench &bench)
{
    const auto finders = std::make_shared<Finders>(
        collection(million, bench.letters),
        u"select coinid from Coin where %1 like '%%2%'"_s.arg(bench.column, bench.text));
    const auto ours = [=, criteria = u"%1 like \"*%2*\""_s.arg(bench.column, bench.text)] {
        (finders->coins.get()->*bench.find)(criteria);
    };
    const auto check = [=] {
        if (!finders->coins->noMatch())
            throw std::runtime_error("there is a match");
    };
    return {.ours = [=] { return milliseconds(ours); },
            .other = [=] { return milliseconds([&] { stepToEnd(finders->plainQuery.get()); }); },
            .afterPair = check};
}

Sides prepareCountryList()
{
    const auto finders = std::make_shared<Finders>(
        collection(million), u"select couid, coudesc from country order by coudescsort"_s);
    const auto ours = [=] {
        const auto entries = finders->database->openSnapshot(u"Select * from country order by coudesc"_s);
        for (; !entries->eof(); entries->moveNext()) {
            benchmark::DoNotOptimize(entries->value(u"couid"));
            benchmark::DoNotOptimize(entries->value(u"coudesc"));
        }
    };
    const auto plain = [query = finders->plainQuery.get()] {
        while (sqlite3_step(query) == SQLITE_ROW)
            benchmark::DoNotOptimize(readRow(query));
        sqlite3_reset(query);
    };
    return {.ours = [=] { return milliseconds(ours); }, .other = [=] { return milliseconds(plain); }};
}

} // namespace

void addFindBenches()
{
    registerComparison({.name = "FindFirst by key, 1 million",
                        .prepare = prepareFindByKey,
                        .pairs = 2000,
                        .target = {.atMost = 1}});
    const LikeBench benches[] = {
        {"FindFirst", &Dynaset::findFirst, u"descr"_s, Letters::Ascii, u"qxz"_s},
        {"FindNext", &Dynaset::findNext, u"descr"_s, Letters::Ascii, u"qxz"_s},
        {"FindFirst", &Dynaset::findFirst, u"notes"_s, Letters::Ascii, u"qxz"_s},
        {"FindFirst", &Dynaset::findFirst, u"descr"_s, Letters::Ascii, u"eagel"_s},
        {"FindFirst", &Dynaset::findFirst, u"descr"_s, Letters::Other, u"qxz"_s},
        {"FindNext", &Dynaset::findNext, u"descr"_s, Letters::Other, u"ъъю"_s},
        {"FindFirst", &Dynaset::findFirst, u"notes"_s, Letters::Other, u"ъъю"_s},
    };
    for (const LikeBench &bench : benches) {
        const bool ascii = bench.letters == Letters::Ascii;
        const QString name = u"%1 %2 like \"*%3*\", 1 million%4"_s.arg(
            QLatin1StringView(bench.name), bench.column, bench.text, ascii ? u""_s : u", non-ASCII"_s);
        registerComparison({.name = name.toStdString(),
                            .prepare = [bench] { return prepareLike(bench); },
                            .pairs = 11,
                            .target = {.ratio = ascii ? 1.5 : 4}});
    }
    registerComparison({.name = "the list of countries", .prepare = prepareCountryList, .pairs = 1000});
}

} // namespace obelmark::bench
