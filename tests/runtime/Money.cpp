#include "runtime/Money.h"

#include "Regions.h"

#include <QRandomGenerator>
#include <limits>

using namespace obelmark;
using namespace Qt::StringLiterals;

static constexpr qint64 most = std::numeric_limits<qint64>::max();
static constexpr qint64 least = std::numeric_limits<qint64>::min();

class MoneyTest : public QObject
{
    Q_OBJECT

private slots:
    void fromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<int>("error");
        const auto row = [](const char *text, qint64 count, int error = 0) {
            QTest::newRow(text) << QString::fromLatin1(text) << count << error;
        };
        row("2.5", 25'000);
        row("$1,234.50", 12'345'000);
        row("($0.01)", -100);
        row("&H10", 160'000);
        row("1e3", 10'000'000);
        row("0.00005", 0);
        row("0.00015", 2);
        row("0.00025", 2);
        row("-0.00035", -4);
        row("0.000050000000000000000000001", 1);
        row("0.1", 1'000); // no double is 0.1
        row("922337203685477.5807", most);
        row("922337203685477.58074999", most);
        row("922337203685477.58075", 0, Overflow);
        row("-922337203685477.5808", least);
        row("-922337203685477.58085", least);
        row("-922337203685477.5809", 0, Overflow);
        row("1e15", 0, Overflow);
        row("1e300", 0, Overflow);
        row("1e400", 0, TypeMismatch);
        row("", 0, TypeMismatch);
        row("two", 0, TypeMismatch);
    }

    void fromText()
    {
        QFETCH(QString, text);
        QFETCH(qint64, count);
        QFETCH(int, error);
        Money amount;
        QCOMPARE(errorNumber([&] { amount = Money::fromText(text, region(u"en_US"_s)); }), error);
        QCOMPARE(amount.tenThousandths(), count);
    }

    void fromTextOfEveryRegion()
    {
        QRandomGenerator random(1852);
        for (const QString &name : testedRegions()) {
            const RegionalSettings regional = region(name);
            for (int i = 0; i < 200; ++i) {
                const qint64 count = qint64(random.generate64()) >> (i % 60);
                const QString digits =
                    QString::number(count < 0 ? 0 - quint64(count) : quint64(count)).rightJustified(6, u'0');
                QString whole = digits.chopped(4);
                for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
                    whole.insert(at, regional.groupSeparator());
                const QString text = (count < 0 ? u"-"_s : u""_s) + whole + regional.decimalPoint() +
                                     digits.last(4) + regional.currencySymbol();
                QVERIFY2(Money::fromText(text, regional).tenThousandths() == count,
                         qPrintable(name + u' ' + text));
            }
        }
    }

    void arithmetic()
    {
        const auto money = &Money::fromTenThousandths;
        QCOMPARE(Money::fromWhole(-3), money(-30'000));
        QCOMPARE(errorNumber([] { Money::fromWhole(922'337'203'685'478); }), int(Overflow));
        QCOMPARE(money(25'000).times(Money::fromWhole(4)), money(100'000));
        QCOMPARE(money(1).times(money(5'000)), money(0)); // 0.0001 x 0.5 is halfway to the even 0
        QCOMPARE(money(3).times(money(5'000)), money(2));
        QCOMPARE(money(-3).times(money(5'000)), money(-2));
        QCOMPARE(money(-1).times(money(5'001)), money(-1));
        QCOMPARE(money(most).times(Money::fromWhole(1)), money(most));
        QCOMPARE(money(least).times(Money::fromWhole(1)), money(least));
        QCOMPARE(errorNumber([&] { money(least).times(Money::fromWhole(-1)); }), int(Overflow));
        QCOMPARE(errorNumber([&] { money(most).times(money(most)); }), int(Overflow));
        QCOMPARE(money(most - 1) + money(1), money(most));
        QCOMPARE(money(least + 1) - money(1), money(least));
        QCOMPARE(errorNumber([&] { money(most) + money(1); }), int(Overflow));
        QCOMPARE(errorNumber([&] { money(0) - money(least); }), int(Overflow));
        QVERIFY(money(-1) < money(0));
    }
};

QTEST_GUILESS_MAIN(MoneyTest)
#include "Money.moc"
