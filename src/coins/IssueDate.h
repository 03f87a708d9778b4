// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Dates.h"

namespace obelmark {

struct SharedState;

/// A coin's issue date takes its century from the coin's year: 5/3/52 with the year 1852 is 3 May 1852.
/// \a coinYear is the text of the year field. The date stays as it is when that does not hold exactly four
/// characters or is no number, and when the year of that century lacks the day.
Date inCenturyOf(const QString &coinYear, Date date, const SharedState &shared);

/// The date that the calendar of an issue date starts from: the date in the field, in the century of the
/// coin's year; without one, 1 January of the coin's year; without a year that dates can have, today.
Date issueDateStart(const QString &text, const QString &coinYear, const SharedState &shared);

} // namespace obelmark
