// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/IssueDate.h"

#include "common/SharedState.h"
#include "dates/DateFormat.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"

namespace obelmark {

Date inCenturyOf(const QString &coinYear, Date date, const SharedState &shared)
{
    const QString year = plainSpelling(coinYear, shared.regional.numberSymbols().zeroDigit);
    if (year.size() != 4 || !isNumeric(year, shared.regional))
        return date;
    bool isCentury = false;
    const int century = year.first(2).toInt(&isCentury);
    if (!isCentury)
        return date;
    const QDate day = date.date();
    return dateFromParts(shared, day.month(), day.day(), century * 100 + day.year() % 100).value_or(date);
}

/// The whole number in the year field; nothing for one that no year of a coin can be.
static std::optional<int> yearIn(const QString &coinYear, const RegionalSettings &regional)
{
    try {
        return toInt16(coinYear, regional);
    } catch (const NumberedError &) {
        return {};
    }
}

Date issueDateStart(const QString &text, const QString &coinYear, const SharedState &shared)
{
    if (isDate(text, shared.regional))
        return inCenturyOf(coinYear, toDate(text, shared.regional), shared);
    const auto year = yearIn(coinYear, shared.regional);
    // A year of two digits is read as in any date: 76 is 1976.
    const QString newYear = year && *year >= 0 ? FormatDate(shared, 1, 1, qint16(*year)) : QString();
    return isDate(newYear, shared.regional) ? toDate(newYear, shared.regional) : Date::today();
}

} // namespace obelmark
