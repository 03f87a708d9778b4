// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include <sqlite3.h>

using namespace obelmark;

namespace {

const QString question = u"How many of this coin were sold?"_s;
const QString questionTitle = u"Sold Some of Current Coin"_s;

/// A lot of 10 at 2.00 paid, 3.00 asked, no catalogue value; the issue date of another century than the year.
const QString lotOfTen =
    u"insert into country (couid, coudesc) values (900, 'Ruritania');"
    "insert into Coin (coinid, descr, catnum, catsort, face, Year, wantlist, quantity, couid, Metal, "
    "issuedate,"
    "                  pricepaid, totalpaid, PurchaseDate, catvalue, totalval, forsale, sold, priceask, "
    "totalsales,"
    "                  notes, misc1) values"
    " (5, 'Lot', '123-5', '                 123', 10000, 1852, 0, 10, 900, 'Silver', '1952-05-03', 20000, "
    "200000,"
    "  '2001-02-03', null, 77, 1, 0, 30000, 300000, 'a' || char(13) || char(10) || 'b', 'm');"_s;

QStringList lots(const EditorFixture &e)
{
    return e.collection.query(
        u"select coinid, quantity, totalpaid, totalval, totalsales, forsale, sold, SoldDate from "
        "Coin order by coinid"_s);
}

} // namespace

class SoldSomeTest : public QObject
{
    Q_OBJECT
private slots:
    void lotBeyondSixteenBits()
    {
        EditorFixture e(lotOfTen + u"update Coin set quantity = 50000"_s);
        e.start();
        e.desktop.answerText(question, questionTitle, u"99999999999"_s);
        e.desktop.expectMessage(u"You do not have that many of the current coin."_s, u"Sold How Many?"_s);
        e.button(u"cmdSoldSome").click();
        e.desktop.answerText(question, questionTitle, u"40000"_s);
        e.button(u"cmdSoldSome").click();
        QCOMPARE(e.desktop.problems(), QStringList());
        e.close();
        QCOMPARE(e.collection.query(u"select quantity, sold from Coin order by quantity"_s),
                 QStringList({u"10000|0"_s, u"40000|1"_s}));
    }

    // Whichever write of the sale fails, the lot is as it was.
    void aSaleIsNeverHalfRecorded()
    {
        for (const int failingWrite : {1, 2}) // the new record, the lot
        {
            EditorFixture e(lotOfTen);
            e.start();
            int writes = 0;
            e.shared->CoinDatabase->setFaultHook([&](FaultPoint point) {
                return point == FaultPoint::Update && ++writes == failingWrite ? SQLITE_FULL : 0;
            });
            e.desktop.answerText(question, questionTitle, u"4"_s);
            e.desktop.expectMessage(u"61  Disk full"_s);
            QVERIFY_THROWS_EXCEPTION(ProgramEnded, e.button(u"cmdSoldSome").click());
            QCOMPARE(e.desktop.problems(), QStringList());
            e.close();
            QCOMPARE(lots(e), QStringList(u"5|10|200000|77|300000|1|0|NULL"_s));
        }
    }

    // The lot is locked when the new record has been written: trying again completes the sale.
    void lockedLotIsTriedAgain()
    {
        EditorFixture e(lotOfTen);
        e.start();
        int writes = 0;
        e.shared->CoinDatabase->setFaultHook([&](FaultPoint point) {
            const bool locked = point == FaultPoint::Update && ++writes > 1 && writes <= 60;
            return locked ? SQLITE_BUSY : 0;
        });
        e.desktop.answerText(question, questionTitle, u"4"_s);
        e.button(u"cmdSoldSome").click();
        QCOMPARE(e.desktop.problems(), QStringList());
        e.close();
        QCOMPARE(lots(e).size(), 2);
    }
};

QTEST_MAIN(SoldSomeTest)
#include "SoldSome.moc"
