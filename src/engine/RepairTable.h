#pragma once

#include "engine/Repair.h"
#include "engine/SalvageFile.h"
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>

namespace obelmark {

/// A row of a database's table of tables, indexes and so on.
struct SchemaObject
{
    QString type;
    QString name;
    QString table;
    std::uint32_t rootPage = 0;
    QString sql;
};

/// One table on its way from a damaged file into a new database, where it has been created already.
class TableCopy
{
public:
    /// \a target and \a table must outlive this.
    TableCopy(SQLite::Database &target, const SchemaObject &table);

    const QString &name() const { return m_table.name; }
    const RepairReport::Table &report() const { return m_report; }
    /// Whether pages are missing.
    bool hasHoles() const { return !m_losses.ranges.empty(); }
    /// Whether every row was found where it belongs.
    bool isWhole() const { return m_losses.none(); }

    void copy(SalvageFile &damaged);
    /// Whether rows that no table leads to would fill a hole of this one.
    bool misses(const std::vector<SalvagedRow> &rows) const;
    /// Adds a row unless there is one of that id.
    void save(const SalvagedRow &row);
    /// Learns from the table's indexes, of all those in \a schema, which rows there were.
    void findLost(SalvageFile &damaged, const std::vector<SchemaObject> &schema);
    /// Sets the counter behind every number known to have been given, \a oldCounter among them.
    void setCounter(std::int64_t oldCounter);

private:
    void know(std::int64_t id);
    SQLite::Statement &insertOf(std::size_t columnCount);

    SQLite::Database &m_target;
    const SchemaObject &m_table;
    std::vector<std::string> m_columns;
    std::size_t m_rowIdColumn = std::size_t(-1);
    std::map<std::size_t, SQLite::Statement> m_inserts; ///< by the number of columns
    TableLosses m_losses;
    std::vector<std::int64_t> m_savedIds;
    std::int64_t m_highestId = 0;
    RepairReport::Table m_report;
};

} // namespace obelmark
