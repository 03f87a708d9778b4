// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace obelmark {

class RegionalSettings;

/// A number as it is written: sign, decimal digits and the place of the point. Conversions round from this
/// exact value, never from a binary approximation.
class Decimal
{
public:
    enum class Rounding { HalfToEven, HalfAwayFromZero };

    /// Reads what isNumeric() accepts.
    static std::optional<Decimal> fromText(QStringView text, const RegionalSettings &regional);
    /// The 15 significant digits that a double is sure to hold. \throws Overflow when it is not finite
    static Decimal fromDouble(double number);

    bool isNegative() const { return m_negative; }
    /// The significant digits, without zeros at either end; empty for 0.
    const QByteArray &digits() const { return m_digits; }
    /// How many digits stand before the point: 2 for 12.5, 0 for 0.12, -1 for 0.012.
    qint64 point() const { return m_point; }

    /// The number times 10 to the power of \a decimals as a whole number, or nothing beyond 64 bits.
    std::optional<qint64> scaled(int decimals, Rounding rounding = Rounding::HalfToEven) const;
    /// The nearest double; 0 for what is too small, nothing for what is too large.
    std::optional<double> toDouble() const;
    /// "-1234.5": no group separators, no zeros at the end. In exponent form ("1.5E+20") when there are more
    /// than 15 digits before the point or as many zeros after it.
    QString toText(QStringView decimalPoint) const;

private:
    Decimal() = default;
    static Decimal fromWhole(qint64 number);
    void normalise();

    friend class DecimalReader;

    QByteArray m_digits;
    qint64 m_point = 0;
    bool m_negative = false;
};

} // namespace obelmark
