#include "runtime/Numbers.h"

#include "Regions.h"

using namespace obelmark;
using namespace Qt::StringLiterals;

namespace {

struct NumericCase
{
    const char *region;
    const char16_t *text;
    double value;
};

constexpr NumericCase numericCases[] = {
    {"en_US", u"5", 5},
    {"en_US", u" \t5 ", 5},
    {"en_US", u"-5", -5},
    {"en_US", u"5-", -5},
    {"en_US", u"- 5", -5},
    {"en_US", u"+5", 5},
    {"en_US", u"5+", 5},
    {"en_US", u"(5)", -5},
    {"en_US", u"$5", 5},
    {"en_US", u"5 $", 5},
    {"en_US", u"-$5", -5},
    {"en_US", u"$-5", -5},
    {"en_US", u"($1,234.50)", -1234.5},
    {"en_US", u"$(5)", -5},
    {"en_US", u"1,2,3", 123},
    {"en_US", u"1,234,", 1234},
    {"en_US", u"5.", 5},
    {"en_US", u".5", 0.5},
    {"en_US", u"-.5", -0.5},
    {"en_US", u"1e3", 1000},
    {"en_US", u"1.5E-2", 0.015},
    {"en_US", u"1e+2-", -100},
    {"en_US", u"\u22125", -5},
    {"en_US", u"&H1F", 31},
    {"en_US", u"&o17", 15},
    {"en_US", u" &hffff ", -1},
    {"en_US", u"&H8000", -32768},
    {"en_US", u"&H00007FFF", 32767},
    {"en_US", u"&HFFFFF", 1048575},
    {"en_US", u"&HFFFFFFFF", -1},
    {"en_US", u"&O177777", -1},
    {"en_US", u"1e308", 1e308},
    {"en_US", u"1.7976931348623157e308", 1.7976931348623157e308},
    {"en_US", u"1e-400", 0},
    {"en_US", u"0e999999999999999999999", 0},
    {"en_US", u"4.9406564584124654e-324", 4.9406564584124654e-324},
    {"C", u"$1,234.5", 1234.5},
    {"de_DE", u"1.234,56 \u20AC", 1234.56},
    {"de_DE", u"\u20AC1.234,56", 1234.56},
    {"de_DE", u"1.5", 15},
    {"de_DE", u"1,5", 1.5},
    {"fr_FR", u"1\u202F234,5\u00A0\u20AC", 1234.5},
    {"fr_FR", u"1 234,5 \u20AC", 1234.5},
    {"fr_FR", u"1\u00A0234", 1234},
    {"fr_FR", u"(1 234,50 \u20AC)", -1234.5},
    {"ja_JP", u"\u00A51,234", 1234},
    {"ja_JP", u"-\uFFE51,234", -1234},
    {"de_CH", u"CHF-1\u2019234.50", -1234.5},
    {"de_CH", u"1'234.50", 1234.5},
    {"sv_SE", u"\u22121 234,50 kr", -1234.5},
    {"sv_SE", u"-1 234,50", -1234.5},
    {"pl_PL", u"1234,50 z\u0142", 1234.5},
    {"hi_IN", u"\u20B912,34,567.5", 1234567.5},
    {"en_SZ", u"E5e2", 500}, // the currency's symbol is the letter of the exponent
    {"en_SZ", u"5E", 5},
    {"ar_EG", u"\u0661\u066C\u0662\u0663\u0664\u066B\u0665", 1234.5},
    {"ar_EG", u"12", 12},
    {"fa_IR", u"\u200E\u2212\u06F1\u06F2", -12},
};

struct TextCase
{
    const char *region;
    const char16_t *text;
};

constexpr TextCase notNumeric[] = {
    {"en_US", u""},           {"en_US", u"  "},          {"en_US", u"$"},       {"en_US", u"()"},
    {"en_US", u"($)"},        {"en_US", u",1"},          {"en_US", u"1.2.3"},   {"en_US", u"1.2,3"},
    {"en_US", u"-5-"},        {"en_US", u"--5"},         {"en_US", u"(-5)"},    {"en_US", u"(5"},
    {"en_US", u"5)"},         {"en_US", u"((5))"},       {"en_US", u"0x1F"},    {"en_US", u"abc"},
    {"en_US", u"5a"},         {"en_US", u"$5$"},         {"en_US", u"1 2"},     {"en_US", u"."},
    {"en_US", u"-"},          {"en_US", u"e5"},          {"en_US", u"1e"},      {"en_US", u"1e+"},
    {"en_US", u"1e1.5"},      {"en_US", u"1e400"},       {"en_US", u"&H"},      {"en_US", u"&HG"},
    {"en_US", u"&O8"},        {"en_US", u"&H123456789"}, {"en_US", u"-&H1"},    {"en_US", u"\u20AC5"},
    {"en_US", u"1,5 \u20AC"}, {"en_US", u"\u0661"},      {"en_US", u"1.8e308"}, {"de_DE", u"$5"},
    {"de_DE", u"1,234,5"},    {"fr_FR", u"1.5"},         {"ja_JP", u"\u20AC5"}, {"C", u"\u00A55"},
};

} // namespace

class NumbersTest : public QObject
{
    Q_OBJECT

private slots:
    void numericTest()
    {
        for (const auto &[name, text, value] : numericCases) {
            const RegionalSettings regional = region(QLatin1StringView(name));
            const QString where = QLatin1StringView(name) + u": "_s + QString::fromUtf16(text);
            QVERIFY2(isNumeric(text, regional), qPrintable(where));
            const double read = toDouble(text, regional);
            QVERIFY2(read == value, qPrintable(where + u" read as "_s + QString::number(read, 'g', 17)));
        }
        for (const auto &[name, text] : notNumeric) {
            const RegionalSettings regional = region(QLatin1StringView(name));
            const QString where = QLatin1StringView(name) + u": "_s + QString::fromUtf16(text);
            QVERIFY2(!isNumeric(text, regional), qPrintable(where));
            QCOMPARE(errorNumber([&, text = text] { toDouble(text, regional); }), int(TypeMismatch));
            QCOMPARE(errorNumber([&, text = text] { toInt16(text, regional); }), int(TypeMismatch));
        }
    }

    void wholeNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("in16"); // the number, or the error's number where the next column says so
        QTest::addColumn<bool>("fails16");
        QTest::addColumn<int>("in32");
        QTest::addColumn<bool>("fails32");
        const auto both = [](const char *text, int number) {
            QTest::newRow(text) << QString::fromLatin1(text) << number << false << number << false;
        };
        const auto only32 = [](const char *text, int number) {
            QTest::newRow(text) << QString::fromLatin1(text) << int(Overflow) << true << number << false;
        };
        const auto neither = [](const char *text) {
            QTest::newRow(text) << QString::fromLatin1(text) << int(Overflow) << true << int(Overflow)
                                << true;
        };
        both("0.5", 0);
        both("1.5", 2);
        both("2.5", 2);
        both("3.5", 4);
        both("-0.5", 0);
        both("-1.5", -2);
        both("2.6", 3);
        both("0.05", 0);
        both("2.50000000000000000001", 3);
        both("2.49999999999999999999", 2);
        both("25e-1", 2);
        both("0.0000025e6", 2);
        both("32767.4", 32767);
        both("32766.5", 32766);
        both("-32768.5", -32768);
        both("1e-400", 0);
        only32("32767.5", 32768);
        only32("-32769", -32769);
        only32("2147483647.4999", 2147483647);
        only32("-2147483648.5", -2147483647 - 1);
        neither("2147483647.5");
        neither("-2147483649");
        neither("9223372036854775808");
        neither("1e300");
    }

    void wholeNumbers()
    {
        QFETCH(QString, text);
        QFETCH(int, in16);
        QFETCH(bool, fails16);
        QFETCH(int, in32);
        QFETCH(bool, fails32);
        const RegionalSettings regional = region(u"en_US"_s);
        if (fails16)
            QCOMPARE(errorNumber([&] { toInt16(text, regional); }), in16);
        else
            QCOMPARE(int(toInt16(text, regional)), in16);
        if (fails32)
            QCOMPARE(errorNumber([&] { toInt32(text, regional); }), in32);
        else
            QCOMPARE(toInt32(text, regional), in32);
    }

    void veryLongNumbers()
    {
        const RegionalSettings regional = region(u"en_US"_s);
        const QString zeros(2'000'000, u'0');
        QCOMPARE(toInt32(zeros + u"17"_s, regional), 17);
        QCOMPARE(toInt32(u"2.5"_s + zeros, regional), 2);
        QCOMPARE(toInt32(u"2.5"_s + zeros + u"1"_s, regional), 3);
        QCOMPARE(toDouble(u"0."_s + zeros + u"25e2000001"_s, regional), 2.5);
        QCOMPARE(toDouble(u"25"_s + zeros + u"e-2000001"_s, regional), 2.5);
        QVERIFY(!isNumeric(u"1"_s + zeros, regional));
        QVERIFY(!isNumeric(QString(2'000'000, u'('), regional));
        // Halfway between 1 and the next double is even, a digit far behind decides otherwise.
        const QString half = u"1.00000000000000011102230246251565404236316680908203125"_s;
        QCOMPARE(toDouble(half + zeros, regional), 1.0);
        QVERIFY(toDouble(half + zeros + u"1"_s, regional) > 1.0);
    }

    void plainNumbers()
    {
        const std::pair<double, const char *> cases[] = {
            {0, "0"},
            {-0.0, "0"},
            {1, "1"},
            {-1.5, "-1.5"},
            {1234567.25, "1234567.25"},
            {0.1 + 0.2, "0.3"},
            {0.4375, "0.4375"},
            {100, "100"},
            {0.001, "0.001"},
            {999999999999999, "999999999999999"},
            {1e15, "1E+15"},
            {-1.25e300, "-1.25E+300"},
            {1e-15, "0.000000000000001"},
            {2.5e-16, "2.5E-16"},
        };
        for (const QString &name : testedRegions() + QStringList{u"sv_SE"_s, u"ar_EG"_s}) {
            const RegionalSettings regional = region(name);
            for (const auto &[number, text] : cases) {
                const QString expected = QString::fromLatin1(text).replace(u"."_s, regional.decimalPoint());
                QCOMPARE(plainNumber(number, regional), expected);
                QVERIFY(qFuzzyCompare(1 + toDouble(expected, regional), 1 + number));
            }
            QCOMPARE(plainNumber(qint64(-1234567), regional), u"-1234567"_s);
        }
        QCOMPARE(errorNumber([] { plainNumber(qInf(), region(u"C"_s)); }), int(Overflow));
    }
};

QTEST_GUILESS_MAIN(NumbersTest)
#include "Numbers.moc"
