#include "runtime/Formats.h"

#include "Regions.h"
#include "runtime/Numbers.h"

#include <QProcess>
#include <QRandomGenerator>
#include <cstdio>
#include <limits>

using namespace obelmark;
using namespace Qt::StringLiterals;

static constexpr qint64 most = std::numeric_limits<qint64>::max();
static constexpr qint64 least = std::numeric_limits<qint64>::min();

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
    void currency_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, qint64 count, const char16_t *text) {
            QTest::addRow("%s %lld", name, count)
                << QString::fromLatin1(name) << count << QString::fromUtf16(text);
        };
        row("en_US", 0, u"$0.00");
        row("en_US", 12'345'000, u"$1,234.50");
        row("en_US", -12'345'000, u"($1,234.50)");
        row("en_US", 50, u"$0.01"); // half away from zero
        row("en_US", 49, u"$0.00");
        row("en_US", -50, u"($0.01)");
        row("en_US", -49, u"$0.00");
        row("en_US", 9'999'950, u"$1,000.00");
        row("en_US", most, u"$922,337,203,685,477.58");
        row("en_US", least, u"($922,337,203,685,477.58)");
        row("C", -12'345'000, u"($1,234.50)");
        row("de_DE", -12'345'000, u"-1.234,50\u00A0\u20AC");
        row("fr_FR", -12'345'000, u"(1\u202F234,50\u00A0\u20AC)");
        row("fr_FR", most, u"922\u202F337\u202F203\u202F685\u202F477,58\u00A0\u20AC");
        row("ja_JP", 12'345'000, u"\uFFE51,234.50");
        row("en_GB", 12'345'000, u"\u00A31,234.50");
        row("sv_SE", -12'345'000, u"\u22121\u00A0234,50\u00A0kr");
        row("pl_PL", 12'345'000, u"1234,50\u00A0z\u0142");
        row("pl_PL", 1'234'567'0000, u"1\u00A0234\u00A0567,00\u00A0z\u0142");
        row("de_CH", -12'345'000, u"-1\u2019234.50\u00A0CHF");
        row("hi_IN", 1'234'567'5000, u"\u20B912,34,567.50");
        row("hi_IN", most, u"\u20B992,23,37,20,36,85,477.58");
    }

    void currency()
    {
        QFETCH(QString, name);
        QFETCH(qint64, count);
        QFETCH(QString, text);
        const RegionalSettings regional = region(name);
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

    void shortDate_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text"); // of 3 May 852
        QTest::newRow("US") << u"en_US"_s << u"M/d/yyyy"_s << u"5/3/0852"_s;
        QTest::newRow("C") << u"C"_s << u"M/d/yyyy"_s << u"5/3/0852"_s;
        QTest::newRow("German") << u"de_DE"_s << u"dd.MM.yyyy"_s << u"03.05.0852"_s;
        QTest::newRow("French") << u"fr_FR"_s << u"dd/MM/yyyy"_s << u"03/05/0852"_s;
        QTest::newRow("Japanese") << u"ja_JP"_s << u"yyyy/MM/dd"_s << u"0852/05/03"_s;
        QTest::newRow("Croatian") << u"hr_HR"_s << u"dd. MM. yyyy."_s << u"03. 05. 0852."_s;
        QTest::newRow("Bulgarian, letters left out") << u"bg_BG"_s << u"d.MM.yyyy"_s << u"3.05.0852"_s;
        QTest::newRow("Egyptian, direction marks left out") << u"ar_EG"_s << u"d/M/yyyy"_s << u"3/5/0852"_s;
    }

    void shortDate()
    {
        QFETCH(QString, name);
        QFETCH(QString, pattern);
        QFETCH(QString, text);
        const RegionalSettings regional = region(name);
        QCOMPARE(regional.shortDatePattern(), pattern);
        QCOMPARE(formatShortDate(Date::from(QDate(852, 5, 3), QTime(18, 15)), regional), text);
        QCOMPARE(formatShortDate(Date{1e9}, regional), QString());
    }

    void shortDateOfOwnPatterns()
    {
        const Date date = Date::from(QDate(1852, 5, 3));
        const std::pair<QString, QString> cases[] = {
            {u"d MMM yyyy"_s, u"3 5 1852"_s},       {u"dddd, d. MMMM y"_s, u"3. 5. 1852"_s},
            {u"d 'de' M 'de' yy"_s, u"3-5-1852"_s}, {u"yyyy\u5E74M\u6708d\u65E5"_s, u"1852-5-3"_s},
            {u"dd/MM yyyy"_s, u"03/05/1852"_s},     {u"nothing"_s, u"1852-05-03"_s},
        };
        for (const auto &[pattern, text] : cases) {
            const RegionalSettings regional(QLocale(QLocale::English), pattern);
            QCOMPARE(formatShortDate(date, regional), text);
            QCOMPARE(toDate(text, regional), date);
        }
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
    void mixedSystemLocale_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *environment, const char16_t *text) {
            QTest::newRow(environment) << QString::fromLatin1(environment) << QString::fromUtf16(text);
        };
        row("", u"($1,234.50) M/d/yyyy May");
        row("LANG=C.UTF-8", u"($1,234.50) M/d/yyyy May");
        row("LANG=C.UTF-8 LC_TIME=de_DE.UTF-8", u"($1,234.50) dd.MM.yyyy Mai");
        row("LANG=C.UTF-8 LC_MONETARY=de_DE.UTF-8", u"-1,234.50\u20AC M/d/yyyy May");
        row("LANG=de_DE.UTF-8", u"-1.234,50\u00A0\u20AC dd.MM.yyyy Mai");
        row("LANG=de_DE.UTF-8 LC_NUMERIC=C", u"-1,234.50\u00A0\u20AC dd.MM.yyyy Mai");
        row("LANG=de_DE.UTF-8 LC_TIME=C", u"-1.234,50\u00A0\u20AC M/d/yyyy May");
        row("LANG=de_DE.UTF-8 LC_ALL=fr_FR.UTF-8", u"(1\u202F234,50\u00A0\u20AC) dd/MM/yyyy mai");
        row("LANG=de_DE.UTF-8 LC_TIME=sv_SE.UTF-8", u"-1.234,50\u00A0\u20AC yyyy-MM-dd maj");
    }

    void mixedSystemLocale()
    {
        QFETCH(QString, environment);
        QFETCH(QString, text);
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
