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
    void partOfALot()
    {
        EditorFixture e(lotOfTen);
        e.collection.addPicture(u"00000005.jpg"_s);
        e.start();
        e.the<QTabWidget>(u"Tab1").setCurrentIndex(1);
        e.desktop.answerText(question, questionTitle, u"4"_s);
        e.press(u"cmdSoldSome");
        QCOMPARE(e.desktop.problems(), QStringList());
        QCOMPARE(e.edit(u"txtQuantity").text(), u"6"_s);
        QCOMPARE(e.edit(u"txtTotalPaid").text(), u"$12.00"_s);
        QCOMPARE(e.edit(u"txtTotalSales").text(), u"$18.00"_s);
        QVERIFY(e.isBrowsing());
        // The coins sold stand apart in the catalogue order: the digits behind the hyphen count for them.
        QVERIFY(gui::trigger(*e.window, u"mnuSort_2"_s));
        QCOMPARE(e.edit(u"txtQuantity").text(), u"6"_s);
        e.press(u"cmdNext");
        QCOMPARE(e.edit(u"txtQuantity").text(), u"4"_s);
        QVERIFY(e.box(u"chkSold").isChecked());
        e.close();
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        QCOMPARE(lots(e), QStringList({u"5|6|120000|77|180000|1|0|NULL"_s,
                                       u"6|4|80000|NULL|120000|0|1|%1"_s.arg(today)}));
        QCOMPARE(
            e.collection.query(
                u"select descr, catnum, catsort, face, Year, wantlist, couid, Metal, issuedate, pricepaid,"
                " PurchaseDate, catvalue, priceask, notes, misc1, misc2 from Coin where coinid = 6"_s),
            QStringList(u"Lot|123-5|                1235|10000|1852|0|900|Silver|1952-05-03|20000|2001-02-03|"
                        "NULL|30000|a\r\nb|m|"_s));
        QVERIFY(!QFile::exists(u"images/00000006.jpg"_s));
    }

    void theWholeLot()
    {
        EditorFixture e(lotOfTen);
        e.start();
        e.the<QTabWidget>(u"Tab1").setCurrentIndex(1);
        e.desktop.answerText(question, questionTitle, u"10"_s);
        e.press(u"cmdSoldSome");
        QVERIFY(e.box(u"chkSold").isChecked());
        QVERIFY(!e.box(u"chkForSale").isChecked());
        e.close();
        QCOMPARE(lots(e), QStringList(u"5|10|200000|77|300000|0|1|NULL"_s));
    }

    void refused_data()
    {
        QTest::addColumn<std::optional<QString>>("answer");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("title");
        const QString number = u"You must enter a number for the number sold."_s;
        const QString required = u"Number Required"_s;
        using Text = std::optional<QString>;
        QTest::newRow("cancelled") << Text() << number << required;
        QTest::newRow("empty") << Text(QString()) << number << required;
        QTest::newRow("a word") << Text(u"four"_s) << number << required;
        QTest::newRow("none") << Text(u"0"_s) << number << required;
        QTest::newRow("rounded to none") << Text(u"0.5"_s) << number << required;
        QTest::newRow("negative") << Text(u"-4"_s) << number << required;
        QTest::newRow("more than there are")
            << Text(u"11"_s) << u"You do not have that many of the current coin."_s << u"Sold How Many?"_s;
    }
    void refused()
    {
        QFETCH(std::optional<QString>, answer);
        QFETCH(QString, message);
        QFETCH(QString, title);
        EditorFixture e(lotOfTen);
        e.start();
        e.desktop.answerText(question, questionTitle, answer);
        e.desktop.expectMessage(message, title);
        e.button(u"cmdSoldSome").click();
        QCOMPARE(e.desktop.problems(), QStringList());
        e.close();
        QCOMPARE(lots(e), QStringList(u"5|10|200000|77|300000|1|0|NULL"_s));
    }

    void nothingToSell()
    {
        EditorFixture e;
        e.start();
        e.desktop.expectMessage(u"There are no coins to sell."_s);
        e.button(u"cmdSoldSome").click();
        e.close();
        e.collection.exec(u"insert into Coin (descr) values ('no quantity')"_s);
        e.start();
        e.desktop.answerText(question, questionTitle, u"1"_s);
        e.desktop.expectMessage(u"You do not have that many of the current coin."_s, u"Sold How Many?"_s);
        e.button(u"cmdSoldSome").click();
        QCOMPARE(e.desktop.problems(), QStringList());
    }

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
    void aSaleIsNeverHalfRecorded_data()
    {
        QTest::addColumn<int>("failingWrite");
        QTest::newRow("the new record") << 1;
        QTest::newRow("the lot") << 2;
    }
    void aSaleIsNeverHalfRecorded()
    {
        QFETCH(int, failingWrite);
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
