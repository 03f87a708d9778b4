// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/LockedFile.h"

#include "engine/care/ErrorMapping.h"
#include "engine/care/JournalFiles.h"
#include "engine/language/EngineError.h"
#include <QFileInfo>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace obelmark {

void requireInPlace(SQLite::Database &connection)
{
    int hasMoved = 0;
    sqlite3_file_control(connection.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved)
        throw SQLite::Exception("the file has been replaced", SQLITE_BUSY);
}

static SQLite::Database lock(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        throw EngineError(DatabaseFileNotFound, path);
    // SQLite would make an empty database of an empty file.
    if (!file.isFile() || file.size() == 0)
        throw EngineError(UnrecognizedFormat, path);
    return withSqlErrors({SqlActivity::Kind::Opening, path, {}}, [&] {
        SQLite::Database connection(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        connection.exec("begin exclusive; commit; pragma journal_mode = delete; pragma temp_store = memory");
        // The lock is taken with the first transaction and kept.
        connection.exec("pragma locking_mode = exclusive; begin exclusive; commit");
        requireInPlace(connection);
        removeJournals(path);
        return connection;
    });
}

static sqlite3_file *fileOf(SQLite::Database &connection)
{
    sqlite3_file *file = nullptr;
    connection.check(sqlite3_file_control(connection.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file));
    return file;
}

static void require(int resultCode, const QString &path)
{
    if (resultCode != SQLITE_OK)
        raiseSqlError(resultCode, sqlite3_errstr(resultCode), {SqlActivity::Kind::Reading, path, {}});
}

LockedFile::LockedFile(const QString &path) : m_path(path), m_connection(lock(path)) {}

qint64 LockedFile::size()
{
    sqlite3_file *file = fileOf(m_connection);
    sqlite3_int64 bytes = 0;
    require(file->pMethods->xFileSize(file, &bytes), m_path);
    return bytes;
}

void LockedFile::read(qint64 offset, std::span<char> bytes)
{
    sqlite3_file *file = fileOf(m_connection);
    require(file->pMethods->xRead(file, bytes.data(), int(bytes.size()), offset), m_path);
}

RowCounts rowCounts(SQLite::Database &connection)
{
    RowCounts counts;
    SQLite::Statement tables(connection, "select name, '\"' || replace(name, '\"', '\"\"') || '\"' from "
                                         "sqlite_master where type = 'table'");
    while (tables.executeStep())
        counts[tables.getColumn(0)] =
            connection.execAndGet("select count(*) from " + tables.getColumn(1).getString()).getInt64();
    return counts;
}

} // namespace obelmark
