// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dates/DateFormat.h"

#include "common/SharedState.h"
#include "runtime/Formats.h"

namespace obelmark {

using namespace Qt::StringLiterals;

void ChkDateFmt(SharedState &shared)
{
    constexpr int referenceMonth = 5;
    constexpr int referenceDay = 30;
    const QString text =
        formatShortDate(Date::from(QDate(1998, referenceMonth, referenceDay)), shared.regional);
    for (const QChar separator : u"/. -"_s) {
        if (text.contains(separator)) {
            shared.DateSep = separator;
            break;
        }
    }
    const QStringList parts =
        shared.DateSep.isEmpty() ? QStringList{text} : text.split(shared.DateSep, Qt::SkipEmptyParts);
    shared.DateOrder.clear();
    for (const QString &part : parts.mid(0, 3)) {
        const int number = part.trimmed().toInt();
        shared.DateOrder += number == referenceMonth ? u'm' : number == referenceDay ? u'd' : u'y';
    }
    // A short date without such a separator tells nothing; what FormatDate() builds must still read back.
    if (shared.DateOrder.size() != 3)
        shared.DateOrder = shared.regional.datePartOrder();
}

QString FormatDate(const SharedState &shared, qint16 intMonth, qint16 intDay, qint16 intYear)
{
    const QString month = QString::number(intMonth);
    const QString day = QString::number(intDay);
    const QString year = QString::number(intYear);
    const QString &order = shared.DateOrder;
    const QStringList parts = order == u"dmy"   ? QStringList{day, month, year}
                              : order == u"ymd" ? QStringList{year, month, day}
                              : order == u"ydm" ? QStringList{year, day, month}
                                                : QStringList{month, day, year};
    return parts.join(u' ');
}

std::optional<Date> dateFromParts(const SharedState &shared, int month, int day, int year)
{
    if (year < firstYear || year > lastYear)
        return {};
    const QString text = FormatDate(shared, qint16(month), qint16(day), qint16(year));
    return isDate(text, shared.regional) ? std::optional(toDate(text, shared.regional)) : std::nullopt;
}

} // namespace obelmark
