// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/FilePlace.h"

#include "engine/care/SalvageFile.h"
#include <QFile>
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

namespace obelmark {

namespace {

bool readStatus(const QString &path, struct stat &status)
{
    return ::stat(QFile::encodeName(path).constData(), &status) == 0;
}

bool areSame(const struct stat &one, const struct stat &other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool isUnchanged(const struct stat &one, const struct stat &other)
{
    return one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

/// Through the connection: closing a second descriptor would unlock the file.
QByteArray headerOf(SQLite::Database &connection)
{
    sqlite3_file *file = nullptr;
    QByteArray header(fileHeaderSize, '\0');
    sqlite3_file_control(connection.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    file->pMethods->xRead(file, header.data(), int(header.size()), 0); // what is not there stays zero
    return header;
}

bool isInTransaction(SQLite::Database &connection)
{
    return sqlite3_get_autocommit(connection.getHandle()) == 0;
}

} // namespace

void FilePlace::learn(const QString &path, SQLite::Database &connection)
{
    struct stat status;
    const bool isFirst = m_header.isEmpty();
    if (isInTransaction(connection) || !readStatus(path, status) || !(isFirst || areSame(status, m_status)))
        return;
    m_status = status;
    m_header = headerOf(connection);
}

FileState FilePlace::look(const QString &path, SQLite::Database &connection)
{
    struct stat status;
    if (!readStatus(path, status))
        return FileState::Missing;
    if (!areSame(status, m_status))
        return FileState::Replaced;
    if (isInTransaction(connection) || isUnchanged(status, m_status))
        return FileState::InPlace;
    if (status.st_size != m_status.st_size || headerOf(connection) != m_header)
        return FileState::Overwritten;
    // Touched, or an earlier state of these very days: what is kept of it in memory must not be mixed with
    // it.
    sqlite3_db_release_memory(connection.getHandle());
    m_status = status;
    return FileState::InPlace;
}

bool FilePlace::isAt(const QString &path) const
{
    struct stat status;
    return readStatus(path, status) && areSame(status, m_status);
}

} // namespace obelmark
