#pragma once

#include <QString>

namespace obelmark {

struct SharedState;

/// Learns DateSep and DateOrder from the way the system writes 30 May 1998 as a short date. Run once at
/// start-up, before any date field is used.
void ChkDateFmt(SharedState &shared);

/// Month, day and year as decimal numbers in the order of DateOrder, separated by one blank, to be read back
/// as a date: "7 4 1976" for 4 July 1976 in month-day-year order.
QString FormatDate(const SharedState &shared, qint16 intMonth, qint16 intDay, qint16 intYear);

} // namespace obelmark
