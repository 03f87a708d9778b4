// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/Tables.h"

#include "support/Cases.h"

#include <QFile>
#include <algorithm>

namespace obelmark::walk {

using namespace Qt::StringLiterals;

QString fold(const QString &text)
{
    QString folded = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    folded.removeIf([](QChar letter) { return letter.isMark(); });
    return folded;
}

QList<QStringList> readRows(const QString &section)
{
    QList<QStringList> rows;
    for (const QString &line : cases::linesOf(u"RandomWalk"_s, section))
        rows << cases::cellsOf(line);
    return rows;
}

qint64 Table::add(Row row)
{
    put(++counter, std::move(row));
    return counter;
}

void Table::put(qint64 id, Row row)
{
    row[key] = QString::number(id);
    for (const QString &column : columns) {
        const QString base = column.chopped(4);
        if (!column.endsWith("sort"_L1) || !columns.contains(base))
            continue;
        row.remove(column);
        if (row.contains(base))
            row[column] = fold(row[base]);
    }
    rows[id] = row;
}

QList<qint64> Table::sorted(const QStringList &by) const
{
    const auto place = [&](qint64 id) {
        QList<QByteArray> parts;
        for (const QString &column : by) {
            const Row &row = rows.at(id);
            const QString text = row.value(column);
            parts << (!row.contains(column) ? QByteArray()
                      : column == u"Year"   ? QByteArray::number(200000 + text.toInt())
                                            : '=' + fold(text).toUtf8());
        }
        return parts;
    };
    QList<qint64> keys;
    for (const auto &[id, row] : rows)
        keys << id;
    std::ranges::stable_sort(keys, [&](qint64 a, qint64 b) { return place(a) < place(b); });
    return keys;
}

QStringList Table::lines() const
{
    QStringList all;
    for (const auto &[id, row] : rows) {
        QStringList cells;
        for (const QString &column : columns)
            cells << row.value(column, u"NULL"_s);
        all << cells.join(u'|');
    }
    return all;
}

bool Cursor::move(Way way)
{
    const QList<qint64> keys = table->sorted(order);
    if (keys.isEmpty()) {
        at.reset();
        return false;
    }
    const qsizetype here = at ? keys.indexOf(*at) : 0;
    const qsizetype there = way == Way::First      ? 0
                            : way == Way::Last     ? keys.size() - 1
                            : way == Way::Previous ? here - 1
                                                   : here + 1;
    at = keys[std::clamp<qsizetype>(there, 0, keys.size() - 1)];
    return there < 0 || there == keys.size();
}

void Cursor::search(Way way, const std::function<bool(const Row &)> &meets)
{
    QList<qint64> keys = table->sorted(order);
    if (way == Way::Next)
        keys = keys.mid(keys.indexOf(*at) + 1);
    if (way == Way::Previous)
        keys = keys.first(keys.indexOf(*at));
    if (way == Way::Previous || way == Way::Last)
        std::ranges::reverse(keys);
    const auto found = std::ranges::find_if(keys, [&](qint64 id) { return meets(table->rows.at(id)); });
    noMatch = found == keys.end();
    if (!noMatch)
        at = *found;
}

void Cursor::toKey(qint64 key)
{
    at = key;
    noMatch = false;
}

void Cursor::remove()
{
    const QList<qint64> keys = table->sorted(order);
    const qsizetype here = keys.indexOf(*at);
    table->rows.erase(*at);
    at = keys.size() == 1 ? std::nullopt : std::optional(keys[here + 1 < keys.size() ? here + 1 : here - 1]);
}

} // namespace obelmark::walk
