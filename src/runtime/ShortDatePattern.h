// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <array>

namespace obelmark {

/// A run of one pattern letter in a date pattern of QLocale's, or of literal text (letter 0).
struct DatePatternPiece
{
    QChar letter;
    QString text;
};

QList<DatePatternPiece> datePatternPieces(const QString &pattern);

/// The region's short date made fit to be read back: its order, separator and leading zeros, but the year
/// always in four digits, the month as a number and nothing but "/", "-", "." and blanks around them.
class ShortDatePattern
{
public:
    explicit ShortDatePattern(const QString &localePattern);

    /// In QLocale's pattern letters, "M/d/yyyy".
    const QString &pattern() const { return m_pattern; }
    /// Three letters of "m", "d", "y".
    const QString &order() const { return m_order; }
    /// What stands between the parts.
    const QString &separator() const { return m_separator; }

    /// The date in ASCII digits; empty when it is not valid.
    QString text(QDate date) const;

private:
    std::array<int, 3> m_digits{}; ///< at least so many digits for each part
    QString m_order;
    QString m_separator;
    QString m_end;
    QString m_pattern;
};

} // namespace obelmark
