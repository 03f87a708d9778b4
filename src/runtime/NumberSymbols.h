// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLocale>
#include <QString>

namespace obelmark {

/// The character of the text at \a at, which moves behind it.
char32_t takeCodePoint(QStringView text, qsizetype &at);

/// The locale's digit 0, which may lie beyond 16 bits.
char32_t zeroDigitOf(const QLocale &locale);

/// A text in the one spelling in which numbers and dates are read: the digits counted from \a zeroDigit as 0
/// to 9, every no-break or thin blank as a blank, the minus sign as "-", the typographic apostrophe as "'",
/// the full-width yen sign as the common one, invisible direction marks left out.
QString plainSpelling(QStringView text, char32_t zeroDigit);

/// The characters that make up numbers in a region, in plainSpelling().
struct NumberSymbols
{
    NumberSymbols(const QLocale &numbers, const QString &currency);

    char32_t zeroDigit;
    QChar decimalPoint;
    QChar groupSeparator; ///< null where the region writes none
    QString currencySymbol;
};

} // namespace obelmark
