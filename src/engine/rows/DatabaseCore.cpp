// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/DatabaseCore.h"
#include "engine/care/Companions.h"
#include "engine/care/FileSoundness.h"
#include "engine/care/LockedFile.h"
#include "engine/care/SalvageFile.h"
#include "engine/language/EngineError.h"
#include "engine/language/SqlFunctions.h"
#include "engine/rows/OrderedTable.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <sqlite3.h>

namespace obelmark {

namespace {

QString existingFile(const QString &path)
{
    const QFileInfo file(path);
    const QString fullPath = file.absoluteFilePath();
    if (!file.dir().exists())
        throw EngineError(InvalidPath, fullPath);
    if (!file.exists())
        throw EngineError(DatabaseFileNotFound, fullPath);
    // SQLite would make an empty database of an empty file.
    if (!file.isFile() || file.size() < fileHeaderSize)
        throw EngineError(UnrecognizedFormat, fullPath);
    return fullPath;
}

/// Texts that dynasets are opened with; a few in practice.
constexpr size_t mostOrderedTables = 32;

/// Pages kept in memory, in KiB: enough for the upper levels of every index of a million coins.
constexpr char cacheSize[] = "pragma cache_size = -8000";

void configure(SQLite::Database &connection)
{
    // The triggers of the file empty companions that other tools leave stale; the engine writes them itself.
    sqlite3_db_config(connection.getHandle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    setUpSql(connection);
    connection.exec(cacheSize);
    connection.exec("pragma temp_store = memory");
}

} // namespace

DatabaseCore::DatabaseCore(const QString &path, Database::Access access, const QStringList &requiredTables,
                           const FaultHook &faultHook, const FileProgress &progress,
                           const FileVersions &versions)
    : m_path(existingFile(path)), m_access(access), m_faultHook(faultHook)
{
    meetFault(FaultPoint::Open);
    withSqlErrors({SqlActivity::Kind::Opening, m_path, {}}, [&] {
        connect(access);
        const bool isVersioned = access == Database::Access::Exclusive && versions.applicationId != 0;
        if (isVersioned)
            requireKnownVersion(*m_connection, versions);
        m_schema.emplace(*m_connection);
        checkTables(requiredTables);
        if (access == Database::Access::Exclusive)
            requireSound(*m_connection, *m_schema);
        if (isVersioned) {
            bringUpToDate(*m_connection, m_path, m_place->mode(), versions, progress);
            m_schema.emplace(*m_connection);
        }
        if (!sqlite3_db_readonly(m_connection->getHandle(), "main"))
            fillCompanions(*m_connection, *m_schema, access == Database::Access::Shared, progress);
        learnPlace();
    });
}

DatabaseCore::~DatabaseCore()
{
    close();
}

void DatabaseCore::connect(Database::Access access)
{
    m_connection.emplace(m_path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    configure(*m_connection);
    if (access == Database::Access::Shared)
        return;
    m_connection->exec("pragma locking_mode = exclusive");
    // The lock is taken with the first transaction and kept.
    const int locked = m_connection->tryExec("begin exclusive; commit");
    const bool isReadOnly =
        locked == SQLITE_READONLY || sqlite3_db_readonly(m_connection->getHandle(), "main");
    // A file whose header names a format of later times cannot be written either.
    if (isReadOnly && hasImpossibleVersion(m_path))
        throw SQLite::Exception("database disk image is malformed", SQLITE_CORRUPT);
    if (isReadOnly)
        throw SQLite::Exception("attempt to write a readonly database", SQLITE_READONLY);
    m_connection->check(locked);
    m_place.emplace().learn(m_path, *m_connection);
    obelmark::requireInPlace(*m_connection);
    m_connection->exec("pragma journal_mode = delete");
    m_connection->exec("pragma synchronous = extra");
}

void DatabaseCore::checkTables(const QStringList &requiredTables)
{
    // SQLite takes an empty file for an empty database.
    if (m_connection->execAndGet("pragma page_count").getInt() == 0)
        throw EngineError(UnrecognizedFormat, m_path);
    for (const QString &name : requiredTables) {
        const TableSchema *table = m_schema->table(name);
        if (!table)
            throw EngineError(UnrecognizedFormat, m_path);
        // A damaged table shows here already, not in the middle of the work.
        m_connection->execAndGet("select exists(select 1 from " + quoted(table->name()) + " not indexed)");
    }
}

void DatabaseCore::closeRecordsets() noexcept
{
    for (OpenRecordset *recordset : std::exchange(m_recordsets, {}))
        recordset->invalidate();
    m_orderedTables.clear();
}

void DatabaseCore::standAside() noexcept
{
    closeRecordsets();
    // The lock goes at the end of the next transaction.
    m_connection->tryExec("rollback");
    if (m_connection->tryExec("pragma locking_mode = normal; begin; select count(*) from sqlite_master; "
                              "commit") != SQLITE_OK)
        close();
}

void DatabaseCore::close() noexcept
{
    closeRecordsets();
    if (m_connection && fileState() != FileState::InPlace) {
        // The library would remove the journal of that name, which may be that of the file there now.
        m_connection->tryExec("rollback");
        m_connection->tryExec("pragma journal_mode = off");
    }
    m_connection.reset();
}

FileState DatabaseCore::fileState()
{
    return m_place && m_connection ? m_place->look(m_path, *m_connection) : FileState::InPlace;
}

void DatabaseCore::requireInPlace()
{
    if (fileState() != FileState::InPlace)
        throw EngineError(FileTakenAway, m_path);
}

void DatabaseCore::learnPlace()
{
    if (m_place)
        m_place->learn(m_path, *m_connection);
}

void DatabaseCore::meetFault(FaultPoint point) const
{
    const int resultCode = m_faultHook ? m_faultHook(point) : SQLITE_OK;
    if (resultCode == SQLITE_OK)
        return;
    using enum SqlActivity::Kind;
    const SqlActivity::Kind kind = point == FaultPoint::Open    ? Opening
                                   : point == FaultPoint::Query ? Reading
                                                                : Writing;
    raiseSqlError(resultCode, sqlite3_errstr(resultCode), {kind, m_path, {}});
}

std::shared_ptr<OrderedTable> DatabaseCore::orderedTable(const QString &dynasetSql)
{
    if (const auto known = m_orderedTables.find(dynasetSql); known != m_orderedTables.end())
        return known->second;
    if (m_orderedTables.size() >= mostOrderedTables)
        m_orderedTables.clear();
    const auto made = std::make_shared<OrderedTable>(*this, parseDynasetQuery(dynasetSql, *m_schema));
    return m_orderedTables.emplace(dynasetSql, made).first->second;
}

qint64 DatabaseCore::reserveKey(const TableSchema &table)
{
    qint64 &reserved = m_reservedKeys[&table];
    // With the file to ourselves nobody else adds rows, and what was read once holds.
    if (reserved == 0 || m_access == Database::Access::Shared)
        reserved = std::max(reserved, reading({}, [&] { return highestKey(table); }));
    if (reserved >= std::numeric_limits<qint32>::max())
        throw EngineError(int(Overflow), runtimeError(Overflow).description());
    return ++reserved;
}

qint64 DatabaseCore::highestKey(const TableSchema &table)
{
    SQLite::Statement highest(*m_connection,
                              "select max(" + quoted(table.keyName()) + ") from " + quoted(table.name()));
    highest.executeStep();
    qint64 key = highest.getColumn(0).getInt64();
    if (m_schema->table(u"sqlite_sequence")) {
        SQLite::Statement sequence(*m_connection, "select max(seq) from sqlite_sequence where name = ?");
        sequence.bind(1, table.name().toStdString());
        sequence.executeStep();
        key = std::max(key, qint64(sequence.getColumn(0).getInt64()));
    }
    return std::max<qint64>(key, 0);
}

} // namespace obelmark
