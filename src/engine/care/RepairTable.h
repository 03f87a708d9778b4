// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/Repair.h"
#include "engine/care/RepairEvidence.h"
#include "engine/care/RepairSchema.h"
#include "engine/language/ColumnType.h"
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>
#include <optional>
#include <set>

namespace obelmark {

/// One table on its way from a damaged file into a new database, where it has been created already.
class TableCopy
{
public:
    /// \a target and \a table must outlive this. \a counter: the last number that the file says the table has
    /// given; 0: it has given none.
    TableCopy(SQLite::Database &target, const SchemaObject &table, std::optional<std::int64_t> counter);

    const QString &name() const { return m_table.name; }
    const RepairReport::Table &report() const { return m_report; }
    /// Whether every row was found where it belongs.
    bool isWhole() const { return m_losses.none(); }

    /// Learns from the table's indexes, of all those in \a schema, which rows there were. \a scratch: a
    /// database of the same schema.
    void readIndexes(SalvageFile &damaged, const std::vector<SchemaObject> &schema,
                     SQLite::Database &scratch);
    /// Saves the rows that the table's root leads to. Pages of which nothing speaks for this table are left
    /// to others when \a isAnothers says so.
    void copy(SalvageFile &damaged, const SalvageFile::PageTest &isAnothers);

    bool hasEvidence() const { return !m_evidence.isEmpty(); }
    /// Of rows that no table leads to, how many look like this one's.
    std::size_t alike(const std::vector<SalvagedRow> &rows) const;
    /// How many of them the table's indexes have; 0 when they have others of those numbers.
    std::size_t confirmed(const std::vector<SalvagedRow> &rows) const;
    /// Whether copy() has left them to others.
    bool hasRefused(const std::vector<SalvagedRow> &rows) const;
    /// Whether one of them has been saved already, the very same.
    bool knows(const std::vector<SalvagedRow> &rows) const;
    /// Whether they would fill a hole of this table.
    bool misses(const std::vector<SalvagedRow> &rows);
    /// Whether the table has never given so high a number as one of them has.
    bool isBeyondCounter(const std::vector<SalvagedRow> &rows) const;
    /// Whether the last of them is the last that the table has given a number to.
    bool endsWith(const std::vector<SalvagedRow> &rows) const;
    enum class Trust { OnlyConfirmed, InUse, MayBeFree };
    /// Saves those of them that are rows of this table now, not deleted ones or what they were before.
    void saveStray(const std::vector<SalvagedRow> &rows, Trust trust);

    /// Sets the counter behind every number known to have been given; gives a number to the rows whose own is
    /// none; counts the rows that are known to be missing.
    void finish();

private:
    std::size_t oddValues(const SalvagedRow &row) const;
    bool couldBeRow(const SalvagedRow &row) const;
    bool isRow(const SalvagedRow &row) const;
    bool couldBeEntry(const SalvagedRow &entry, const std::vector<int> &columns) const;
    bool isSaved(std::int64_t id);
    bool hasCounter() const;
    void countLost();
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
    std::optional<SQLite::Statement> m_lookUp;
    TableLosses m_losses;
    RepairEvidence m_evidence;
    std::vector<std::int64_t> m_savedIds;
    std::map<std::int64_t, SalvagedRow> m_unnumbered;
    std::set<std::pair<std::int64_t, std::int64_t>> m_refused; ///< first and last id of pages
    std::optional<std::int64_t> m_counter;
    std::int64_t m_highestId = 0;
    RepairReport::Table m_report;
};

} // namespace obelmark
