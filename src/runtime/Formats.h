// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Dates.h"
#include "runtime/Money.h"

namespace obelmark {

class RegionalSettings;

/// "currency": symbol, thousands separators, always two decimals (half away from zero), negative amounts in
/// the region's own style.
QString formatCurrency(Money amount, const RegionalSettings &regional);
/// The same for an amount beyond what Money holds, from its 15 significant digits. \throws Overflow when it
/// is not finite
QString formatCurrency(double amount, const RegionalSettings &regional);
/// The amount as which that text reads: whole hundredths.
Money asShown(Money amount);

/// "short date" (and "ddddd"): the region's order and separator, the year always in four digits.
QString formatShortDate(Date date, const RegionalSettings &regional);
/// "medium time": hh:mm AM/PM.
QString formatMediumTime(Date date, const RegionalSettings &regional);
/// "mmmm": the month's name.
QString formatMonthName(Date date, const RegionalSettings &regional);
/// "ddd": the weekday's short name.
QString formatWeekdayName(Date date, const RegionalSettings &regional);
// A date outside the range gives an empty text.

} // namespace obelmark
