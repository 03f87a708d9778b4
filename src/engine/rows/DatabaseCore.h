// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/ErrorMapping.h"
#include "engine/care/FilePlace.h"
#include "engine/language/Schema.h"
#include "engine/rows/Database.h"
#include <QScopeGuard>
#include <SQLiteCpp/Database.h>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace obelmark {

class OrderedTable;

/// What a database knows of a recordset open on it.
class OpenRecordset
{
public:
    /// Lets go of every statement; the recordset answers ObjectClosed from then on.
    virtual void invalidate() noexcept = 0;

protected:
    ~OpenRecordset() = default;
};

/// The connection to a database file and what the recordsets open on it share. Lives as long as the last of
/// them; the file is closed with the Database.
class DatabaseCore
{
public:
    DatabaseCore(const QString &path, Database::Access access, const QStringList &requiredTables,
                 const FaultHook &faultHook, const FileProgress &progress, const FileVersions &versions);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore &) = delete;
    DatabaseCore &operator=(const DatabaseCore &) = delete;

    void close() noexcept;
    void standAside() noexcept;
    bool isOpen() const { return m_connection.has_value(); }

    const QString &path() const { return m_path; }
    SQLite::Database &connection() { return *m_connection; }
    const Schema &schema() const { return *m_schema; }

    void setFaultHook(const FaultHook &faultHook) { m_faultHook = faultHook; }
    /// Fails as SQLite would when the fault hook says so.
    void meetFault(FaultPoint point) const;

    /// Runs \a work; errors of SQLite come out as those of a query (\a expression: its text) or of a write.
    template<class Work>
    auto reading(const QString &expression, Work &&work) const
    {
        return withSqlErrors({SqlActivity::Kind::Reading, m_path, expression}, std::forward<Work>(work));
    }
    /// Nothing is written that would be in no file. \throws FileTakenAway
    template<class Work>
    auto writing(Work &&work)
    {
        requireInPlace();
        const auto learn = qScopeGuard([this] { learnPlace(); });
        return withSqlErrors({SqlActivity::Kind::Writing, m_path, {}}, std::forward<Work>(work));
    }

    /// A file that is shared may be changed by others.
    FileState fileState();
    void requireInPlace();
    const std::optional<FilePlace> &place() const { return m_place; }

    /// Grows with every row written through this database: what was read at a lower count may be stale.
    quint64 changeCount() const { return m_changeCount; }
    void countChange() { ++m_changeCount; }

    /// The counter of a new row, never given again, whether the row is written or not.
    /// \throws Overflow when the table has used up its 32 bits
    qint64 reserveKey(const TableSchema &table);

    /// The look-ups of dynasets opened with that text, shared by all of them: their statements, which take
    /// longer to make than to run, are ready when an order is come back to.
    std::shared_ptr<OrderedTable> orderedTable(const QString &dynasetSql);

    void add(OpenRecordset &recordset) { m_recordsets.push_back(&recordset); }
    void remove(OpenRecordset &recordset) { std::erase(m_recordsets, &recordset); }

private:
    void closeRecordsets() noexcept;
    void connect(Database::Access access);
    void checkTables(const QStringList &requiredTables);
    void learnPlace();
    qint64 highestKey(const TableSchema &table);

    QString m_path;
    Database::Access m_access;
    FaultHook m_faultHook;
    std::optional<SQLite::Database> m_connection;
    std::optional<FilePlace> m_place; ///< of a file that nobody else is to change
    std::optional<Schema> m_schema;
    std::unordered_map<const TableSchema *, qint64> m_reservedKeys;
    std::map<QString, std::shared_ptr<OrderedTable>> m_orderedTables;
    std::vector<OpenRecordset *> m_recordsets;
    quint64 m_changeCount = 0;
};

} // namespace obelmark
