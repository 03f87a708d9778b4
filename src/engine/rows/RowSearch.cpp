// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/RowSearch.h"
#include "engine/language/SqlFunctions.h"
#include "engine/rows/ResetGuard.h"
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

namespace obelmark {

namespace {

constexpr size_t mostStatements = 256;

/// Such that comparisons come out as they do in the table that the column is from.
const char *declarationOf(ColumnKind kind)
{
    return kind == ColumnKind::Text ? " text collate nocase" : kind == ColumnKind::Any ? "" : " numeric";
}

} // namespace

RowSearch::RowSearch(const RowStore &rows, const TableSchema &columns)
    : m_columns(columns), m_database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
{
    setUpSql(m_database);
    std::string names;
    std::string parameters;
    for (int i = 0; i < columns.columnCount(); ++i) {
        const Column &column = columns.column(i);
        // A name that comes twice belongs to its first column; the other one gets a name that nobody looks
        // for.
        const QString name =
            columns.find(column.name) == i ? column.name : column.name + u':' + QString::number(i);
        names += (i > 0 ? ", " : "") + quoted(name) + declarationOf(column.type.kind);
        parameters += i > 0 ? ", ?" : "?";
    }
    const std::string table = quoted(columns.name());
    m_database.exec("create table " + table + "(" + names + ")");
    SQLite::Transaction transaction(m_database);
    SQLite::Statement insert(m_database, "insert into " + table + " values(" + parameters + ")");
    for (qint64 row = 0; row < rows.rowCount(); ++row) {
        for (int column = 0; column < columns.columnCount(); ++column)
            bindValue(insert, column + 1, copyOf(rows.cell(row, column)));
        insert.exec();
        insert.reset();
    }
    transaction.commit();
}

SQLite::Statement &RowSearch::statement(const QString &criteria, bool backward)
{
    const auto cached = m_statements.find({criteria, backward});
    if (cached != m_statements.end())
        return cached->second;
    // Rows are numbered from 1.
    SQLite::Statement made(m_database, "select rowid from " + quoted(m_columns.name()) + " where rowid " +
                                           (backward ? "<=" : ">=") + " ? and (" +
                                           translateCriteria(criteria, m_columns, nullptr).sql +
                                           ") order by rowid" + (backward ? " desc" : "") + " limit 1");
    if (m_statements.size() >= mostStatements)
        m_statements.clear();
    return m_statements.emplace(std::pair(criteria, backward), std::move(made)).first->second;
}

qint64 RowSearch::find(const QString &criteria, qint64 first, bool backward)
{
    SQLite::Statement &found = statement(criteria, backward);
    const ResetGuard guard(found);
    found.bind(1, int64_t(first + 1));
    return found.executeStep() ? qint64(found.getColumn(0).getInt64()) - 1 : -1;
}

} // namespace obelmark
