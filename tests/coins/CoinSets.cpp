// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/CoinSet.h"
#include "coins/WriteStep.h"
#include "common/SharedState.h"
#include "store/CoinFile.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <QRandomGenerator>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Several slices of keys, with a wide gap between them; few texts, so that many are alike.
const QString manyCoins =
    u"insert into country (couid, coudesc) values (901, 'Ruritania'), (902, 'éire'), (903, null);"
    "with recursive n(i) as (select 1 union all select i + 1 from n where i < %1)"
    "insert into Coin (coinid, descr, catnum, Year, SerNum, pricepaid, SoldDate, couid, sold) select"
    " i + i / 3000 * 1000000, substr('Éé aÄzZ', i % 7 + 1, i % 3), nullif(i % 40, 3), nullif(i % 90 - 40, 5),"
    " substr('aBAbc', i % 5 + 1, i % 2 + 1), (i * 7919 % 1000 - 500) * 10, nullif(date('1850-01-01', i % 50 "
    "|| ' days'),"
    " '1850-01-04'), nullif(900 + i % 5, 900), i % 2 from n;"_s;

struct Opened
{
    explicit Opened(int coins = 5000)
    {
        collection.exec(manyCoins.arg(coins));
        shared.CoinDatabase = openCoinDatabase(collection.databasePath());
        shared.CoinRecordset = openCoins(*shared.CoinDatabase);
    }

    /// The order that a report of the same query has.
    QList<qint64> reported(const CoinQuery &query) const
    {
        QString sql = u"select Coin.coinid from Coin left join country on Coin.couid = country.couid "_s;
        if (!query.condition.isEmpty())
            sql += u"where %1 "_s.arg(query.condition);
        sql += u"order by "_s;
        for (const auto &[column, descending] : query.order)
            sql += column + (descending ? u" desc, "_s : u", "_s);
        QList<qint64> keys;
        for (const auto row = shared.CoinDatabase->openForwardOnly(sql + u"Coin.coinid"_s); !row->eof();
             row->moveNext())
            keys << row->value(0).toInt();
        return keys;
    }

    /// Some random coins are added, changed or deleted.
    void write(QRandomGenerator &random)
    {
        Dynaset &coins = *shared.CoinRecordset;
        WriteStep step(shared, StepKind::Change, {}, nullptr);
        for (int i = 0; i < 8; ++i) {
            coins.findFirst(u"coinid = %1"_s.arg(random.bounded(1, 3000)));
            const int what = int(random.bounded(4));
            if (what == 0 && !coins.noMatch()) {
                step.remove(coins);
                continue;
            }
            what == 1 || coins.noMatch() ? coins.addNew() : coins.edit();
            coins.setValue(u"descr", QString(1 + random.bounded(3), u"aÉz"[random.bounded(3)]));
            coins.setValue(u"pricepaid", Money::fromTenThousandths(random.bounded(-5000, 5000)));
            coins.setValue(u"sold", random.bounded(2) == 0);
            step.update(coins);
        }
        step.commit();
    }

    TestCollection collection;
    ScriptedDesktop desktop;
    SharedState shared{desktop, RegionalSettings(QLocale(u"en_US"_s))};
};

QList<qint64> keysOf(const CoinSet &set)
{
    QList<qint64> keys;
    for (qsizetype row = 0; row < set.count(); ++row)
        keys << set.keyAt(row);
    return keys;
}

} // namespace

class CoinSetsTest : public QObject
{
    Q_OBJECT
private slots:
    void order_data()
    {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<QStringList>("order"); // "-" for descending
        QTest::newRow("all, by key") << QString() << QStringList();
        QTest::newRow("a text with a companion") << QString() << QStringList(u"descr"_s);
        QTest::newRow("texts without one") << u"not sold"_s << QStringList({u"-SerNum"_s, u"catnum"_s});
        QTest::newRow("money") << u"sold and descr like '*z*'"_s << QStringList(u"-pricepaid"_s);
        QTest::newRow("a negative year, a date") << QString() << QStringList({u"Year"_s, u"-SoldDate"_s});
        QTest::newRow("entries") << u"coudesc like 'e*' or Coin.couid is null"_s
                                 << QStringList({u"coudesc"_s, u"descr"_s});
        QTest::newRow("none") << u"pricepaid > 99"_s << QStringList(u"descr"_s);
    }
    // As in a report, and so it stays while coins are written: in the middle of the reading and behind it.
    void order()
    {
        QFETCH(QString, condition);
        QFETCH(QStringList, order);
        Opened o;
        CoinQuery query{condition, {}};
        for (const QString &term : order)
            query.order << CoinQuery::Term{QString(term).remove(u'-'), term.startsWith(u'-')};
        CoinSet set(*o.shared.CoinDatabase, query);
        connect(&o.shared.changes, &CollectionSignal::changed, this,
                [&](const Changes &changes) { set.apply(changes); });
        QRandomGenerator random(7);
        int slices = 0;
        for (; !set.read(0ms); ++slices) {
            QVERIFY(set.progress() >= 0 && set.progress() <= 1);
            o.write(random);
        }
        QVERIFY(slices > 1);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(keysOf(set), o.reported(query));
            o.write(random);
        }
        for (qsizetype row = 0; row < set.count(); row += 100)
            QCOMPARE(set.rowOf(set.keyAt(row)), row);
        QCOMPARE(set.rowOf(-5), qsizetype(-1));
        o.shared.changes.disconnect(this);
    }

    // More than are sorted at a time.
    void veryMany()
    {
        const Opened o(20000);
        const CoinQuery query{{}, {{u"descr"_s}, {u"pricepaid"_s, true}}};
        CoinSet set(*o.shared.CoinDatabase, query);
        while (!set.read(1s)) {
        }
        QCOMPARE(keysOf(set), o.reported(query));
    }

    // Entries move coins that nobody has written, and very many coins at once are read anew.
    void readAnew()
    {
        Opened o;
        const CoinQuery query{{}, {{u"coudesc"_s}}};
        CoinSet set(*o.shared.CoinDatabase, query);
        while (!set.read(1s)) {
        }
        const auto countries =
            o.shared.CoinDatabase->openDynaset(u"select * from country order by coudesc"_s);
        countries->findFirst(u"couid = 902"_s);
        countries->edit();
        countries->setValue(u"coudesc", u"Zz"_s);
        countries->update();
        set.apply({.rows = {{RowChange::Kind::Changed, u"country"_s, 902, {}}}});
        QVERIFY(!set.isComplete() && set.count() == 5000);
        while (!set.read(1s)) {
        }
        QCOMPARE(keysOf(set), o.reported(query));
        set.apply({.rows = std::vector<RowChange>(500, {RowChange::Kind::Changed, u"Coin"_s, 1, {}})});
        QVERIFY(set.isComplete());
        Changes many;
        for (qint64 key = 1; key <= 500; ++key)
            many.rows.push_back({RowChange::Kind::Changed, u"Coin"_s, key, {}});
        set.apply(many);
        QVERIFY(!set.isComplete());
    }
};

QTEST_GUILESS_MAIN(CoinSetsTest)
#include "CoinSets.moc"
