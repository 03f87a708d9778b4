// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/ErrorHandling.h"

#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "desktop/Desktop.h"
#include "engine/care/Repair.h"
#include "engine/language/EngineError.h"
#include "store/CoinFile.h"
#include "store/LostFile.h"

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int fileDialogCancelled = 32755;
constexpr int recordLockedByPage = 3168;
constexpr int retriesBeforeQuestion = 100;

void retryLockedRow(SharedState &shared)
{
    shared.LockRetryAgain = true;
    ++shared.LockRetryCount;
    if (shared.LockRetryCount < retriesBeforeQuestion)
        return;
    const auto answer = shared.desktop.askYesNo(
        u"Could not update locked record.  Do you wish to try again?"_s, u"Locked Record"_s);
    if (answer == Desktop::Answer::No)
        endProgram(shared);
    shared.LockRetryCount = 1;
}

void reportAndEnd(SharedState &shared, const QString &text)
{
    shared.desktop.showMessage(text);
    endProgram(shared);
}

QString repairText(const RepairReport &report)
{
    QString saved;
    for (const RepairReport::Table &table : report.tables) {
        saved += u"\n%1: %2"_s.arg(table.name, QString::number(table.rowsSaved));
        if (table.rowsIncomplete > 0)
            saved += u", %1 of them in part"_s.arg(table.rowsIncomplete);
        if (table.rowsRenumbered > 0)
            saved += u", %1 of them under a new number"_s.arg(table.rowsRenumbered);
        if (table.rowsLost > 0)
            saved += u"; at least %1 lost"_s.arg(table.rowsLost);
        else if (table.isLost)
            saved += u"; what was in it is lost"_s;
    }
    return u"The database file was damaged and has been repaired.  The damaged file was kept as '%1'.\n\n"
           "Records saved in each table:%2"_s.arg(report.damagedFilePath, saved);
}

RepairReport repairFile(SharedState &shared)
{
    const FileProgress progress = shownProgress(shared.desktop, u"Repair"_s, false);
    return repairCoinFile(shared.DatabasePath, progress);
}

void repairCoinDatabase(SharedState &shared)
{
    const bool recordsetWasOpen = shared.CoinRecordset != nullptr;
    shared.CoinRecordset.reset();
    shared.CoinDatabase.reset();
    try {
        const RepairReport report = repairFile(shared);
        reopenCoinDatabase(shared, recordsetWasOpen);
        shared.desktop.showMessage(repairText(report));
    } catch (const NumberedError &failure) {
        reportAndEnd(shared, numberAndText(failure));
    }
}

/// Whether an error may come from what has been done to the file from outside.
bool isAboutFile(const NumberedError &error)
{
    return error.number() == FileTakenAway || error.number() == DatabaseDamaged ||
           error.number() == int(PermissionDenied) || error.number() == int(PathFileAccess);
}

} // namespace

QString numberAndText(const NumberedError &error)
{
    return u"%1  %2"_s.arg(QString::number(error.number()), error.description());
}

void endProgram(SharedState &shared)
{
    shared.CoinRecordset.reset();
    shared.CoinDatabase.reset();
    shared.desktop.endProgram();
    Q_UNREACHABLE(); // the compiler forgets over the virtual call that it does not return
}

void DbErrorHandler(SharedState &shared, const NumberedError &error)
{
    switch (error.number()) {
    case recordLockedByPage:
    case RecordLocked:
        retryLockedRow(shared);
        return;
    case FileInUse:
        return;
    case ObjectNotSet:
        reportAndEnd(shared, u"There was an error accessing the database file.  Aborting..."_s);
        return;
    case ObjectClosed:
        reportAndEnd(shared,
                     u"An error has occurred.  You may have forgotten to close a window before packing or "
                     "backing up the program's database.  Please rerun the program."_s);
        return;
    case FileTakenAway: // and back again by now, or attempt() would have asked
        shared.LockRetryAgain = true;
        return;
    case DatabaseDamaged:
        repairCoinDatabase(shared);
        return;
    case fileDialogCancelled:
        shared.FindCancelled = true;
        return;
    default:
        reportAndEnd(shared, numberAndText(error));
    }
}

bool attempt(SharedState &shared, const std::function<void()> &statement)
{
    try {
        statement();
        return true;
    } catch (const NumberedError &error) {
        const bool wasOpen = shared.CoinDatabase != nullptr;
        if (wasOpen && isAboutFile(error) && shared.CoinDatabase->fileState() != FileState::InPlace) {
            meetLostFile(shared);
            throw DatabaseRepaired();
        }
        DbErrorHandler(shared, error);
        if (error.number() == DatabaseDamaged && wasOpen)
            throw DatabaseRepaired();
        return false;
    }
}

bool offerRepair(SharedState &shared, const QString &undone, const QString &title)
{
    const auto answer = shared.desktop.askYesNo(
        u"%1, because it is damaged.\n\nDo you wish to repair it now?  What can be read is saved in a new "
        "file, and the damaged file is kept."_s.arg(undone),
        title);
    if (answer == Desktop::Answer::No)
        return false;
    try {
        shared.desktop.showMessage(repairText(repairFile(shared)));
        return true;
    } catch (const NumberedError &failure) {
        shared.desktop.showMessage(numberAndText(failure), title);
        return false;
    }
}

bool writeWithRetry(SharedState &shared, const std::function<void()> &write)
{
    shared.LockRetryCount = 0;
    shared.LockRetryAgain = true;
    bool written = false;
    while (shared.LockRetryAgain) {
        shared.LockRetryAgain = false;
        written = attempt(shared, write);
    }
    // What has been written a moment after the file was taken away is in no file either.
    if (written && shared.CoinDatabase)
        attempt(shared, [&] { shared.CoinDatabase->requireInPlace(); });
    return written;
}

} // namespace obelmark
