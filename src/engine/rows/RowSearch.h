// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Dialect.h"
#include "engine/rows/RowStore.h"
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>

namespace obelmark {

/// Finds rows of a snapshot by criteria: an SQL table in memory with the snapshot's rows, whose criteria are
/// the engine's like any others. A program that looks the same rows up again and again has its criteria made
/// ready once.
class RowSearch
{
public:
    RowSearch(const RowStore &rows, const TableSchema &columns);

    /// The first row from \a first on, or the last up to it, that meets the criteria; -1 when none does.
    qint64 find(const QString &criteria, qint64 first, bool backward);

private:
    SQLite::Statement &statement(const QString &criteria, bool backward);

    const TableSchema &m_columns;
    SQLite::Database m_database;
    std::map<std::pair<QString, bool>, SQLite::Statement> m_statements;
};

} // namespace obelmark
