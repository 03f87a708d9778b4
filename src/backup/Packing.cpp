// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/Packing.h"

#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "common/TextHelpers.h"
#include "desktop/Desktop.h"
#include "engine/care/FileVersions.h"
#include "engine/care/FolderSteps.h"
#include "engine/care/JournalFiles.h"
#include "engine/care/LockedFile.h"
#include "engine/care/VerifiedCopy.h"
#include "engine/language/EngineError.h"
#include "runtime/SafeFile.h"
#include "store/ErrorHandling.h"
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t title[] = u"Compact Database";

struct PackFiles
{
    explicit PackFiles(const QString &databasePath)
        : database(QFileInfo::exists(databasePath) ? QFileInfo(databasePath).canonicalFilePath()
                                                   : databasePath),
          folder(QFileInfo(database).path() + u'/'), unfinished(folder + u".obelmark-pack.tmp"_s),
          packed(pathInAnyCase(folder, u"Coinnew.mdb"_s)), previous(pathInAnyCase(folder, u"Coindb.bak"_s))
    {
    }

    QString database;   ///< the live database
    QString folder;     ///< where all of them lie, with a trailing "/"
    QString unfinished; ///< the compacted copy before it is complete
    QString packed;     ///< the complete compacted copy
    QString previous;   ///< the database as it was before
};

void removeIfThere(const QString &path)
{
    removeJournals(path);
    QFile file(path);
    if (!file.remove() && file.exists())
        throw EngineError(int(PathFileAccess), u"%1: %2"_s.arg(path, file.errorString()));
}

bool hasJournal(const QString &path)
{
    return std::ranges::any_of(journalSuffixes,
                               [&](QLatin1StringView suffix) { return QFileInfo::exists(path + suffix); });
}

bool finishPacking(SharedState &shared, const PackFiles &files)
{
    try {
        if (!QFileInfo::exists(files.packed) || hasJournal(files.packed) || hasJournal(files.database))
            return false;
        LockedFile previous(files.previous);
        if (!isWholeCopy(previous, files.packed,
                         shownProgress(shared.desktop, QString::fromUtf16(title), false)))
            return false;
        FolderSteps steps;
        steps.rename(files.packed, files.database);
        flushToDisk(files.folder);
        steps.keep();
        return true;
    } catch (const NumberedError &) {
        return false; // the database is still missing, and that is told
    }
}

} // namespace

void replaceByCompacted(const QString &databasePath, const FileProgress &progress)
{
    const PackFiles files(databasePath);
    // Locked until the end: nobody writes into a file that is being renamed.
    LockedFile database(files.database);
    removeIfThere(files.packed);
    const auto cleanUp = qScopeGuard([&] {
        QFile::remove(files.unfinished);
        // The one copy of the collection under a name of its own, should it be the only one.
        if (QFileInfo::exists(files.database))
            QFile::remove(files.packed);
    });
    compactVerified(database, files.unfinished, progress);
    FolderSteps publishing;
    publishing.rename(files.unfinished, files.packed);
    publishing.keep();
    flushToDisk(files.folder);

    // A journal of the earlier file would be taken for one of the file that now gets its name.
    settleJournal(files.previous);
    removeJournals(files.previous);
    FolderSteps steps;
    steps.rename(files.database, files.previous);
    steps.rename(files.packed, files.database);
    flushToDisk(files.folder);
    steps.keep();
    removeSetAside(files.database);
}

void packDatabase(SharedState &shared)
{
    const PackFiles files(shared.DatabasePath);
    try {
        replaceByCompacted(files.database, shownProgress(shared.desktop, QString::fromUtf16(title)));
    } catch (const FileWorkStopped &) {
    } catch (const NumberedError &error) {
        if (error.number() == DatabaseDamaged) {
            if (offerRepair(shared, u"The database could not be compacted"_s, QString::fromUtf16(title)))
                packDatabase(shared);
            return;
        }
        const QString state = QFileInfo::exists(files.database)
                                  ? u"The database is as it was."_s
                                  : u"The database is now in the file '%1'."_s.arg(files.previous);
        shared.desktop.showMessage(u"The database could not be compacted.  %1\n\n%2  %3"_s.arg(
                                       state, QString::number(error.number()), error.description()),
                                   QString::fromUtf16(title));
    }
}

void recoverDatabase(SharedState &shared)
{
    const PackFiles files(shared.DatabasePath);
    if (QFileInfo::exists(files.database) || !QFileInfo::exists(files.previous))
        return;
    if (finishPacking(shared, files)) {
        shared.desktop.showMessage(
            u"Compacting the database was interrupted, and has now been completed.  The database as it was "
            "before is in the file '%1'."_s.arg(files.previous),
            QString::fromUtf16(title));
        return;
    }
    shared.desktop.showMessage(
        u"The database file is missing, but the database as it was before it was last compacted is in the "
        "file '%1'.  To go on with that one, make a copy of it with the name '%2'."_s.arg(files.previous,
                                                                                          files.database));
}

} // namespace obelmark
