// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/ColumnType.h"
#include "engine/language/NameIndex.h"
#include <memory>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

namespace obelmark {

struct Column
{
    QString name;
    ColumnType type;
    /// The column beside it that holds its folded text and that it is ordered by; -1: ordered by itself.
    int companion = -1;
    bool isCompanion = false;
    QString defaultSql; ///< the expression of its default; empty: null
};

class TableSchema
{
public:
    explicit TableSchema(const QString &name) : m_name(name) {}

    /// As it was written when the table was made.
    const QString &name() const { return m_name; }
    const std::vector<Column> &columns() const { return m_columns; }
    const Column &column(int index) const { return m_columns[size_t(index)]; }
    int columnCount() const { return int(m_columns.size()); }
    /// -1 when there is no such column.
    int find(QStringView column) const { return m_index.find(column); }
    /// The integer primary key, the counter; -1 when there is none.
    int keyColumn() const { return m_keyColumn; }
    /// What the key of a row is called in SQL: every row has a number even without an integer primary key.
    QString keyName() const { return m_keyColumn < 0 ? QStringLiteral("rowid") : column(m_keyColumn).name; }

    void addColumn(const Column &column);
    void setKeyColumn(int index) { m_keyColumn = index; }
    /// Pairs text columns X with their companions Xsort.
    void pairCompanions();

private:
    QString m_name;
    std::vector<Column> m_columns;
    NameIndex m_index;
    int m_keyColumn = -1;
};

/// The tables of a database, as they are when it is opened: nobody changes them while it is open.
class Schema
{
public:
    explicit Schema(SQLite::Database &connection);

    const std::vector<std::unique_ptr<TableSchema>> &tables() const { return m_tables; }
    /// nullptr when there is no such table.
    const TableSchema *table(QStringView name) const;
    bool hasIndex(QStringView name) const { return m_indexes.find(name) >= 0; }

private:
    std::vector<std::unique_ptr<TableSchema>> m_tables;
    NameIndex m_tableIndex;
    NameIndex m_indexes;
};

/// A name as an SQL identifier in UTF-8.
std::string quoted(QStringView name);

} // namespace obelmark
