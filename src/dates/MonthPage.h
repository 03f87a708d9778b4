// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

namespace obelmark {

/// One month as the calendar shows it, with one of its days chosen: which day stands in which cell, and what
/// stepping comes to.
///
/// Row 0 of the grid is for the names of the weekdays, rows 1 to 6 hold the weeks. They begin on Sunday, in
/// column 0.
class MonthPage
{
public:
    static constexpr int rows = 7;
    static constexpr int columns = 7;
    static constexpr int monthsOfYear = 12;

    struct Cell
    {
        int row;
        int column;

        bool operator==(const Cell &) const = default;
    };

    explicit MonthPage(QDate chosen) : m_chosen(chosen) {}

    QDate chosen() const { return m_chosen; }

    /// The day of the month in a cell; 0 where none stands.
    int dayAt(Cell cell) const;
    Cell cellOf(int day) const;

    /// Chooses another day of the month. Answers false, and changes nothing, when the month has no such day.
    bool choose(int day);
    /// Turns to the month so many months later, or earlier when negative. The chosen day keeps its number, or
    /// becomes the 1st where the new month is too short for it. Answers false, and changes nothing, where
    /// there are no dates: before the year 100 and after 9999.
    bool step(int months);

private:
    int columnOfFirst() const;

    QDate m_chosen;
};

} // namespace obelmark
