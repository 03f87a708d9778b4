// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Dates.h"

#include "runtime/NumberedError.h"

#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

static constexpr qint64 julianDayOfZero = 2'415'019; // 30 December 1899
static constexpr qint64 firstDay = -657'434;         // 1 January 100
static constexpr qint64 lastDay = 2'958'465;         // 31 December 9999
static constexpr int secondsOfDay = 24 * 60 * 60;

struct DayAndSecond
{
    qint64 day;
    int second;
};

static std::optional<DayAndSecond> split(double serial)
{
    if (!(serial > double(firstDay - 1) && serial < double(lastDay + 1)))
        return {};
    const double day = std::trunc(serial);
    DayAndSecond result{qint64(day), int(std::lround(std::fabs(serial - day) * secondsOfDay))};
    if (result.second == secondsOfDay) {
        if (result.day == lastDay)
            return DayAndSecond{lastDay, secondsOfDay - 1};
        ++result.day;
        result.second = 0;
    }
    return result;
}

Date Date::from(const QDate &date, const QTime &time)
{
    const qint64 day = date.isValid() ? date.toJulianDay() - julianDayOfZero : lastDay + 1;
    if (day < firstDay || day > lastDay)
        throw runtimeError(Overflow);
    const double fraction = time.msecsSinceStartOfDay() / (1000.0 * secondsOfDay);
    return {day < 0 ? double(day) - fraction : double(day) + fraction};
}

Date Date::today()
{
    return from(QDate::currentDate());
}

QDate Date::date() const
{
    const auto parts = split(serial);
    return parts ? QDate::fromJulianDay(julianDayOfZero + parts->day) : QDate();
}

QTime Date::time() const
{
    const auto parts = split(serial);
    return parts ? QTime::fromMSecsSinceStartOfDay(parts->second * 1000) : QTime();
}

static void appendNumber(QString &text, int number, int digits)
{
    int power = digits == 4 ? 1000 : 10;
    for (; power > 0; power /= 10)
        text += QChar(char16_t(u'0' + number / power % 10));
}

QString isoText(Date date)
{
    QString text;
    const auto parts = split(date.serial);
    if (!parts)
        return text;
    int year = 0;
    int month = 0;
    int day = 0;
    QDate::fromJulianDay(julianDayOfZero + parts->day).getDate(&year, &month, &day);
    text.reserve(19);
    appendNumber(text, year, 4);
    text += u'-';
    appendNumber(text, month, 2);
    text += u'-';
    appendNumber(text, day, 2);
    if (parts->second > 0) {
        text += u'T';
        appendNumber(text, parts->second / 3600, 2);
        text += u':';
        appendNumber(text, parts->second / 60 % 60, 2);
        text += u':';
        appendNumber(text, parts->second % 60, 2);
    }
    return text;
}

/// The number in \a digits places of the text from \a at; nothing when something else stands there.
static std::optional<int> numberAt(QStringView text, qsizetype at, qsizetype digits)
{
    int number = 0;
    for (const QChar c : text.sliced(at, digits)) {
        if (c < u'0' || c > u'9')
            return {};
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

std::optional<Date> fromIsoText(QStringView text)
{
    const bool withTime = text.size() == 19;
    if ((text.size() != 10 && !withTime) || text[4] != u'-' || text[7] != u'-')
        return {};
    const auto year = numberAt(text, 0, 4);
    const auto month = numberAt(text, 5, 2);
    const auto day = numberAt(text, 8, 2);
    if (!year || !month || !day || *year < 100 || !QDate::isValid(*year, *month, *day))
        return {};
    const QDate date(*year, *month, *day);
    if (!withTime)
        return Date::from(date);

    if ((text[10] != u'T' && text[10] != u' ') || text[13] != u':' || text[16] != u':')
        return {};
    const auto hour = numberAt(text, 11, 2);
    const auto minute = numberAt(text, 14, 2);
    const auto second = numberAt(text, 17, 2);
    if (!hour || !minute || !second || !QTime::isValid(*hour, *minute, *second))
        return {};
    return Date::from(date, QTime(*hour, *minute, *second));
}

} // namespace obelmark
