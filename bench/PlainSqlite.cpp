// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "PlainSqlite.h"

#include <stdexcept>

namespace obelmark::bench {

namespace {

void check(bool isFine, sqlite3 *connection)
{
    if (!isFine)
        throw std::runtime_error(sqlite3_errmsg(connection));
}

} // namespace

Connection openPlain(const QString &path, int moreFlags)
{
    sqlite3 *raw = nullptr;
    const int result =
        sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE | moreFlags, nullptr);
    Connection connection(raw);
    check(result == SQLITE_OK, raw);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    execute(raw, "pragma cache_size = -8000; pragma temp_store = memory; pragma locking_mode = exclusive; "
                 "begin exclusive; commit; pragma journal_mode = delete; pragma synchronous = extra");
    return connection;
}

Statement prepare(sqlite3 *connection, const std::string &sql)
{
    sqlite3_stmt *raw = nullptr;
    check(sqlite3_prepare_v2(connection, sql.c_str(), -1, &raw, nullptr) == SQLITE_OK, connection);
    return Statement(raw);
}

void execute(sqlite3 *connection, const std::string &sql)
{
    check(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, connection);
}

void stepToEnd(sqlite3_stmt *statement)
{
    check(sqlite3_step(statement) == SQLITE_DONE, sqlite3_db_handle(statement));
    sqlite3_reset(statement);
}

void bindText(sqlite3_stmt *statement, int parameter, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, parameter, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

std::string textAt(sqlite3_stmt *statement, int column)
{
    return reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
}

qint64 readRow(sqlite3_stmt *statement)
{
    qint64 sum = 0;
    const int count = sqlite3_column_count(statement);
    for (int column = 0; column < count; ++column) {
        if (sqlite3_column_type(statement, column) == SQLITE_TEXT)
            sum += *sqlite3_column_text(statement, column);
        else
            sum += sqlite3_column_int64(statement, column);
    }
    return sum;
}

qint64 singleNumber(sqlite3 *connection, const std::string &sql)
{
    const Statement statement = prepare(connection, sql);
    check(sqlite3_step(statement.get()) == SQLITE_ROW, connection);
    return sqlite3_column_int64(statement.get(), 0);
}

PlainCursor::PlainCursor(sqlite3 *connection, const std::vector<std::string> &keys)
{
    std::string list, backwards, parameters, equal;
    for (size_t i = 0; i < keys.size(); ++i) {
        const std::string parameter = "?" + std::to_string(i + 1);
        list += (i ? ", " : "") + keys[i];
        parameters += (i ? ", " : "") + parameter;
        backwards += keys[i] + " desc, ";
        equal += keys[i] + " = " + parameter + " and ";
    }
    const std::string coinId = "?" + std::to_string(keys.size() + 1) + " order by coinid";
    const auto select = [&](const std::string &tail) {
        return prepare(connection, "select * from Coin " + tail + " limit 1");
    };
    m_first = select("order by " + list + ", coinid");
    m_last = select("order by " + backwards + "coinid desc");
    // Two statements to a direction: SQLite seeks by the columns of a row value, but not by the key behind
    // them.
    m_nextEqual = select("where " + equal + "coinid > " + coinId);
    m_next = select("where (" + list + ") > (" + parameters + ") order by " + list + ", coinid");
    m_previousEqual = select("where " + equal + "coinid < " + coinId + " desc");
    m_previous = select("where (" + list + ") < (" + parameters + ") order by " + backwards + "coinid desc");
    for (const std::string &key : keys) {
        int column = 0;
        while (key != sqlite3_column_name(m_first.get(), column))
            ++column;
        m_keyColumns.push_back(column);
    }
    m_keyColumns.push_back(0); // coinid
}

bool PlainCursor::read(sqlite3_stmt *statement)
{
    const bool found = sqlite3_step(statement) == SQLITE_ROW;
    if (found) {
        readRow(statement);
        m_position.clear();
        for (const int column : m_keyColumns)
            m_position.emplace_back(sqlite3_value_dup(sqlite3_column_value(statement, column)));
    }
    sqlite3_reset(statement);
    return found;
}

void PlainCursor::move(sqlite3_stmt *equal, sqlite3_stmt *beyond)
{
    for (sqlite3_stmt *statement : {equal, beyond}) {
        for (int i = 0; i < sqlite3_bind_parameter_count(statement); ++i)
            sqlite3_bind_value(statement, i + 1, m_position[size_t(i)].get());
        if (read(statement))
            return;
    }
}

} // namespace obelmark::bench
