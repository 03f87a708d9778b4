// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Formats.h"

#include "Regions.h"
#include "runtime/Numbers.h"
#include "support/Cases.h"

#include <cstdio>

using namespace obelmark;

/// The argument with which the program shows the settings of its system instead of testing.
static constexpr auto systemSettings = "--system-settings"_L1;

static QString nameOf(const QLocale &locale)
{
    return QLocale::languageToString(locale.language()) + u'/' + QLocale::scriptToString(locale.script()) +
           u'/' + QLocale::territoryToString(locale.territory());
}

class FormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void currency_data() { cases::add(); }
    void currency()
    {
        const auto [name, number, text] = cases::row<3>();
        const RegionalSettings regional = region(name);
        const qint64 count = number.toLongLong();
        QCOMPARE(formatCurrency(Money::fromTenThousandths(count), regional), text);
        if (qAbs(double(count)) < 1e15)
            QCOMPARE(formatCurrency(double(count) / 10'000, regional), text);
    }

    void currencyOfDoubles()
    {
        const RegionalSettings regional = region(u"en_US"_s);
        QCOMPARE(formatCurrency(1.005, regional), u"$1.01"_s); // the double lies below
        QCOMPARE(formatCurrency(-2.675, regional), u"($2.68)"_s);
        QCOMPARE(formatCurrency(-1.25e20, regional), u"($125,000,000,000,000,000,000.00)"_s);
        QCOMPARE(formatCurrency(0.001, regional), u"$0.00"_s);
        QCOMPARE(errorNumber([&] { formatCurrency(qQNaN(), regional); }), int(Overflow));
    }

    void currencyReadsBackInEveryLocale()
    {
        QRandomGenerator random(1793);
        for (const QLocale &locale : everyLocale()) {
            const RegionalSettings regional(locale);
            for (int i = 0; i < 40; ++i) {
                // whole hundredths, so that nothing is lost in the text
                const qint64 count = (qint64(random.generate64()) >> (i + 8)) * 100;
                const QString text = formatCurrency(Money::fromTenThousandths(count), regional);
                QVERIFY2(isNumeric(text, regional), qPrintable(nameOf(locale) + u' ' + text));
                QCOMPARE(Money::fromText(text, regional).tenThousandths(), count);
                QString typed = text;
                typed.replace(u'\u00A0', u' ').replace(u'\u202F', u' ').replace(u'\u2212', u'-');
                QVERIFY2(Money::fromText(typed, regional).tenThousandths() == count,
                         qPrintable(nameOf(locale) + u' ' + typed));
            }
        }
    }

    void currencyLooksAsTheLocaleWritesIt()
    {
        for (const QLocale &locale : everyLocale()) {
            if (locale.language() == QLocale::C)
                continue;
            const RegionalSettings regional(locale);
            for (const double amount : {0.5, -0.5, 12.0, 1234.5, -1234.5, 123456.75, -654321.25})
                QCOMPARE(formatCurrency(amount, regional), locale.toCurrencyString(amount, QString(), 2));
        }
    }

    void shortDate_data() { cases::add(); }
    void shortDate()
    {
        const auto [name, pattern, text] = cases::row<3>();
        const RegionalSettings regional = region(name);
        QCOMPARE(regional.shortDatePattern(), pattern);
        QCOMPARE(formatShortDate(Date::from(QDate(852, 5, 3), QTime(18, 15)), regional), text);
        QCOMPARE(formatShortDate(Date{1e9}, regional), QString());
    }

    void shortDateOfOwnPatterns_data() { cases::add(); }
    void shortDateOfOwnPatterns()
    {
        const auto [pattern, text] = cases::row<2>();
        const Date date = Date::from(QDate(1852, 5, 3));
        const RegionalSettings regional(QLocale(QLocale::English), pattern);
        QCOMPARE(formatShortDate(date, regional), text);
        QCOMPARE(toDate(text, regional), date);
    }

    void shortDateReadsBackInEveryLocale()
    {
        QRandomGenerator random(1776);
        for (const QLocale &locale : everyLocale()) {
            const RegionalSettings regional(locale);
            for (int i = 0; i < 60; ++i) {
                const Date date = Date::from(QDate(100, 1, 1).addDays(random.bounded(3'615'900)));
                const QString text = formatShortDate(date, regional);
                QVERIFY2(isDate(text, regional), qPrintable(nameOf(locale) + u' ' + text));
                QCOMPARE(isoText(toDate(text, regional)), isoText(date));
            }
        }
    }

    void monthNamesReadBackInTheTestedRegions()
    {
        for (const QString &name : testedRegions()) {
            const RegionalSettings regional = region(name);
            for (int month = 1; month <= 12; ++month) {
                const Date date = Date::from(QDate(1852, month, 1));
                for (const QString &word : {formatMonthName(date, regional),
                                            regional.locale().monthName(month, QLocale::ShortFormat)}) {
                    const QString text = u"1852 %1 1"_s.arg(word);
                    QVERIFY2(isDate(text, regional), qPrintable(name + u' ' + text));
                    QCOMPARE(toDate(text, regional), date);
                }
            }
        }
    }

    void timesAndNames()
    {
        const Date noon = Date::from(QDate(1998, 5, 31), QTime(12, 5));
        const RegionalSettings german = region(u"de_DE"_s);
        QCOMPARE(formatMediumTime(noon, german), u"12:05 PM"_s);
        QCOMPARE(formatMediumTime(Date{0}, german), u"12:00 AM"_s);
        QCOMPARE(formatMediumTime(Date{-3.0 - 0.75}, german), u"06:00 PM"_s);
        for (const QString &name : testedRegions()) {
            const RegionalSettings regional = region(name);
            QCOMPARE(toDate(formatMediumTime(noon, regional), regional).time(), QTime(12, 5));
        }
        QCOMPARE(formatMonthName(noon, german), u"Mai"_s);
        QCOMPARE(formatMonthName(noon, region(u"fr_FR"_s)), u"mai"_s);
        QCOMPARE(formatMonthName(noon, region(u"C"_s)), u"May"_s);
        QCOMPARE(formatWeekdayName(noon, region(u"en_US"_s)), u"Sun"_s);
        QCOMPARE(formatWeekdayName(noon, region(u"ja_JP"_s)), u"\u65E5"_s);
    }

    /// The system's locale may be put together from several. It is read once, so each comes in its own
    /// process.
    void mixedSystemLocale_data() { cases::add(); }
    void mixedSystemLocale()
    {
        const auto [environment, text] = cases::row<2>();
        QProcess process;
        // An empty environment would stand for this process's own.
        process.setEnvironment(environment.split(u' ', Qt::SkipEmptyParts) + QStringList{u"TZ=UTC"_s});
        process.start(QCoreApplication::applicationFilePath(), {systemSettings});
        QVERIFY(process.waitForFinished());
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), text);
    }
};

int main(int argc, char **argv)
{
    if (argc == 2 && QLatin1StringView(argv[1]) == systemSettings) {
        const RegionalSettings regional = RegionalSettings::system();
        const QStringList shown{formatCurrency(Money::fromTenThousandths(-12'345'000), regional),
                                regional.shortDatePattern(),
                                formatMonthName(Date::from({1998, 5, 1}), regional)};
        std::fputs(shown.join(u' ').toUtf8().constData(), stdout);
        return 0;
    }
    QCoreApplication application(argc, argv);
    FormatsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "Formats.moc"
