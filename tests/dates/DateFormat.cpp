#include "dates/DateFormat.h"
#include "common/SharedState.h"
#include "runtime/Dates.h"
#include "support/ScriptedDesktop.h"
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

    void yearDayMonth()
    {
        ScriptedDesktop desktop;
        SharedState shared(desktop, RegionalSettings(QLocale(u"en_US"_s)));
        shared.DateOrder = u"ydm"_s;
        QCOMPARE(FormatDate(shared, 7, 4, 1976), u"1976 4 7"_s);
    }
};

QTEST_GUILESS_MAIN(DateFormatTest)
#include "DateFormat.moc"
