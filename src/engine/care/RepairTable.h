#pragma once

#include "engine/care/Repair.h"
#include "engine/care/RepairEvidence.h"
#include "engine/care/RepairSchema.h"
#include "engine/language/ColumnType.h"
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>

namespace obelmark {

/// One table on its way from a damaged file into a new database, where it has been created already.
class TableCopy
{
public:
    /// \a target and \a table must outlive this.
    TableCopy(SQLite::Database &target, const SchemaObject &table);

    const QString &name() const { return m_table.name; }
    const RepairReport::Table &report() const { return m_report; }
    /// Whether every row was found where it belongs.
    bool isWhole() const { return m_losses.none(); }

    /// Saves the rows that the table's root leads to.
    void copy(SalvageFile &damaged);
    /// Learns from the table's indexes, of all those in \a schema, which rows there were. \a scratch: a
    /// database of the same schema.
    void readIndexes(SalvageFile &damaged, const std::vector<SchemaObject> &schema,
                     SQLite::Database &scratch);

    /// Of rows that no table leads to, how many look like this one's.
    std::size_t alike(const std::vector<SalvagedRow> &rows) const;
    /// How many of them the table's indexes have.
    std::size_t confirmed(const std::vector<SalvagedRow> &rows) const;
    /// Whether they would fill a hole of this table.
    bool misses(const std::vector<SalvagedRow> &rows) const;
    enum class Trust { OnlyConfirmed, InUse, MayBeFree };
    /// Saves those of them that are rows of this table now, not deleted ones or what they were before.
    void saveStray(const std::vector<SalvagedRow> &rows, Trust trust);

    /// Sets the counter behind every number known to have been given, \a oldCounter among them; gives a
    /// number to the rows whose own is none.
    void finish(std::int64_t oldCounter);
    /// Counts the rows that are known to be missing.
    void countLost();

private:
    bool isRow(const SalvagedRow &row) const;
    bool inHole(std::int64_t id) const;
    void save(const SalvagedRow &row);
    bool insert(const SalvagedRow &row);
    void know(std::int64_t id);
    SQLite::Statement &insertOf(std::size_t columnCount);

    SQLite::Database &m_target;
    const SchemaObject &m_table;
    std::vector<std::string> m_columns;
    std::vector<ColumnType> m_types;
    std::size_t m_rowIdColumn = std::size_t(-1);
    std::map<std::size_t, SQLite::Statement> m_inserts; ///< by the number of columns
    TableLosses m_losses;
    RepairEvidence m_evidence;
    std::vector<std::int64_t> m_savedIds;
    std::vector<SalvagedRow> m_unnumbered;
    std::int64_t m_highestId = 0;
    RepairReport::Table m_report;
};

} // namespace obelmark
