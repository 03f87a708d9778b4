// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Dates.h"
#include <QString>
#include <optional>

namespace obelmark {

struct SharedState;

/// The years that dates lie in.
inline constexpr int firstYear = 100;
inline constexpr int lastYear = 9999;

/// Learns DateSep and DateOrder from the way the system writes 30 May 1998 as a short date. Run once at
/// start-up, before any date field is used.
void ChkDateFmt(SharedState &shared);

/// Month, day and year as decimal numbers in the order of DateOrder, separated by one blank, to be read back
/// as a date: "7 4 1976" for 4 July 1976 in month-day-year order.
QString FormatDate(const SharedState &shared, qint16 intMonth, qint16 intDay, qint16 intYear);

/// The date as which FormatDate() reads back. Nothing when the month has no such day, or the year lies
/// outside firstYear to lastYear: one of two digits would be read as another.
std::optional<Date> dateFromParts(const SharedState &shared, int month, int day, int year);

} // namespace obelmark
