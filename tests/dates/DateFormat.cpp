// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/DateFormat.h"
#include "common/SharedState.h"
#include "runtime/Dates.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"

using namespace obelmark;

class DateFormatTest : public QObject
{
    Q_OBJECT
private slots:
    void everyDateReadsBack_data() { cases::add(); }
    void everyDateReadsBack()
    {
        const auto [locale, pattern, order, separator, fourthOfJuly] = cases::row<5>();
        ScriptedDesktop desktop;
        SharedState shared(desktop, pattern.isEmpty() ? RegionalSettings(QLocale(locale))
                                                      : RegionalSettings(QLocale(locale), pattern));
        ChkDateFmt(shared);
        QCOMPARE(shared.DateOrder, order);
        QCOMPARE(shared.DateSep, separator);
        QCOMPARE(FormatDate(shared, 7, 4, 1976), fourthOfJuly);
        QRandomGenerator random(1776);
        const QDate first(firstYear, 1, 1);
        const int days = int(first.daysTo(QDate(lastYear, 12, 31)));
        for (int i = 0; i < 2'000; ++i) {
            const QDate day = first.addDays(i == 0 ? 0 : i == 1 ? days : random.bounded(days));
            const QString text =
                FormatDate(shared, qint16(day.month()), qint16(day.day()), qint16(day.year()));
            QCOMPARE(toDate(text, shared.regional), Date::from(day));
            QCOMPARE(dateFromParts(shared, day.month(), day.day(), day.year()), Date::from(day));
        }
    }

    void partsThatAreNoDate()
    {
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
        for (const QString &order : {u"mdy"_s, u"dmy"_s, u"ymd"_s, u"ydm"_s}) {
            shared.DateOrder = order;
            for (const auto &[month, day, year] : {std::tuple(7, 4, 99),
                                                   {7, 4, -1852},
                                                   {7, 4, 10'000},
                                                   {7, 4, 65'536 + 1852},
                                                   {2, 29, 1900},
                                                   {4, 31, 2005}})
                QVERIFY(!dateFromParts(shared, month, day, year));
        }
    }
};

QTEST_GUILESS_MAIN(DateFormatTest)
#include "DateFormat.moc"
