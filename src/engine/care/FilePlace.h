// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <sys/stat.h>

namespace SQLite {
class Database;
}

namespace obelmark {

/// What has become of an open database file beneath the program.
enum class FileState {
    InPlace,
    Missing,     ///< there is no file of that name any more
    Replaced,    ///< another file has got its name
    Overwritten, ///< it is the same file, but another program has written into it
};

/// Knows an open database file again. Locks keep other users of the library out, but no tool that renames,
/// deletes or copies files; what is written into a file without a name is in no file.
class FilePlace
{
public:
    /// To be called after the opening and after each write that has come to its end.
    void learn(const QString &path, SQLite::Database &connection);
    /// Costs a question to the file system. Within a transaction the file's own contents are not looked at:
    /// they may be those of this very transaction.
    FileState look(const QString &path, SQLite::Database &connection);

    /// Whether \a path is this very file.
    bool isAt(const QString &path) const;
    /// Its permission bits.
    mode_t mode() const { return m_status.st_mode & 07777; }

private:
    struct stat m_status = {};
    QByteArray m_header;
};

} // namespace obelmark
