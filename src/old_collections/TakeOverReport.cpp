// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "old_collections/TakeOverReport.h"

#include <QStringList>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QString count(qint64 number, const QString &what)
{
    return u"%1 %2%3"_s.arg(QString::number(number), what, number == 1 ? QString() : u"s"_s);
}

void appendTable(const TakeOverReport::Table &table, QStringList &lines)
{
    QString line = table.name + u": "_s;
    if (!table.isInOldFile)
        line += u"not found in the old file"_s;
    else if (!table.hasKey)
        line += u"the description of its columns is damaged"_s;
    else
        line += table.taken == table.declared
                    ? QString::number(table.taken)
                    : u"%1 of %2"_s.arg(QString::number(table.taken), QString::number(table.declared));
    if (table.unreadableRows > 0)
        line += u", %1"_s.arg(count(table.unreadableRows, u"unreadable record"_s));
    lines << line;
    if (table.hasKey && !table.missingColumns.isEmpty())
        lines << u"    left empty, not in the old file: %1"_s.arg(table.missingColumns.join(u", "_s));
    for (auto each = table.lost.begin(); each != table.lost.end(); ++each)
        lines << u"    %1: %2"_s.arg(each.key(), count(each.value(), u"unreadable value"_s));
}

} // namespace

const TakeOverReport::Table *TakeOverReport::table(const QString &name) const
{
    const auto found =
        std::find_if(tables.begin(), tables.end(), [&](const Table &each) { return each.name == name; });
    return found == tables.end() ? nullptr : &*found;
}

bool TakeOverReport::isDamaged() const
{
    return !readToEnd || std::any_of(tables.begin(), tables.end(), [](const Table &table) {
        return !table.isInOldFile || !table.hasKey || table.taken != table.declared ||
               table.unreadableRows > 0 || !table.lost.isEmpty();
    });
}

QString TakeOverReport::text() const
{
    QStringList lines{u"Records in each table:"_s};
    for (const Table &table : tables)
        appendTable(table, lines);
    QStringList others;
    for (const Table &table : tables) {
        for (auto each = table.leftOver.begin(); each != table.leftOver.end(); ++each)
            others << u"%1.%2: %3"_s.arg(table.name, each.key(), count(each.value(), u"value"_s));
    }
    for (auto each = otherTables.begin(); each != otherTables.end(); ++each)
        others << u"%1: %2"_s.arg(each.key(), count(each.value(), u"record"_s));
    if (!others.isEmpty())
        lines << QString() << u"This program has no place for these, so they are only in the old file:"_s
              << others;
    return lines.join(u'\n');
}

} // namespace obelmark
