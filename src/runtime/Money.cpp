// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Money.h"

#include "runtime/Decimal.h"
#include "runtime/NumberedError.h"

#include <limits>

namespace obelmark {

static constexpr int decimals = 4;
static constexpr qint64 unit = 10'000;

Money Money::fromWhole(qint64 units)
{
    qint64 count = 0;
    if (__builtin_mul_overflow(units, unit, &count))
        throw runtimeError(Overflow);
    return Money(count);
}

Money Money::fromText(QStringView text, const RegionalSettings &regional)
{
    const std::optional<Decimal> number = Decimal::fromText(text, regional);
    if (!number)
        throw runtimeError(TypeMismatch);
    const std::optional<qint64> count = number->scaled(decimals);
    if (!count)
        throw runtimeError(Overflow);
    return Money(*count);
}

Money Money::times(Money factor) const
{
    __extension__ using Wide = __int128;
    const Wide product = Wide(m_count) * factor.m_count;
    Wide quotient = product / unit;
    const qint64 rest = qAbs(qint64(product % unit));
    if (rest > unit / 2 || (rest == unit / 2 && quotient % 2 != 0))
        quotient += product < 0 ? -1 : 1;
    using Limits = std::numeric_limits<qint64>;
    if (quotient < Limits::min() || quotient > Limits::max())
        throw runtimeError(Overflow);
    return Money(qint64(quotient));
}

Money Money::operator+(Money other) const
{
    qint64 sum = 0;
    if (__builtin_add_overflow(m_count, other.m_count, &sum))
        throw runtimeError(Overflow);
    return Money(sum);
}

Money Money::operator-(Money other) const
{
    qint64 difference = 0;
    if (__builtin_sub_overflow(m_count, other.m_count, &difference))
        throw runtimeError(Overflow);
    return Money(difference);
}

} // namespace obelmark
