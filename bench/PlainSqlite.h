// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

/// What a program without any layer of its own would do: SQLite's C calls, with owners that close and
/// finalise. Everything here raises std::runtime_error when SQLite fails.
namespace obelmark::bench {

struct SqliteDeleter
{
    void operator()(sqlite3 *connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    void operator()(sqlite3_value *value) const { sqlite3_value_free(value); }
};
using Connection = std::unique_ptr<sqlite3, SqliteDeleter>;
using Statement = std::unique_ptr<sqlite3_stmt, SqliteDeleter>;
using KeptValue = std::unique_ptr<sqlite3_value, SqliteDeleter>;

/// Opens the file locked, as safe and with as much memory as the program does.
Connection openPlain(const QString &path, int moreFlags = 0);
Statement prepare(sqlite3 *connection, const std::string &sql);
void execute(sqlite3 *connection, const std::string &sql);
/// Runs a statement that answers no rows.
void stepToEnd(sqlite3_stmt *statement);

void bindText(sqlite3_stmt *statement, int parameter, const QString &text);
std::string textAt(sqlite3_stmt *statement, int column);
/// Reads every column of the row that the statement stands on. The answer is only there to be used.
qint64 readRow(sqlite3_stmt *statement);
/// The number in the first row that the query answers.
qint64 singleNumber(sqlite3 *connection, const std::string &sql);

/// Moves among the coins in one order with prepared statements, reading each row.
class PlainCursor
{
public:
    /// \a keys are the columns of the order; a row with a null there is no place to move on from.
    PlainCursor(sqlite3 *connection, const std::vector<std::string> &keys);

    void moveFirst() { read(m_first.get()); }
    void moveLast() { read(m_last.get()); }
    void moveNext() { move(m_nextEqual.get(), m_next.get()); }
    void movePrevious() { move(m_previousEqual.get(), m_previous.get()); }

    qint64 coinId() const { return sqlite3_value_int64(m_position.back().get()); }

private:
    bool read(sqlite3_stmt *statement);
    void move(sqlite3_stmt *equal, sqlite3_stmt *beyond);

    std::vector<int> m_keyColumns;
    std::vector<KeptValue> m_position; ///< the values of the order's columns, and coinid
    Statement m_first, m_last, m_nextEqual, m_next, m_previousEqual, m_previous;
};

} // namespace obelmark::bench
