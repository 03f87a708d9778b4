#include "runtime/Dates.h"

#include "Regions.h"

#include <QRandomGenerator>

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

struct ReadCase
{
    const char *region;
    const char16_t *text;
    const char16_t *iso; ///< empty where the text is no date; "*" stands for the current year
};

constexpr ReadCase readCases[] = {
    // the region's order
    {"en_US", u"7 4 1976", u"1976-07-04"},
    {"C", u"7 4 1976", u"1976-07-04"},
    {"de_DE", u"4 7 1976", u"1976-07-04"},
    {"fr_FR", u"4/7/1976", u"1976-07-04"},
    {"ja_JP", u"1976 7 4", u"1976-07-04"},
    {"ja_JP", u"12/7/4", u"2012-07-04"},
    {"en_US", u" 5-3-1852 ", u"1852-05-03"},
    {"en_US", u"5.3.1852", u"1852-05-03"},
    {"en_US", u"05/03/852", u"0852-05-03"},
    {"de_DE", u"30. 5. 1998", u"1998-05-30"},
    {"hr_HR", u"30. 05. 1998.", u"1998-05-30"},
    // another order where that one is impossible
    {"en_US", u"13/2/2001", u"2001-02-13"},
    {"en_US", u"2001-02-13", u"2001-02-13"},
    {"de_DE", u"2/13/2001", u"2001-02-13"},
    {"de_DE", u"2001-02-03", u"2001-02-03"},
    {"de_DE", u"2001-13-02", u"2001-02-13"},
    {"en_US", u"99-12-31", u"1999-12-31"},
    {"ja_JP", u"7/4/1976", u"1976-07-04"},
    {"ja_JP", u"13/7/52", u"1952-07-13"},
    {"en_US", u"2/30/2001", u""},
    {"en_US", u"30/2/05", u""},
    {"en_US", u"13/13/2001", u""},
    {"de_DE", u"29.2.1900", u""},
    {"en_US", u"2/29/2000", u"2000-02-29"},
    // two-digit years
    {"en_US", u"1/1/00", u"2000-01-01"},
    {"en_US", u"1/1/29", u"2029-01-01"},
    {"en_US", u"1/1/30", u"1930-01-01"},
    {"en_US", u"1/1/99", u"1999-01-01"},
    {"en_US", u"1/1/100", u"0100-01-01"},
    {"en_US", u"12/31/9999", u"9999-12-31"},
    {"en_US", u"1/1/10000", u""},
    // month names
    {"en_US", u"3 May 1852", u"1852-05-03"},
    {"en_US", u"May 3, 1852", u"1852-05-03"},
    {"en_US", u"3-May-1852", u"1852-05-03"},
    {"en_US", u"1852 may 3", u"1852-05-03"},
    {"en_US", u"52 May 3", u"1952-05-03"},
    {"en_US", u"sept. 7 1901", u"1901-09-07"},
    {"en_US", u"Octob 7 1901", u"1901-10-07"},
    {"en_US", u"3Dec1852", u"1852-12-03"},
    {"de_DE", u"3. M\u00E4rz 1852", u"1852-03-03"},
    {"de_DE", u"3. Mai 52", u"1952-05-03"},
    {"de_DE", u"December 3, 1852", u"1852-12-03"},
    {"fr_FR", u"14 juil. 1789", u"1789-07-14"},
    {"fr_FR", u"14 JUILLET 1789", u"1789-07-14"},
    {"fr_FR", u"14 jui 1789", u""}, // June or July
    {"es_ES", u"3 de mayo de 1852", u"1852-05-03"},
    {"ja_JP", u"1852\u5E745\u67083\u65E5", u"1852-05-03"},
    {"ja_JP", u"3 May 1852", u"1852-05-03"},
    {"bg_BG", u"30.05.1998 \u0433.", u"1998-05-30"},
    {"en_US", u"May 1852", u"1852-05-01"},
    {"en_US", u"30 Feb 2001", u""},
    {"en_US", u"30 Feb 05", u""},
    {"en_US", u"May", u""},
    {"en_US", u"May June 1852", u""},
    {"en_US", u"3 Foo 1852", u""},
    {"en_US", u"3 Ma 1852", u""},
    // two numbers
    {"en_US", u"5/3", u"*-05-03"},
    {"de_DE", u"3.5.", u"*-05-03"},
    {"ja_JP", u"5/3", u"*-05-03"},
    {"en_US", u"13/5", u"*-05-13"},
    {"en_US", u"3 May", u"*-05-03"},
    {"en_US", u"5/1852", u"1852-05-01"},
    {"en_US", u"1852/5", u"1852-05-01"},
    {"de_DE", u"5/52", u"1952-05-01"},
    {"en_US", u"1.5", u""},
    {"en_US", u"13/13", u""},
    // times
    {"en_US", u"10:30", u"1899-12-30T10:30:00"},
    {"en_US", u"10:30:15 pm", u"1899-12-30T22:30:15"},
    {"en_US", u"12:05a", u"1899-12-30T00:05:00"},
    {"en_US", u"12:05 P.M.", u"1899-12-30T12:05:00"},
    {"en_US", u"10 AM", u"1899-12-30T10:00:00"},
    {"ja_JP", u"5:30 \u5348\u5F8C", u"1899-12-30T17:30:00"},
    {"en_US", u"5/3/1852 18:15:42", u"1852-05-03T18:15:42"},
    {"de_DE", u"3. Mai 1852 6:15 PM", u"1852-05-03T18:15:00"},
    {"en_US", u"24:00", u""},
    {"en_US", u"10:60", u""},
    {"en_US", u"13:00 PM", u""},
    {"en_US", u"10:30:15:1", u""},
    {"en_US", u"10:", u""},
    {"en_US", u":30", u""},
    {"en_US", u"5/3/185210:30", u""},
    {"en_US", u"10:30 x", u""},
    // no dates
    {"en_US", u"", u""},
    {"en_US", u"   ", u""},
    {"en_US", u"1852", u""},
    {"en_US", u"38353", u""},
    {"en_US", u"1,2,1852", u""},
    {"en_US", u"-5/3/1852", u""},
    {"en_US", u"5//3/1852", u""},
    {"en_US", u"5/3/1852/", u""},
    {"en_US", u"5/3/1852/1", u""},
    {"en_US", u"0/3/1852", u""},
    {"en_US", u"005/3/1852", u""},
    {"en_US", u"$5/3/1852", u""},
    {"en_US", u"today", u""},
};

} // namespace

class DatesTest : public QObject
{
    Q_OBJECT

private slots:
    void reading()
    {
        for (const auto &[name, text, iso] : readCases) {
            const RegionalSettings regional = region(QLatin1StringView(name));
            const QString where = QLatin1StringView(name) + u": "_s + QString::fromUtf16(text);
            const QString expected =
                QString::fromUtf16(iso).replace(u"*"_s, QString::number(QDate::currentDate().year()));
            QVERIFY2(isDate(text, regional) == !expected.isEmpty(), qPrintable(where));
            if (expected.isEmpty()) {
                QCOMPARE(errorNumber([&, text = text] { toDate(text, regional); }), int(TypeMismatch));
                continue;
            }
            const QString read = isoText(toDate(text, regional));
            QVERIFY2(read == expected, qPrintable(where + u" read as "_s + read));
        }
    }

    /// Month, day and year with blanks between them, in the order of the short date.
    void blankSeparatedPartsReadInTheirOrder()
    {
        QRandomGenerator random(7);
        const QLocale locale(QLocale::English, QLocale::UnitedStates);
        for (const auto &[pattern, order] :
             {std::pair(u"M/d/yy"_s, u"mdy"_s), std::pair(u"dd.MM.y"_s, u"dmy"_s),
              std::pair(u"yyyy-MM-dd"_s, u"ymd"_s), std::pair(u"yyyy/dd/MM"_s, u"ydm"_s)}) {
            const RegionalSettings regional(locale, pattern);
            QCOMPARE(regional.datePartOrder(), order);
            for (int i = 0; i < 500; ++i) {
                const QDate date = QDate(100, 1, 1).addDays(random.bounded(3'615'000));
                QStringList parts;
                for (const QChar part : order)
                    parts += QString::number(part == u'y'   ? date.year()
                                             : part == u'm' ? date.month()
                                                            : date.day());
                QCOMPARE(toDate(parts.join(u' '), regional).date(), date);
            }
        }
    }

    void serials_data()
    {
        QTest::addColumn<double>("serial");
        QTest::addColumn<QString>("iso");
        QTest::newRow("day zero") << 0.0 << u"1899-12-30"_s;
        QTest::newRow("2005") << 38353.0 << u"2005-01-01"_s;
        QTest::newRow("time only") << 0.4375 << u"1899-12-30T10:30:00"_s;
        QTest::newRow("before zero the time counts forward") << -1.25 << u"1899-12-29T06:00:00"_s;
        QTest::newRow("first") << -657434.0 << u"0100-01-01"_s;
        QTest::newRow("first, late") << -657434.75 << u"0100-01-01T18:00:00"_s;
        QTest::newRow("last") << 2958465.0 << u"9999-12-31"_s;
        QTest::newRow("last second") << 2958465.99998842592 << u"9999-12-31T23:59:59"_s;
        QTest::newRow("leap day") << 36585.0 << u"2000-02-29"_s;
    }

    void serials()
    {
        QFETCH(double, serial);
        QFETCH(QString, iso);
        QCOMPARE(isoText(Date{serial}), iso);
        const Date read = fromIsoText(iso).value();
        QCOMPARE(read.serial, serial);
        QCOMPARE(Date::from(read.date(), read.time()), read);
        QCOMPARE(fromIsoText(iso.replace(u'T', u' ')).value(), read);
    }

    void isoTextKeepsEveryDayAndSecond()
    {
        QRandomGenerator random(1899);
        for (int i = 0; i < 50'000; ++i) {
            const QDate day = QDate(100, 1, 1).addDays(random.bounded(3'615'900));
            const QTime time = QTime(0, 0).addSecs(i % 3 == 0 ? 0 : random.bounded(86'400));
            const Date date = Date::from(day, time);
            QCOMPARE(date.date(), day);
            QCOMPARE(date.time(), time);
            QCOMPARE(fromIsoText(isoText(date)).value(), date);
        }
    }

    void roundedToTheSecond()
    {
        QCOMPARE(isoText(Date{1 - 1e-9}), u"1899-12-31"_s);
        QCOMPARE(isoText(Date{-1 - (1 - 1e-9)}), u"1899-12-30"_s);
        QCOMPARE(isoText(Date{2958465.9999999}), u"9999-12-31T23:59:59"_s);
    }

    void outsideTheRange()
    {
        for (const double serial : {-657435.0, 2958466.0, 1e300, qQNaN()}) {
            QVERIFY(!Date{serial}.date().isValid());
            QVERIFY(!Date{serial}.time().isValid());
            QVERIFY(isoText(Date{serial}).isEmpty());
        }
        for (const QDate &day : {QDate(99, 12, 31), QDate(10000, 1, 1), QDate(-5, 1, 1), QDate()})
            QCOMPARE(errorNumber([&] { Date::from(day); }), int(Overflow));
        for (const auto text :
             {u"", u"2005-1-1", u"2005-02-30", u"2005/01/01", u"0099-12-31", u"2005-01-01T10:30",
              u"2005-01-01T24:00:00", u"2005-01-01x10:30:00", u"20x5-01-01", u"+200-01-01"})
            QVERIFY2(!fromIsoText(text), qPrintable(QString::fromUtf16(text)));
    }
};

QTEST_GUILESS_MAIN(DatesTest)
#include "Dates.moc"
