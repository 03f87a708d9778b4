// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Formats.h"

#include "runtime/Decimal.h"
#include "runtime/RegionalSettings.h"

#include <charconv>

namespace obelmark {

using namespace Qt::StringLiterals;

static QString currencyFromHundredths(bool negative, quint64 hundredths, const RegionalSettings &regional)
{
    char whole[24];
    const auto end = std::to_chars(whole, whole + sizeof whole, hundredths / 100).ptr;
    return regional.currencyPattern().text(negative && hundredths > 0, QByteArrayView(whole, end),
                                           int(hundredths % 100));
}

/// Of the amount without its sign, half away from zero.
static quint64 shownHundredths(Money amount)
{
    const qint64 count = amount.tenThousandths();
    const quint64 magnitude = count < 0 ? 0 - quint64(count) : quint64(count);
    return (magnitude + 50) / 100;
}

QString formatCurrency(Money amount, const RegionalSettings &regional)
{
    return currencyFromHundredths(amount < Money(), shownHundredths(amount), regional);
}

Money asShown(Money amount)
{
    const qint64 count = qint64(shownHundredths(amount)) * 100;
    return Money::fromTenThousandths(amount < Money() ? -count : count);
}

QString formatCurrency(double amount, const RegionalSettings &regional)
{
    const Decimal number = Decimal::fromDouble(amount);
    if (const auto hundredths = number.scaled(2, Decimal::Rounding::HalfAwayFromZero))
        return currencyFromHundredths(*hundredths < 0, quint64(qAbs(*hundredths)), regional);
    // So large that none of the 15 digits stands behind the point.
    const QByteArray whole = number.digits().leftJustified(number.point(), '0');
    return regional.currencyPattern().text(number.isNegative(), whole, 0);
}

QString formatShortDate(Date date, const RegionalSettings &regional)
{
    return regional.shortDate().text(date.date());
}

QString formatMediumTime(Date date, const RegionalSettings &)
{
    const QTime time = date.time();
    if (!time.isValid())
        return {};
    const int hour = (time.hour() + 11) % 12 + 1;
    return u"%1:%2 %3"_s.arg(hour, 2, 10, QLatin1Char('0'))
        .arg(time.minute(), 2, 10, QLatin1Char('0'))
        .arg(time.hour() < 12 ? "AM"_L1 : "PM"_L1);
}

QString formatMonthName(Date date, const RegionalSettings &regional)
{
    const QDate day = date.date();
    return day.isValid() ? regional.dateWords().monthName(day.month()) : QString();
}

QString formatWeekdayName(Date date, const RegionalSettings &regional)
{
    const QDate day = date.date();
    return day.isValid() ? regional.dateWords().shortDayName(day.dayOfWeek()) : QString();
}

} // namespace obelmark
