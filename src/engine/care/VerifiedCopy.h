// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"
#include <QString>
#include <sys/types.h>

namespace SQLite {
class Database;
}

namespace obelmark {

class LockedFile;

/// Both write a new file beside its later place; a leftover of that name is removed first. The new file is
/// flushed to the disk, found whole by SQLite's own check and to hold as many rows in every table, and has
/// the permission bits of the original. When anything fails there is no new file.
/// \throws DatabaseDamaged, naming the original, when that is why; DiskFull, PathFileAccess, PermissionDenied
/// and others, FileWorkStopped

/// The bytes as they are. The copy is read back from its medium and compared.
void copyVerified(LockedFile &original, const QString &newPath, const FileProgress &progress);

/// The same rows without the room that deleted ones have left. Counters go on as they were.
void compactVerified(LockedFile &original, const QString &newPath, const FileProgress &progress);

/// The same of a file that may have no name any more.
void compactVerified(SQLite::Database &original, const QString &newPath, mode_t mode,
                     const FileProgress &progress);

/// Whether \a path is a whole database with as many rows in every table as \a original.
bool isWholeCopy(LockedFile &original, const QString &path, const FileProgress &progress);

} // namespace obelmark
