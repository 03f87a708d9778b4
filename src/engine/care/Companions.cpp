// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/Companions.h"
#include "engine/care/WatchedWork.h"
#include "engine/language/Schema.h"
#include "engine/language/SqlFunctions.h"
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// One companion column of a table, as SQL.
struct Filling
{
    std::string table;
    std::string hint; ///< the index of the stale rows, if there is one
    std::string text;
    std::string companion;

    std::string staleRows() const { return companion + " is null and " + text + " is not null"; }
    bool isNeeded(SQLite::Database &connection) const
    {
        return connection
            .execAndGet("select exists(select 1 from " + table + hint + " where " + staleRows() + ")")
            .getInt();
    }
    void run(SQLite::Database &connection) const { write(connection, hint, staleRows()); }
    /// Only those rows are written that another companion belongs to.
    void runAnew(SQLite::Database &connection) const
    {
        write(connection, {}, companion + " is not " + folded());
    }

private:
    std::string folded() const { return std::string(foldSqlFunction) + "(" + text + ")"; }
    void write(SQLite::Database &connection, const std::string &index, const std::string &rows) const
    {
        connection.exec("update " + table + index + " set " + companion + " = " + folded() + " where " +
                        rows);
    }
};

std::vector<Filling> allFillings(const Schema &schema)
{
    std::vector<Filling> all;
    for (const auto &table : schema.tables()) {
        for (const Column &column : table->columns()) {
            if (column.companion < 0)
                continue;
            const QString index = table->name() + u'_' + column.name + "_stale"_L1;
            const std::string hint = schema.hasIndex(index) ? " indexed by " + quoted(index) : std::string();
            all.push_back({quoted(table->name()), hint, quoted(column.name),
                           quoted(table->column(column.companion).name)});
        }
    }
    return all;
}

} // namespace

void fillCompanions(SQLite::Database &connection, const Schema &schema, bool mayWait,
                    const FileProgress &progress)
{
    std::vector<Filling> needed = allFillings(schema);
    std::erase_if(needed, [&](const Filling &filling) { return !filling.isNeeded(connection); });
    if (needed.empty())
        return;
    try {
        WatchedWork(connection, [&] { tell(progress, FileStage::Ordering); }).run([&] {
            SQLite::Transaction transaction(connection);
            for (const Filling &filling : needed)
                filling.run(connection);
            transaction.commit();
        });
    } catch (const SQLite::Exception &error) {
        if (!mayWait || error.getErrorCode() != SQLITE_BUSY)
            throw;
    }
}

void refillCompanions(SQLite::Database &connection, const Schema &schema)
{
    for (const Filling &filling : allFillings(schema))
        filling.runAnew(connection);
}

} // namespace obelmark
