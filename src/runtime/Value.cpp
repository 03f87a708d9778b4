// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Value.h"

#include "runtime/NumberedError.h"

#include <QLocale>
#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

template<class... Cases>
struct Overloaded : Cases...
{
    using Cases::operator()...;
};
template<class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

constexpr qint64 moneyUnit = 10'000;

QString plainMoney(Money amount)
{
    const qint64 count = amount.tenThousandths();
    const quint64 magnitude = count < 0 ? 0 - quint64(count) : quint64(count);
    QString text = (count < 0 ? "-"_L1 : ""_L1) + QString::number(magnitude / moneyUnit);
    if (const quint64 rest = magnitude % moneyUnit; rest != 0) {
        text += u".%1"_s.arg(rest, 4, 10, QLatin1Char('0'));
        while (text.endsWith(u'0'))
            text.chop(1);
    }
    return text;
}

qint64 wholeOf(double number)
{
    // 2^63 is a double, the largest 64-bit number is not.
    if (number != std::trunc(number) || !(number >= -0x1p63 && number < 0x1p63))
        throw runtimeError(TypeMismatch);
    return qint64(number);
}

qint64 wholeOf(Money amount)
{
    if (amount.tenThousandths() % moneyUnit != 0)
        throw runtimeError(TypeMismatch);
    return amount.tenThousandths() / moneyUnit;
}

qint64 wholeOf(const QString &text)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok)
        throw runtimeError(TypeMismatch);
    return number;
}

} // namespace

bool Value::toBool() const
{
    return std::visit(Overloaded{
                          [](std::monostate) { return false; },
                          [](bool yes) { return yes; },
                          [](qint64 number) { return number != 0; },
                          [](double number) { return number != 0; },
                          [](Money amount) { return amount != Money(); },
                          [](Date date) { return date != Date(); },
                          [](const QString &) -> bool { throw runtimeError(TypeMismatch); },
                      },
                      m_held);
}

QString Value::toText() const
{
    return std::visit(
        Overloaded{
            [](std::monostate) { return QString(); },
            [](bool yes) { return yes ? u"1"_s : u"0"_s; },
            [](qint64 number) { return QString::number(number); },
            [](double number) { return QString::number(number, 'g', QLocale::FloatingPointShortest); },
            [](Money amount) { return plainMoney(amount); },
            [](Date date) { return isoText(date); },
            [](const QString &text) { return text; },
        },
        m_held);
}

qint64 Value::toInt() const
{
    return std::visit(Overloaded{
                          [](std::monostate) -> qint64 { throw runtimeError(InvalidUseOfNull); },
                          [](bool yes) { return qint64(yes); },
                          [](qint64 number) { return number; },
                          [](Date) -> qint64 { throw runtimeError(TypeMismatch); },
                          [](const auto &other) { return wholeOf(other); },
                      },
                      m_held);
}

} // namespace obelmark
