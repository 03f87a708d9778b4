// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/RegionalSettings.h"

namespace obelmark {

static QLocale usEnglish()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

static bool isC(const QLocale &locale)
{
    return locale.language() == QLocale::C;
}

// The system's locale may be put together from several: numbers as in "C" with the currency and the dates of
// another. So each subject is looked at by itself.

static QLocale numbersOf(const QLocale &locale)
{
    return isC(locale) ? usEnglish() : locale;
}

static QLocale currencyOf(const QLocale &locale)
{
    return locale.currencySymbol(QLocale::CurrencyIsoCode).isEmpty() && isC(locale) ? usEnglish() : locale;
}

static QLocale datesOf(const QLocale &locale)
{
    const bool asInC =
        locale.dateFormat(QLocale::ShortFormat) == QLocale::c().dateFormat(QLocale::ShortFormat);
    return asInC ? usEnglish() : locale;
}

static QString symbolOf(const QLocale &currency)
{
    const QString symbol = currency.currencySymbol();
    return symbol.isEmpty() ? currency.currencySymbol(QLocale::CurrencyIsoCode) : symbol;
}

RegionalSettings::RegionalSettings(const QLocale &locale)
    : RegionalSettings(locale, datesOf(locale).dateFormat(QLocale::ShortFormat))
{
}

RegionalSettings::RegionalSettings(const QLocale &locale, const QString &shortDatePattern)
    : m_locale(numbersOf(locale)), m_decimalPoint(m_locale.decimalPoint()),
      m_groupSeparator(m_locale.groupSeparator()), m_currencySymbol(symbolOf(currencyOf(locale))),
      m_numberSymbols(m_locale, m_currencySymbol), m_currencyPattern(m_locale, currencyOf(locale)),
      m_shortDate(shortDatePattern), m_dateWords(datesOf(locale))
{
}

RegionalSettings RegionalSettings::system()
{
    return RegionalSettings(QLocale::system());
}

} // namespace obelmark
