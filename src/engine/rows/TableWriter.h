// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/DatabaseCore.h"
#include <SQLiteCpp/Statement.h>
#include <map>
#include <vector>

namespace obelmark {

/// Writes rows of a table, the companions of their texts with them, each in a durable transaction of one
/// statement. Its statements are made once.
class TableWriter
{
public:
    TableWriter(DatabaseCore &core, const TableSchema &table) : m_core(core), m_table(table) {}

    /// A new row as it is before anything is written into it: nulls and defaults.
    std::vector<Value> blankRow();

    void insert(qint64 key, const std::vector<Value> &values);
    /// Writes the columns marked in \a changed, at least one. False when there is no such row any more.
    bool update(qint64 key, const std::vector<Value> &values, const std::vector<bool> &changed);
    /// False when there is no such row any more.
    bool remove(qint64 key);

private:
    struct Assignment
    {
        int column;
        int source; ///< whose value is written: the column's own or that of the text it is the companion of
    };
    std::vector<Assignment> assignments(const std::vector<bool> &changed) const;
    static void bindValues(SQLite::Statement &statement, const std::vector<Assignment> &assignments,
                           const std::vector<Value> &values);

    DatabaseCore &m_core;
    const TableSchema &m_table;
    /// By the columns that they write.
    std::map<std::vector<bool>, SQLite::Statement> m_updates;
    std::optional<SQLite::Statement> m_insert;
    std::optional<SQLite::Statement> m_remove;
};

} // namespace obelmark
