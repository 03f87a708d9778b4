#pragma once

#include "engine/FileProgress.h"
#include <QList>
#include <QString>

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
        /// Rows that the readable indexes still name and that could not be saved. More may be gone.
        qint64 rowsLost = 0;
    };
    QList<Table> tables;
    /// Where the damaged file lies now, as it was.
    QString damagedFilePath;
};

/// Saves the readable rows of a damaged database, which must be closed, row by row into a new file, puts that
/// in its place and keeps the damaged file beside it under a name that was free ("coin-damaged.mdb"). The
/// tables, indexes and triggers are made anew; counters go on behind every number that is known to have been
/// given. \a keyTable is the table without which the file is not worth repairing.
///
/// A row is saved when its place in the file makes sense; a column of it that lies in a lost part of the file
/// becomes null. Tables of other tools that have no row ids come out empty, virtual tables are left out.
/// \a progress is told meanwhile (FileStage::Rescuing).
/// \throws DatabaseFileNotFound, FileInUse; DatabaseDamaged or UnrecognizedFormat, the file untouched, when
///         \a keyTable cannot be read; DiskFull and others, the file untouched, when the new file cannot be
///         written
RepairReport repairDatabase(const QString &path, const QString &keyTable, const FileProgress &progress = {});

} // namespace obelmark
