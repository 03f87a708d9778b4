// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/MonthPage.h"

#include "dates/DateFormat.h"

namespace obelmark {

int MonthPage::columnOfFirst() const
{
    return QDate(m_chosen.year(), m_chosen.month(), 1).dayOfWeek() % columns;
}

int MonthPage::dayAt(Cell cell) const
{
    const int day = (cell.row - 1) * columns + cell.column - columnOfFirst() + 1;
    return cell.row > 0 && day >= 1 && day <= m_chosen.daysInMonth() ? day : 0;
}

MonthPage::Cell MonthPage::cellOf(int day) const
{
    const int place = columnOfFirst() + day - 1;
    return {1 + place / columns, place % columns};
}

bool MonthPage::choose(int day)
{
    if (day < 1 || day > m_chosen.daysInMonth())
        return false;
    m_chosen.setDate(m_chosen.year(), m_chosen.month(), day);
    return true;
}

bool MonthPage::step(int months)
{
    const int month = m_chosen.year() * monthsOfYear + m_chosen.month() - 1 + months;
    const int year = month / monthsOfYear;
    if (month < 0 || year < firstYear || year > lastYear)
        return false;
    const QDate first(year, month % monthsOfYear + 1, 1);
    const int day = m_chosen.day();
    m_chosen = first;
    choose(day);
    return true;
}

} // namespace obelmark
