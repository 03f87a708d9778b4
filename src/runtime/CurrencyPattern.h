// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayView>
#include <QLocale>
#include <QString>

namespace obelmark {

/// How a region writes an amount of money: what stands around the digits and how they are grouped. Taken once
/// from samples, so that an amount is written exactly and quickly.
class CurrencyPattern
{
public:
    /// \a numbers decides about digits, point and groups, \a currency about symbol and sign.
    CurrencyPattern(const QLocale &numbers, const QLocale &currency);

    /// The amount with the digits \a whole (0 to 9) before the point and \a hundredths (0 to 99) behind it.
    QString text(bool negative, QByteArrayView whole, int hundredths) const;

private:
    struct Surroundings
    {
        QString before;
        QString after;
    };

    static Surroundings around(const QString &sample);
    bool endsGroup(qsizetype digitsLeft) const;
    void append(QString &text, char digit) const;

    Surroundings m_positive;
    Surroundings m_negative;
    QString m_decimalPoint;
    QString m_groupSeparator;
    char32_t m_zeroDigit;
    qsizetype m_lowestGroup = 0; ///< digits of the group before the point; 0 where nothing is grouped
    qsizetype m_otherGroups = 0;
    qsizetype m_fewestGrouped = 0; ///< shorter numbers than this are not grouped
};

} // namespace obelmark
