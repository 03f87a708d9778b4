// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Numbers.h"

#include "Regions.h"
#include "support/Cases.h"

using namespace obelmark;

class NumbersTest : public QObject
{
    Q_OBJECT

private slots:
    void numericTest_data() { cases::add(); }
    void numericTest()
    {
        const auto [name, text, number] = cases::row<3>();
        const RegionalSettings regional = region(name);
        QCOMPARE(isNumeric(text, regional), !number.isEmpty());
        double read = 0;
        const int error = number.isEmpty() ? TypeMismatch : 0;
        QCOMPARE(errorNumber([&, text = text] { read = toDouble(text, regional); }), error);
        QVERIFY2(read == number.toDouble(), qPrintable(QString::number(read, 'g', 17)));
        if (error)
            QCOMPARE(errorNumber([&, text = text] { toInt16(text, regional); }), error);
    }

    void wholeNumbers_data() { cases::add(); }
    void wholeNumbers()
    {
        const auto [text, in16, in32] = cases::row<3>();
        const RegionalSettings regional = region(u"en_US"_s);
        int read16 = 0, read32 = 0;
        QCOMPARE(errorNumber([&, text = text] { read16 = toInt16(text, regional); }),
                 in16.isEmpty() ? Overflow : 0);
        QCOMPARE(errorNumber([&, text = text] { read32 = toInt32(text, regional); }),
                 in32.isEmpty() ? Overflow : 0);
        QCOMPARE(read16, in16.toInt());
        QCOMPARE(read32, in32.toInt());
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

    void plainNumbers_data() { cases::add(); }
    void plainNumbers()
    {
        const auto [number, text] = cases::row<2>();
        for (const QString &name : testedRegions() + QStringList{u"sv_SE"_s, u"ar_EG"_s}) {
            const RegionalSettings regional = region(name);
            const QString expected = QString(text).replace(u"."_s, regional.decimalPoint());
            QCOMPARE(plainNumber(number.toDouble(), regional), expected);
            QVERIFY(qFuzzyCompare(1 + toDouble(expected, regional), 1 + number.toDouble()));
            QCOMPARE(plainNumber(qint64(-1234567), regional), u"-1234567"_s);
        }
        QCOMPARE(errorNumber([] { plainNumber(qInf(), region(u"C"_s)); }), int(Overflow));
    }
};

QTEST_GUILESS_MAIN(NumbersTest)
#include "Numbers.moc"
