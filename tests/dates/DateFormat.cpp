#include "dates/DateFormat.h"
#include "common/SharedState.h"
#include "runtime/Dates.h"
#include "support/ScriptedDesktop.h"
#include <QRandomGenerator>
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class DateFormatTest : public QObject
{
    Q_OBJECT
private slots:
    void orderAndSeparator_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("order");
        QTest::addColumn<QString>("separator");
        QTest::addColumn<QString>("fourthOfJuly");
        QTest::newRow("US") << u"en_US"_s << u"mdy"_s << u"/"_s << u"7 4 1976"_s;
        QTest::newRow("C is US") << u"C"_s << u"mdy"_s << u"/"_s << u"7 4 1976"_s;
        QTest::newRow("German") << u"de_DE"_s << u"dmy"_s << u"."_s << u"4 7 1976"_s;
        QTest::newRow("French") << u"fr_FR"_s << u"dmy"_s << u"/"_s << u"4 7 1976"_s;
        QTest::newRow("Japanese") << u"ja_JP"_s << u"ymd"_s << u"/"_s << u"1976 7 4"_s;
        QTest::newRow("Swedish") << u"sv_SE"_s << u"ymd"_s << u"-"_s << u"1976 7 4"_s;
        QTest::newRow("Hungarian, with a trailing separator")
            << u"hu_HU"_s << u"ymd"_s << u"."_s << u"1976 7 4"_s;
    }
    void orderAndSeparator()
    {
        QFETCH(QString, locale);
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(locale)));
        ChkDateFmt(shared);
        QTEST(shared.DateOrder, "order");
        QTEST(shared.DateSep, "separator");
        QTEST(FormatDate(shared, 7, 4, 1976), "fourthOfJuly");
        QCOMPARE(toDate(FormatDate(shared, 7, 4, 1976), shared.regional).date(), QDate(1976, 7, 4));
    }

    /// In a pattern of one's own, or the locale's where it is empty.
    void everyDateReadsBack_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("order");
        QTest::newRow("US") << u"en_US"_s << QString() << u"mdy"_s;
        QTest::newRow("German") << u"de_DE"_s << QString() << u"dmy"_s;
        QTest::newRow("Swedish") << u"sv_SE"_s << QString() << u"ymd"_s;
        QTest::newRow("Japanese") << u"ja_JP"_s << QString() << u"ymd"_s;
        QTest::newRow("Egyptian") << u"ar_EG"_s << QString() << u"dmy"_s;
        QTest::newRow("US, day first") << u"en_US"_s << u"d-M-yy"_s << u"dmy"_s;
        QTest::newRow("German, year and day first") << u"de_DE"_s << u"yyyy.dd.MM"_s << u"ydm"_s;
        QTest::newRow("Japanese, year and day first") << u"ja_JP"_s << u"yyyy/dd/MM"_s << u"ydm"_s;
    }
    void everyDateReadsBack()
    {
        QFETCH(QString, locale);
        QFETCH(QString, pattern);
        ScriptedDesktop desktop;
        SharedState shared(desktop, pattern.isEmpty() ? RegionalSettings(QLocale(locale))
                                                      : RegionalSettings(QLocale(locale), pattern));
        ChkDateFmt(shared);
        QTEST(shared.DateOrder, "order");
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
            QVERIFY(!dateFromParts(shared, 7, 4, 99));
            QVERIFY(!dateFromParts(shared, 7, 4, -1852));
            QVERIFY(!dateFromParts(shared, 7, 4, 10'000));
            QVERIFY(!dateFromParts(shared, 7, 4, 65'536 + 1852));
            QVERIFY(!dateFromParts(shared, 2, 29, 1900));
            QVERIFY(!dateFromParts(shared, 4, 31, 2005));
        }
    }
};

QTEST_GUILESS_MAIN(DateFormatTest)
#include "DateFormat.moc"
