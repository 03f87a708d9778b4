#include "engine/rows/Companions.h"
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
    std::string table; ///< with the index to be used
    std::string text;
    std::string companion;

    std::string staleRows() const { return companion + " is null and " + text + " is not null"; }
    bool isNeeded(SQLite::Database &connection) const
    {
        return connection.execAndGet("select exists(select 1 from " + table + " where " + staleRows() + ")")
            .getInt();
    }
    void run(SQLite::Database &connection) const
    {
        connection.exec("update " + table + " set " + companion + " = " + foldSqlFunction + "(" + text +
                        ") where " + staleRows());
    }
};

std::vector<Filling> neededFillings(SQLite::Database &connection, const Schema &schema)
{
    std::vector<Filling> needed;
    for (const auto &table : schema.tables()) {
        for (const Column &column : table->columns()) {
            if (column.companion < 0)
                continue;
            const QString index = table->name() + u'_' + column.name + "_stale"_L1;
            const std::string hint = schema.hasIndex(index) ? " indexed by " + quoted(index) : std::string();
            const Filling filling{quoted(table->name()) + hint, quoted(column.name),
                                  quoted(table->column(column.companion).name)};
            if (filling.isNeeded(connection))
                needed.push_back(filling);
        }
    }
    return needed;
}

} // namespace

void fillCompanions(SQLite::Database &connection, const Schema &schema, bool mayWait,
                    const FileProgress &progress)
{
    const std::vector<Filling> needed = neededFillings(connection, schema);
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

} // namespace obelmark
