// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FaultHook.h"
#include "engine/care/FilePlace.h"
#include "engine/care/FileProgress.h"
#include "engine/care/FileVersions.h"
#include "engine/rows/Dynaset.h"
#include "engine/rows/Snapshot.h"
#include <QString>
#include <QStringList>
#include <memory>

namespace obelmark {

/// An open database file: an ordinary SQLite file that other tools can open.
///
/// The declared type of a column tells its kind: smallint (16 bits), integer (32 bits), boolean, money (a
/// count of ten-thousandths), date (ISO text), varchar(n) and text. A text column X beside a column Xsort is
/// ordered by that companion, which holds the folded form of its text (foldText()); the engine writes both,
/// and fills the companions that other tools have left null when it opens the file.
class Database
{
public:
    enum class Access {
        Shared,
        /// Locks the file for as long as it is open: a second opener, here or elsewhere, gets FileInUse
        /// (3045).
        Exclusive,
    };

    /// \a requiredTables must be there, else the file is no database of ours (UnrecognizedFormat). A file
    /// opened exclusively is first brought to the newest of its \a versions.
    /// \a progress is told while companions are filled (FileStage::Ordering).
    /// \throws DatabaseFileNotFound, InvalidPath, FileInUse, DatabaseDamaged, UnrecognizedFormat,
    ///         PermissionDenied, NewerVersion, what bringUpToDate() throws
    static std::unique_ptr<Database> open(const QString &path, Access access,
                                          const QStringList &requiredTables, const FaultHook &faultHook = {},
                                          const FileProgress &progress = {},
                                          const FileVersions &versions = {});

    /// Lets everybody have the file, as if it were closed; only looking at its state and saveAs() are
    /// possible from then on. Every recordset still open on it answers ObjectClosed.
    void standAside();

    /// Closes the file; every recordset still open on it answers ObjectClosed from then on.
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    const QString &path() const;

    /// What has become of a file opened exclusively. Every write looks first, and fails with FileTakenAway
    /// when the file is not in place.
    FileState fileState() const;
    /// \throws FileTakenAway when it is not
    void requireInPlace() const;
    /// Whether \a path is the very file that is open.
    bool isAt(const QString &path) const;
    /// Writes all that has been committed, wherever the open file is now, to a new file, which is flushed and
    /// checked. What has not been committed is undone. \throws PathFileAccess (also when there is a file of
    /// that name), DiskFull and others; there is no new file then
    void saveAs(const QString &newPath, const FileProgress &progress);

    /// \throws UnknownTable, UnknownColumn, SyntaxError
    std::unique_ptr<Dynaset> openDynaset(const QString &sql);
    /// \throws UnknownTable, UnknownColumn, AmbiguousColumn, SyntaxError
    std::unique_ptr<Snapshot> openSnapshot(const QString &sql);
    std::unique_ptr<ForwardOnly> openForwardOnly(const QString &sql);

    void setFaultHook(const FaultHook &faultHook);

private:
    friend class Transaction;
    explicit Database(std::shared_ptr<DatabaseCore> core);
    std::shared_ptr<DatabaseCore> d;
};

} // namespace obelmark
