// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtCore>
#include <functional>
#include <map>
#include <optional>

namespace obelmark::walk {

/// The texts of a row's columns as a plain query shows them; a null column is not there.
using Row = QMap<QString, QString>;

/// How texts are compared and ordered.
QString fold(const QString &text);

/// The cells of a section of data/RandomWalk.txt, line by line.
QList<QStringList> readRows(const QString &section);
template<class Item>
QList<Item> readItems(const QString &section)
{
    QList<Item> items;
    for (const QStringList &cells : readRows(section))
        items << Item(cells);
    return items;
}

/// A table as it should be in the file.
struct Table
{
    qint64 add(Row row);
    void put(qint64 key, Row row);
    /// The keys in the order of columns, equal rows by key.
    QList<qint64> sorted(const QStringList &by) const;
    /// All rows by key, as TestCollection::query() shows them.
    QStringList lines() const;

    QString name;
    QString key;
    QStringList columns = {};
    std::map<qint64, Row> rows = {};
    qint64 counter = 0; ///< the last key given
};

enum class Way { First, Previous, Next, Last };

/// A recordset on a table as the program should move it.
struct Cursor
{
    /// Answers whether the move passed an end, which is where it stays.
    bool move(Way way);
    void search(Way way, const std::function<bool(const Row &)> &meets);
    void toKey(qint64 key);
    /// Stands on the row after the deleted one, or before it when that was the last.
    void remove();
    const Row &row() const { return table->rows.at(*at); }

    Table *table;
    QStringList order;
    std::optional<qint64> at = {};
    bool noMatch = false;
};

enum class State { Browsing, Editing, Adding };

} // namespace obelmark::walk
