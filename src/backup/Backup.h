// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/Desktop.h"
#include "engine/care/FileProgress.h"
#include <QString>

namespace obelmark {

/// Where backups lie on a drive: in its root folder, in a home folder in one of their own.
QString backupFolder(const Drive &drive);

/// Copies the coin database, which must be closed, into a folder as "coin.mdb". An earlier backup there is
/// replaced once the new one is complete, flushed to the medium and compared with the original; when anything
/// fails it stays, and nothing is left of the new one.
/// \throws PathNotFound, PathFileAccess (also for the folder of the collection itself), DiskFull, FileInUse
///         and others; FileWorkStopped
void backUpDatabase(const QString &databasePath, const QString &folder, const FileProgress &progress);

/// The same into backupFolder(), which is made in a home folder when it is not there.
void backUpDatabase(const QString &databasePath, const Drive &drive, const FileProgress &progress);

} // namespace obelmark
