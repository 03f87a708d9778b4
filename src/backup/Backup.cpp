// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/Backup.h"

#include "common/TextHelpers.h"
#include "engine/care/FolderSteps.h"
#include "engine/care/JournalFiles.h"
#include "engine/care/LockedFile.h"
#include "engine/care/VerifiedCopy.h"
#include "runtime/NumberedError.h"
#include "runtime/SafeFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <filesystem>

namespace obelmark {

using namespace Qt::StringLiterals;

/// The same folder may be known by several paths: links, and mounts of a folder in a second place.
static bool areSameFolder(const QString &one, const QString &other)
{
    std::error_code error;
    return std::filesystem::equivalent(one.toStdString(), other.toStdString(), error);
}

void backUpDatabase(const QString &databasePath, const QString &folder, const FileProgress &progress)
{
    const QFileInfo database(databasePath);
    if (!QFileInfo(folder).isDir())
        throw runtimeError(PathNotFound);
    if (areSameFolder(database.absolutePath(), folder) ||
        areSameFolder(QFileInfo(database.canonicalFilePath()).path(), folder))
        throw runtimeError(PathFileAccess);

    const QString root = folder.endsWith(u'/') ? folder : folder + u'/';
    const QString target = pathInAnyCase(root, u"coin.mdb"_s);
    const QString unfinished = root + u".obelmark-backup.tmp"_s;
    LockedFile original(database.canonicalFilePath());
    copyVerified(original, unfinished, progress);

    auto cleanUp = qScopeGuard([&] { QFile::remove(unfinished); });
    // A journal that another program has left beside the earlier backup must not come to lie beside this one.
    settleJournal(target);
    removeJournals(target);
    FolderSteps steps;
    steps.rename(unfinished, target);
    steps.keep();
    cleanUp.dismiss();
    flushToDisk(folder);
}

QString backupFolder(const Drive &drive)
{
    return drive.isHome ? drive.root + u"/Obelmark Backup"_s : drive.root;
}

void backUpDatabase(const QString &databasePath, const Drive &drive, const FileProgress &progress)
{
    const QString folder = backupFolder(drive);
    const bool isNew = drive.isHome && QDir().mkdir(folder);
    // Stays when there is something in it.
    const auto removeEmpty = qScopeGuard([&] {
        if (isNew)
            QDir().rmdir(folder);
    });
    if (isNew)
        flushToDisk(drive.root);
    backUpDatabase(databasePath, folder, progress);
}

} // namespace obelmark
