// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"
#include <QByteArray>
#include <QList>
#include <QString>
#include <sys/types.h>

namespace SQLite {
class Database;
}

namespace obelmark {

/// A step from one version of a kind of files to the next. Run again on a file that has taken it already it
/// changes nothing: a damaged header can lose the version.
struct Migration
{
    /// SQL of any number of statements; may be empty.
    QByteArray script = {};
    /// The companions of texts are made in another way from this version on.
    bool foldsAnew = false;
};

/// The versions that a kind of database files has had. A file bears its version as SQLite's user_version; one
/// without is of version 1.
struct FileVersions
{
    qint32 applicationId = 0;
    QList<Migration> migrations = {}; ///< the first leads from version 1 to 2
    /// Before a file is changed, what is in it is set aside, checked, as "coin-version-1.mdb" beside it.
    bool setsAside = true;

    qint32 newest() const { return 1 + qint32(migrations.size()); }
};

/// \throws NewerVersion when the file is of a later version than is known
void requireKnownVersion(SQLite::Database &connection, const FileVersions &versions);

/// Makes a file, which nobody else can open meanwhile, one of the newest version, in one transaction: cut off
/// anywhere, it is what it was. \a path: the file, \a mode its permission bits. \throws EngineError, which
/// says that the file is as it was, when there is no room or right for that; DatabaseDamaged; FileWorkStopped
void bringUpToDate(SQLite::Database &connection, const QString &path, mode_t mode,
                   const FileVersions &versions, const FileProgress &progress);

/// Removes the files that bringUpToDate() has set aside beside \a path.
void removeSetAside(const QString &path);

} // namespace obelmark
