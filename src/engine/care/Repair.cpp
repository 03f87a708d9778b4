// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/Repair.h"

#include "engine/care/ErrorMapping.h"
#include "engine/care/FolderSteps.h"
#include "engine/care/FreeName.h"
#include "engine/care/JournalFiles.h"
#include "engine/care/RepairCopy.h"
#include "engine/care/SalvageFile.h"
#include "engine/language/EngineError.h"
#include "runtime/SafeFile.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <SQLiteCpp/Database.h>
#include <algorithm>
#include <optional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

const QString unfinished = u"repairing"_s;

/// Puts the new file in the place of the damaged one and returns the latter's new name. Where the file system
/// allows it, there is a file of the old name at every instant.
QString replaceDamaged(const QString &path, const QString &newPath)
{
    const QString folder = QFileInfo(path).path();
    const QString damagedPath = freeName(path, u"damaged"_s);
    FolderSteps steps;
    if (!steps.link(path, damagedPath))
        steps.rename(path, damagedPath);
    for (const QLatin1StringView companion : journalSuffixes) {
        if (QFileInfo::exists(path + companion))
            steps.rename(path + companion, damagedPath + companion);
    }
    flushToDisk(folder);
    steps.rename(newPath, path);
    steps.keep();
    flushToDisk(folder);
    return damagedPath;
}

/// A connection that keeps others out of the file while it lives; none to a file that nobody can open anyway.
std::optional<SQLite::Database> lockAgainstOthers(const QString &path)
{
    try {
        SQLite::Database connection(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        connection.exec("begin exclusive");
        return connection;
    } catch (const SQLite::Exception &error) {
        if (error.getErrorCode() == SQLITE_BUSY)
            throw EngineError(FileInUse, path);
        return {};
    }
}

} // namespace

RepairReport repairDatabase(const QString &path, const RepairPlan &plan, const FileProgress &progress)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    if (file.isEmpty())
        throw EngineError(DatabaseFileNotFound, path);
    if (QFileInfo(file).size() < fileHeaderSize)
        throw EngineError(UnrecognizedFormat, path);
    settleJournal(file);
    removeAbandonedRepair(file);
    const auto lock = lockAgainstOthers(file);
    SalvageFile damaged(file); // goes before the lock: closing a second descriptor unlocks the file
    const QString newPath = freeName(file, unfinished);
    const auto cleanUp = qScopeGuard([&] {
        QFile::remove(newPath);
        removeJournals(newPath);
    });

    RepairReport report;
    report.tables = withSqlErrors({SqlActivity::Kind::Writing, newPath, {}},
                                  [&] { return copyReadable(damaged, newPath, plan, progress); });
    if (plan.check)
        plan.check(newPath);
    QFile::setPermissions(newPath, QFile::permissions(file));
    flushToDisk(newPath);
    report.damagedFilePath = replaceDamaged(file, newPath);
    return report;
}

void removeAbandonedRepair(const QString &path)
{
    const QString left = nameBeside(path, unfinished);
    QFile::remove(left);
    removeJournals(left);
}

} // namespace obelmark
