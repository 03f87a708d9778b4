// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Money.h"

#include "Regions.h"
#include "support/Cases.h"

#include <limits>

using namespace obelmark;

static constexpr qint64 most = std::numeric_limits<qint64>::max();
static constexpr qint64 least = std::numeric_limits<qint64>::min();

class MoneyTest : public QObject
{
    Q_OBJECT

private slots:
    void fromText_data() { cases::add(); }
    void fromText()
    {
        const auto [text, count, error] = cases::row<3>();
        Money amount;
        QCOMPARE(errorNumber([&, text = text] { amount = Money::fromText(text, region(u"en_US"_s)); }),
                 error.toInt());
        QCOMPARE(amount.tenThousandths(), count.toLongLong());
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
