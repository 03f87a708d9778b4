// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"
#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>

namespace obelmark {

/// What repairDatabase() could save.
struct RepairReport
{
    struct Table
    {
        QString name;
        qint64 rowsSaved = 0;
        /// Of the saved rows, those with a column that was unreadable and is null now.
        qint64 rowsIncomplete = 0;
        /// Of the saved rows, those whose number was none and that have got a new one.
        qint64 rowsRenumbered = 0;
        /// Rows that are known to have been there and could not be saved. More may be gone.
        qint64 rowsLost = 0;
        /// The place where the table begins is lost, and no row was found: nobody knows how many there were.
        bool isLost = false;
    };
    QList<Table> tables;
    /// Where the damaged file lies now, as it was.
    QString damagedFilePath;
};

/// What is known of a file before it is repaired.
struct RepairPlan
{
    /// The table without which the file is not worth repairing.
    QString keyTable;
    /// SQL that makes the tables, indexes and triggers such a file has: those that are lost are supplied.
    QByteArray schema = {};
    /// Opens a file in the way it will be used, and raises what is wrong with it.
    std::function<void(const QString &path)> check = {};
};

/// Saves the readable rows of a damaged database, which must be closed, row by row into a new file, puts that
/// in its place and keeps the damaged file beside it under a name that was free ("coin-damaged.mdb"). The
/// tables, indexes and triggers are made anew; counters go on behind every number that is known to have been
/// given. The new file is checked before it takes the place of the old one.
///
/// A row is saved when its place in the file makes sense, or when the indexes tell of it; a column of it that
/// lies in a lost part of the file becomes null. Tables of other tools that have no row ids come out empty,
/// virtual tables are left out. \a progress is told meanwhile (FileStage::Rescuing).
/// \throws DatabaseFileNotFound, FileInUse; DatabaseDamaged or UnrecognizedFormat, the file untouched, when
///         the key table cannot be read; DiskFull and others, the file untouched, when the new file cannot be
///         written; what the check raises
RepairReport repairDatabase(const QString &path, const RepairPlan &plan, const FileProgress &progress = {});

/// Removes what a repair of \a path that was killed has left. Nobody else may be using the file.
void removeAbandonedRepair(const QString &path);

} // namespace obelmark
