// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Dates.h"

#include "Regions.h"
#include "support/Cases.h"

using namespace obelmark;

class DatesTest : public QObject
{
    Q_OBJECT

private slots:
    void reading_data() { cases::add(); }
    void reading()
    {
        auto [name, text, iso] = cases::row<3>();
        const RegionalSettings regional = region(name);
        iso.replace(u"*"_s, QString::number(QDate::currentDate().year()));
        QCOMPARE(isDate(text, regional), !iso.isEmpty());
        Date read;
        QCOMPARE(errorNumber([&] { read = toDate(text, regional); }), iso.isEmpty() ? TypeMismatch : 0);
        QCOMPARE(isoText(read), iso.isEmpty() ? isoText(Date{}) : iso);
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

    void serials_data() { cases::add(); }
    void serials()
    {
        auto [number, iso] = cases::row<2>();
        const double serial = number.toDouble();
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
