// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/Database.h"
#include "engine/care/FolderSteps.h"
#include "engine/care/VerifiedCopy.h"
#include "engine/language/EngineError.h"
#include "engine/rows/DatabaseCore.h"
#include "runtime/SafeFile.h"
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

namespace obelmark {

using namespace Qt::StringLiterals;

std::unique_ptr<Database> Database::open(const QString &path, Access access,
                                         const QStringList &requiredTables, const FaultHook &faultHook,
                                         const FileProgress &progress, const FileVersions &versions)
{
    return std::unique_ptr<Database>(new Database(
        std::make_shared<DatabaseCore>(path, access, requiredTables, faultHook, progress, versions)));
}

Database::Database(std::shared_ptr<DatabaseCore> core) : d(std::move(core)) {}

Database::~Database()
{
    d->close();
}

void Database::standAside()
{
    d->standAside();
}

const QString &Database::path() const
{
    return d->path();
}

FileState Database::fileState() const
{
    return d->fileState();
}

void Database::requireInPlace() const
{
    d->requireInPlace();
}

bool Database::isAt(const QString &path) const
{
    return d->place() && d->place()->isAt(path);
}

void Database::saveAs(const QString &newPath, const FileProgress &progress)
{
    const QString unfinished = QFileInfo(newPath).path() + u"/.obelmark-saved.tmp"_s;
    d->connection().tryExec("rollback");
    compactVerified(d->connection(), unfinished, d->place()->mode(), progress);
    const auto cleanUp = qScopeGuard([&] { QFile::remove(unfinished); });
    publish(unfinished, newPath);
}

void Database::setFaultHook(const FaultHook &faultHook)
{
    d->setFaultHook(faultHook);
}

} // namespace obelmark
