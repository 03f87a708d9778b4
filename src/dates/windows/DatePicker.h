// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Dates.h"
#include <QPoint>
#include <QRect>

namespace obelmark {

class DateField;
class RegionalSettings;
struct SharedState;

/// The date that the calendar of most fields starts from: the one in the field, or else today.
Date dateOrToday(const QString &text, const RegionalSettings &regional);

/// Which edge of the calendar lies one field height below its field.
enum class CalendarEdge { Bottom, Top };

/// Where the calendar goes, in pixels of the screen: its right edge in line with that of the field, \a edge
/// one field height below it, and always wholly on the screen. \a window is its size with its frame.
QPoint calendarPlace(const QRect &field, QSize window, const QRect &screen, CalendarEdge edge);

/// Lets the user choose a date for a field in the calendar, which starts from PickDate, and moves the focus
/// on to the next control. Whatever the user does, the field then holds PickDate: a calendar that is closed
/// without picking a day leaves the date that it started from.
void pickDateFor(DateField &field, const QString &caption, Date start, SharedState &shared,
                 CalendarEdge edge = CalendarEdge::Bottom);

} // namespace obelmark
