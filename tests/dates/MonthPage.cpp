#include "dates/MonthPage.h"

#include <QRandomGenerator>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class MonthPageTest : public QObject
{
    Q_OBJECT
private slots:
    void lastDayInTheGrid()
    {
        const std::pair<QDate, MonthPage::Cell> months[] = {
            {QDate(2015, 2, 1), {4, 6}}, // begins on Sunday and fills four rows
            {QDate(2021, 8, 1), {5, 2}}, // begins on Sunday
            {QDate(2005, 4, 1), {5, 6}}, // 30 days from Friday
            {QDate(2010, 1, 1), {6, 0}}, // 31 days from Friday
            {QDate(2004, 5, 1), {6, 1}}, // 31 days from Saturday
            {QDate(9999, 12, 1), {5, 5}},
        };
        for (const auto &[month, cell] : months)
            QCOMPARE(MonthPage(month).dayAt(cell), month.daysInMonth());
    }

    void everyDayStandsOnceUnderItsWeekday()
    {
        QRandomGenerator random(31);
        for (int i = 0; i < 2'000; ++i) {
            const QDate chosen = QDate(100, 1, 1).addDays(random.bounded(3'615'900));
            const MonthPage page(chosen);
            int next = 1;
            for (int row = 0; row < MonthPage::rows; ++row) {
                for (int column = 0; column < MonthPage::columns; ++column) {
                    const int day = page.dayAt({row, column});
                    if (day == 0)
                        continue;
                    QCOMPARE(day, next++);
                    QCOMPARE(QDate(chosen.year(), chosen.month(), day).dayOfWeek() % 7, column);
                    QCOMPARE(page.cellOf(day), (MonthPage::Cell{row, column}));
                }
            }
            QCOMPARE(next, chosen.daysInMonth() + 1);
        }
    }

    void stepping_data()
    {
        QTest::addColumn<QDate>("from");
        QTest::addColumn<int>("months");
        QTest::addColumn<QDate>("to"); // null where the step is refused
        QTest::newRow("back over New Year") << QDate(2005, 1, 15) << -1 << QDate(2004, 12, 15);
        QTest::newRow("on over New Year") << QDate(2004, 12, 15) << 1 << QDate(2005, 1, 15);
        QTest::newRow("31 March to February") << QDate(2005, 3, 31) << -1 << QDate(2005, 2, 1);
        QTest::newRow("31 March to April") << QDate(2005, 3, 31) << 1 << QDate(2005, 4, 1);
        QTest::newRow("30 March to April") << QDate(2005, 3, 30) << 1 << QDate(2005, 4, 30);
        QTest::newRow("29 February, a year on") << QDate(2004, 2, 29) << 12 << QDate(2005, 2, 1);
        QTest::newRow("29 February, a year back") << QDate(2004, 2, 29) << -12 << QDate(2003, 2, 1);
        QTest::newRow("year on") << QDate(1899, 12, 31) << 12 << QDate(1900, 12, 31);
        QTest::newRow("to the first year") << QDate(101, 7, 4) << -12 << QDate(100, 7, 4);
        QTest::newRow("before the first month") << QDate(100, 1, 31) << -1 << QDate();
        QTest::newRow("before the first year") << QDate(100, 12, 31) << -12 << QDate();
        QTest::newRow("to the last month") << QDate(9999, 11, 30) << 1 << QDate(9999, 12, 30);
        QTest::newRow("after the last month") << QDate(9999, 12, 1) << 1 << QDate();
        QTest::newRow("after the last year") << QDate(9999, 1, 1) << 12 << QDate();
        QTest::newRow("before the first number") << QDate(100, 1, 1) << -1'201 << QDate();
    }
    void stepping()
    {
        QFETCH(QDate, from);
        QFETCH(int, months);
        QFETCH(QDate, to);
        MonthPage page(from);
        QCOMPARE(page.step(months), to.isValid());
        QCOMPARE(page.chosen(), to.isValid() ? to : from);
    }
};

QTEST_GUILESS_MAIN(MonthPageTest)
#include "MonthPage.moc"
