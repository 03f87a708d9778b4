// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>
#include <compare>
#include <optional>

namespace obelmark {

class RegionalSettings;

/// A date and time of day as one number: days since 30 December 1899, the time as the fraction. Before that
/// day the whole part is negative and the fraction still counts forward (-1.25 is 29 December 1899, 06:00).
/// Range 1 January 100 to 31 December 9999.
struct Date
{
    double serial = 0;

    /// \throws Overflow outside the range
    static Date from(const QDate &date, const QTime &time = QTime(0, 0));
    static Date today();

    /// Day and time of day, both from the serial rounded to the second. Null outside the range.
    QDate date() const;
    QTime time() const;

    auto operator<=>(const Date &) const = default;
};

/// The date test and conversion. Three numbers in the region's order separated by "/", "-", "." or blanks
/// (the other orders where that one is impossible; a leading year then has to be one that cannot be a day),
/// month names of the region's language and English, whole or shortened, in any order; two numbers as month
/// and day of this year, else month and year; a time of day with or without AM/PM, alone or after a date.
/// Two-digit years: 00-29 are 2000-2029, 30-99 are 1930-1999. A single number or blank text is no date.
bool isDate(QStringView text, const RegionalSettings &regional);
/// \throws TypeMismatch
Date toDate(QStringView text, const RegionalSettings &regional);

/// "yyyy-MM-dd", with "Thh:mm:ss" behind it when there is a time of day: the form that the files hold. Empty
/// outside the range.
QString isoText(Date date);
/// Reads isoText(), also with a blank for the "T". Nothing when it is no such date.
std::optional<Date> fromIsoText(QStringView text);

} // namespace obelmark
