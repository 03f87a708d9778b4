// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/CurrencyPattern.h"
#include "runtime/DateWords.h"
#include "runtime/NumberSymbols.h"
#include "runtime/ShortDatePattern.h"
#include <QLocale>
#include <QString>

namespace obelmark {

/// What the user's region decides about numbers, money and dates. Made once and passed by reference; a test
/// makes one for the locale it wants.
///
/// Two things differ from the plain locale: the short date always shows four digits of the year (a coin of
/// 1852 must not read back as 1952), and the "C" locale stands for US English.
class RegionalSettings
{
public:
    explicit RegionalSettings(const QLocale &locale);
    /// With a short date of the user's own, in QLocale's pattern letters.
    RegionalSettings(const QLocale &locale, const QString &shortDatePattern);

    /// The settings of the user's system.
    static RegionalSettings system();

    const QLocale &locale() const { return m_locale; }
    const QString &decimalPoint() const { return m_decimalPoint; }
    const QString &groupSeparator() const { return m_groupSeparator; }
    /// The symbol, or the currency's three-letter code where the region has none.
    const QString &currencySymbol() const { return m_currencySymbol; }
    /// The locale's short date pattern with the year in four digits, in QLocale's pattern letters.
    const QString &shortDatePattern() const { return m_shortDate.pattern(); }
    /// The order of month, day and year in the short date: three letters of "m", "d", "y".
    const QString &datePartOrder() const { return m_shortDate.order(); }

    /// The same in the form that conversions and formats work with.
    const NumberSymbols &numberSymbols() const { return m_numberSymbols; }
    const CurrencyPattern &currencyPattern() const { return m_currencyPattern; }
    const ShortDatePattern &shortDate() const { return m_shortDate; }
    const DateWords &dateWords() const { return m_dateWords; }

private:
    QLocale m_locale;
    QString m_decimalPoint;
    QString m_groupSeparator;
    QString m_currencySymbol;
    NumberSymbols m_numberSymbols;
    CurrencyPattern m_currencyPattern;
    ShortDatePattern m_shortDate;
    DateWords m_dateWords;
};

} // namespace obelmark
