// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <compare>

namespace obelmark {

class RegionalSettings;

/// An amount of money: a 64-bit count of ten-thousandths, from -922,337,203,685,477.5808 to
/// 922,337,203,685,477.5807. Never passes through floating point.
class Money
{
public:
    constexpr Money() = default;
    static constexpr Money fromTenThousandths(qint64 count) { return Money(count); }
    /// \throws Overflow
    static Money fromWhole(qint64 units);
    /// Reads what isNumeric() accepts, exact to four decimals, the rest rounded half to even.
    /// \throws TypeMismatch when it is no number, Overflow when it does not fit
    static Money fromText(QStringView text, const RegionalSettings &regional);

    constexpr qint64 tenThousandths() const { return m_count; }

    /// The product, rounded half to even to four decimals. \throws Overflow
    Money times(Money factor) const;
    /// \throws Overflow
    Money operator+(Money other) const;
    /// \throws Overflow
    Money operator-(Money other) const;

    constexpr auto operator<=>(const Money &) const = default; // NOLINT(modernize-use-nullptr): false alarm

private:
    explicit constexpr Money(qint64 count) : m_count(count) {}

    qint64 m_count = 0;
};

} // namespace obelmark
