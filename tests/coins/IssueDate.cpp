#include "coins/IssueDate.h"

#include "common/SharedState.h"
#include "dates/DateFormat.h"
#include "support/ScriptedDesktop.h"
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class IssueDateTest : public QObject
{
    Q_OBJECT
private slots:
    void startOfTheCalendar_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("start"); // empty for today
        const QString us = u"en_US"_s;
        QTest::newRow("century of the year") << us << u"7/4/76"_s << u"1876"_s << u"1876-07-04"_s;
        QTest::newRow("day first") << u"de_DE"_s << u"4.7.76"_s << u"1876"_s << u"1876-07-04"_s;
        QTest::newRow("year first") << u"ja_JP"_s << u"76/7/4"_s << u"1876"_s << u"1876-07-04"_s;
        QTest::newRow("Arabic digits") << u"ar_EG"_s << u"4/7/1976"_s << u"١٨٧٦"_s << u"1876-07-04"_s;
        QTest::newRow("an early year") << us << u"7/4/76"_s << u"0876"_s << u"0876-07-04"_s;
        QTest::newRow("a time of day goes") << us << u"7/4/76 10:30"_s << u"1876"_s << u"1876-07-04"_s;
        QTest::newRow("three characters") << us << u"7/4/76"_s << u"876"_s << u"1976-07-04"_s;
        QTest::newRow("five characters") << us << u"7/4/76"_s << u"01876"_s << u"1976-07-04"_s;
        QTest::newRow("no number") << us << u"7/4/76"_s << u"18xx"_s << u"1976-07-04"_s;
        QTest::newRow("a number without a century") << us << u"7/4/76"_s << u"-187"_s << u"1976-07-04"_s;
        QTest::newRow("no such century") << us << u"7/4/1876"_s << u"0076"_s << u"1876-07-04"_s;
        QTest::newRow("no such day") << us << u"2/29/2000"_s << u"1900"_s << u"2000-02-29"_s;
        QTest::newRow("no date") << us << QString() << u"1876"_s << u"1876-01-01"_s;
        QTest::newRow("a wrong date") << us << u"soon"_s << u"876"_s << u"0876-01-01"_s;
        QTest::newRow("a rounded year") << us << QString() << u"1875.6"_s << u"1876-01-01"_s;
        QTest::newRow("beyond 16 bits") << us << QString() << u"67412"_s << QString(); // 65,536 + 1876
        QTest::newRow("two digits") << us << QString() << u"76"_s << u"1976-01-01"_s;
        QTest::newRow("neither") << us << QString() << QString() << QString();
    }
    void startOfTheCalendar()
    {
        QFETCH(QString, locale);
        QFETCH(QString, text);
        QFETCH(QString, year);
        QFETCH(QString, start);
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(locale)));
        ChkDateFmt(shared);
        QCOMPARE(isoText(issueDateStart(text, year, shared)),
                 start.isEmpty() ? isoText(Date::today()) : start);
    }
};

QTEST_GUILESS_MAIN(IssueDateTest)
#include "IssueDate.moc"
