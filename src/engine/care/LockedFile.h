// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <SQLiteCpp/Database.h>
#include <functional>
#include <map>
#include <span>

namespace obelmark {

/// The number of rows of every table.
using RowCounts = std::map<std::string, qint64>;
RowCounts rowCounts(SQLite::Database &connection);

/// After the lock of a file has been got: whoever had it before may have put another in its place meanwhile
/// (packing, repair), and the connection be on the one that was set aside. \throws SQLite::Exception (BUSY)
void requireInPlace(SQLite::Database &connection);

/// A database file that nobody uses and that nobody can begin to use: for work on the file as a whole. What
/// an interrupted write has left is undone, and no journal lies beside it.
class LockedFile
{
public:
    /// \throws DatabaseFileNotFound, FileInUse, DatabaseDamaged, UnrecognizedFormat, PermissionDenied
    explicit LockedFile(const QString &path);

    const QString &path() const { return m_path; }
    SQLite::Database &connection() { return m_connection; }

    /// Its bytes. They are read through the connection: closing a second descriptor would unlock the file.
    qint64 size();
    void read(qint64 offset, std::span<char> bytes);

private:
    QString m_path;
    SQLite::Database m_connection;
};

} // namespace obelmark
