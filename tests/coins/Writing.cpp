// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/Coin.h"
#include "coins/WriteStep.h"
#include "common/SharedState.h"
#include "store/CoinFile.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <QTest>
#include <sqlite3.h>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

/// A change as a line: "Coin 5: quantity 3 > 4".
QString told(const RowChange &row)
{
    static const QStringList signs{u"+"_s, u""_s, u"-"_s};
    QStringList fields;
    for (const RowChange::Field &field : row.fields)
        fields << u"%1 %2 > %3"_s.arg(field.column, field.before.toText(), field.after.toText());
    return u"%1%2 %3: %4"_s.arg(signs[int(row.kind)], row.table, QString::number(row.key),
                                fields.join(u", "));
}

struct Opened
{
    explicit Opened(const QString &sql)
    {
        collection.exec(sql);
        shared.CoinDatabase = openCoinDatabase(collection.databasePath());
        shared.CoinRecordset = openCoins(*shared.CoinDatabase);
        QObject::connect(&shared.changes, &CollectionSignal::changed, [this](const Changes &changes) {
            changeds << changes.what;
            for (const RowChange &row : changes.rows)
                changeds << told(row);
        });
    }
    void close()
    {
        shared.CoinRecordset.reset();
        shared.CoinDatabase.reset();
    }

    TestCollection collection;
    ScriptedDesktop desktop;
    SharedState shared{desktop, RegionalSettings(QLocale(u"en_US"_s))};
    QStringList changeds;
};

const QString threeCoins =
    u"insert into Coin (coinid, descr, catnum, Year, quantity, pricepaid, SoldDate, notes, sold) values"
    " (5, 'b', null, 1881, 3, 25055, '1852-05-03', 'a' || char(13, 10), 0),"
    " (6, '', 'KM 1', null, null, null, 'soon', null, null), (7, x'00ff', '', -44, 1, -1, null, '', 1);"_s;

} // namespace

class WritingTest : public QObject
{
    Q_OBJECT
private slots:
    // Null stays null and empty stays empty; what the columns cannot hold is not touched.
    void coinsComeBackAsTheyWere()
    {
        Opened o(threeCoins);
        Dynaset &coins = *o.shared.CoinRecordset;
        for (; !coins.eof(); coins.moveNext()) {
            const Coin coin = readCoin(coins);
            coins.edit();
            writeChanges(coins, coin, coin);
            if (coin.coinid != 6)
                writeCoin(coins, coin);
            QCOMPARE(coins.pendingChange().fields.size(), 0);
            coins.update();
        }
        const QString everything = u"select * from Coin order by coinid"_s;
        const QStringList after = (o.close(), o.collection.query(everything));
        const Opened untouched(threeCoins);
        QCOMPARE(after, (const_cast<Opened &>(untouched).close(), untouched.collection.query(everything)));
    }

    void stepTellsWhatItHasWritten()
    {
        Opened o(threeCoins);
        Dynaset &coins = *o.shared.CoinRecordset;
        int locked = 3;
        o.shared.CoinDatabase->setFaultHook(
            [&](FaultPoint point) { return point == FaultPoint::Update && locked-- > 0 ? SQLITE_BUSY : 0; });
        {
            WriteStep step(o.shared, StepKind::Sell, u"Several"_s, nullptr);
            coins.findFirst(u"coinid = 5"_s);
            Coin coin = readCoin(coins);
            QCOMPARE(coinName(coin), u"b 1881"_s);
            coins.edit();
            coin.pricepaid = Money::fromTenThousandths(3);
            coin.SoldDate.reset();
            writeCoin(coins, coin);
            QVERIFY(step.update(coins));
            coins.addNew();
            coins.setValue(u"descr", u"new"_s);
            QVERIFY(step.update(coins));
            coins.findFirst(u"coinid = 6"_s);
            QVERIFY(step.remove(coins));
            QCOMPARE(o.changeds, QStringList()); // not before it is in the file
            bool isFirst = false;
            QVERIFY(step.commit([&] { isFirst = o.changeds.isEmpty(); }));
            QVERIFY(isFirst);
        }
        QCOMPARE(o.changeds,
                 QStringList({u"Several"_s, u"Coin 5: pricepaid 2.5055 > 0.0003, SoldDate 1852-05-03 > "_s,
                              u"+Coin 8: descr  > new"_s,
                              u"-Coin 6: descr  > , catnum KM 1 > , catsort "
                              "                   1 > "_s}));
        {
            WriteStep dropped(o.shared, StepKind::Delete, u"Nothing"_s, nullptr);
            coins.findFirst(u"coinid = 7"_s);
            QVERIFY(dropped.remove(coins));
        }
        QCOMPARE(o.changeds.size(), 4);
        QCOMPARE(readCoin(*openCoins(*o.shared.CoinDatabase)).coinid, qint64(7));
        QCOMPARE(o.desktop.problems(), QStringList());
    }

    void entriesMakeTheirListStale()
    {
        Opened o({});
        const auto mints = o.shared.CoinDatabase->openDynaset(lookupTable(Lookup::Mints).entriesQuery());
        WriteStep step(o.shared, StepKind::Entry, u"Add Mint 'x'"_s, nullptr);
        mints->addNew();
        mints->setValue(u"mindesc", u"x"_s);
        QVERIFY(step.update(*mints) && step.commit());
        QVERIFY(o.shared.ReloadMints && !o.shared.ReloadTypes);
    }
};

QTEST_GUILESS_MAIN(WritingTest)
#include "Writing.moc"
