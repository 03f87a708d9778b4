// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Value.h"

#include "Regions.h"
#include "runtime/TextEncoding.h"

using namespace obelmark;

class ValueTest : public QObject
{
    Q_OBJECT

private slots:
    void texts()
    {
        const auto money = &Money::fromTenThousandths;
        QCOMPARE(Value().toText(), QString());
        QCOMPARE(Value(true).toText(), u"1"_s);
        QCOMPARE(Value(qint64(-5)).toText(), u"-5"_s);
        QCOMPARE(Value(0.1).toText(), u"0.1"_s);
        QCOMPARE(Value(money(-25'000)).toText(), u"-2.5"_s);
        QCOMPARE(Value(money(-1)).toText(), u"-0.0001"_s);
        QCOMPARE(Value(money(std::numeric_limits<qint64>::min())).toText(), u"-922337203685477.5808"_s);
        QCOMPARE(Value(Date{38353.4375}).toText(), u"2005-01-01T10:30:00"_s);
        QCOMPARE(Value(u"a"_s).toText(), u"a"_s);
    }

    void wholeNumbers()
    {
        QCOMPARE(Value(true).toInt(), 1);
        QCOMPARE(Value(qint16(-7)).toInt(), -7);
        QCOMPARE(Value(-0x1p63).toInt(), std::numeric_limits<qint64>::min());
        QCOMPARE(Value(Money::fromWhole(12)).toInt(), 12);
        QCOMPARE(Value(u"12"_s).toInt(), 12);
        QCOMPARE(errorNumber([] { Value().toInt(); }), int(InvalidUseOfNull));
        for (const Value &value :
             {Value(1.5), Value(0x1p63), Value(qQNaN()), Value(Money::fromTenThousandths(1)), Value(Date{1}),
              Value(u"x"_s), Value(u""_s)})
            QCOMPARE(errorNumber([&] { value.toInt(); }), int(TypeMismatch));
    }

    void truth()
    {
        for (const Value &value : {Value(), Value(false), Value(0), Value(0.0), Value(Money())})
            QVERIFY(!value.toBool());
        for (const Value &value : {Value(true), Value(-1), Value(0.5), Value(Money::fromTenThousandths(1))})
            QVERIFY(value.toBool());
        QCOMPARE(errorNumber([] { Value(u"1"_s).toBool(); }), int(TypeMismatch));
    }

    void lineBreaks()
    {
        const QString mixed = u"a\nb\r\nc\rd\n\r\n"_s;
        QCOMPARE(withLf(mixed), u"a\nb\nc\nd\n\n"_s);
        QCOMPARE(withCrLf(mixed), u"a\r\nb\r\nc\r\nd\r\n\r\n"_s);
        QCOMPARE(withCrLf(withCrLf(mixed)), withCrLf(mixed));
        QCOMPARE(withLf(QString()), QString());
    }

    void fileText()
    {
        QCOMPARE(toFileText(u"5 \u20AC\n"_s), QByteArray("5 \xE2\x82\xAC\r\n"));
        QCOMPARE(fromFileText("5 \xE2\x82\xAC\r\n"), u"5 \u20AC\n"_s);
        QCOMPARE(fromFileText("\xEF\xBB\xBF"
                              "coin\r\n"),
                 u"coin\n"_s);
        QCOMPARE(fromFileText("M\xFCnze \x80 \x96 \x9D\r\n"),
                 u"M\u00FCnze \u20AC \u2013 \x9D\n"_s); // from an older system
    }
};

QTEST_GUILESS_MAIN(ValueTest)
#include "Value.moc"
