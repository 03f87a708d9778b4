// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/MonthPage.h"

#include "support/Cases.h"

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

    void stepping_data() { cases::add(); }
    void stepping()
    {
        const auto [name, start, months, end] = cases::row<4>();
        const QDate from = QDate::fromString(start, Qt::ISODate), to = QDate::fromString(end, Qt::ISODate);
        MonthPage page(from);
        QCOMPARE(page.step(months.toInt()), to.isValid());
        QCOMPARE(page.chosen(), to.isValid() ? to : from);
    }
};

QTEST_GUILESS_MAIN(MonthPageTest)
#include "MonthPage.moc"
