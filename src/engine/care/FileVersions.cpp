// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/FileVersions.h"

#include "engine/care/Companions.h"
#include "engine/care/ErrorMapping.h"
#include "engine/care/FolderSteps.h"
#include "engine/care/FreeName.h"
#include "engine/care/VerifiedCopy.h"
#include "engine/care/WatchedWork.h"
#include "engine/language/EngineError.h"
#include "engine/language/Schema.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A version beyond this is a damaged header, not the work of a later program.
constexpr qint32 mostVersion = 999;

qint32 versionOf(SQLite::Database &connection)
{
    const qint32 version = connection.execAndGet("pragma user_version").getInt();
    return version < 1 || version > mostVersion ? 1 : version;
}

void setPragma(SQLite::Database &connection, const char *name, qint32 value)
{
    connection.exec("pragma " + std::string(name) + " = " + std::to_string(value));
}

bool haveSameBytes(const QString &path, const QString &otherPath)
{
    QFile file(path), other(otherPath);
    if (!file.open(QIODevice::ReadOnly) || !other.open(QIODevice::ReadOnly) || file.size() != other.size())
        return false;
    constexpr qint64 pieceSize = 1024 * 1024;
    while (!file.atEnd()) {
        if (file.read(pieceSize) != other.read(pieceSize))
            return false;
    }
    return true;
}

QString roleOf(qint32 version)
{
    return u"version-%1"_s.arg(version);
}

/// Writes what is in the file to a free name beside it, unless a run that was cut off has done so already.
void setAside(SQLite::Database &connection, const QString &path, mode_t mode, qint32 version,
              const FileProgress &progress)
{
    const QFileInfo file(path);
    const QString unfinished = file.dir().filePath(u".obelmark-version.tmp"_s);
    compactVerified(connection, unfinished, mode, progress);
    const auto cleanUp = qScopeGuard([&] { QFile::remove(unfinished); });
    const QString earlier = nameBeside(path, roleOf(version));
    if (!haveSameBytes(unfinished, earlier))
        publish(unfinished, freeName(path, roleOf(version)));
}

void migrate(SQLite::Database &connection, qint32 version, const FileVersions &versions)
{
    SQLite::Transaction transaction(connection);
    bool foldsAnew = false;
    for (const Migration &migration : versions.migrations.sliced(version - 1)) {
        connection.exec(migration.script.toStdString());
        foldsAnew = foldsAnew || migration.foldsAnew;
    }
    if (foldsAnew)
        refillCompanions(connection, Schema(connection));
    setPragma(connection, "user_version", versions.newest());
    setPragma(connection, "application_id", versions.applicationId);
    transaction.commit();
}

} // namespace

void requireKnownVersion(SQLite::Database &connection, const FileVersions &versions)
{
    if (versionOf(connection) > versions.newest())
        throw EngineError(NewerVersion, QString::fromStdString(connection.getFilename()));
}

void bringUpToDate(SQLite::Database &connection, const QString &path, mode_t mode,
                   const FileVersions &versions, const FileProgress &progress)
{
    const qint32 version = versionOf(connection);
    const qint32 mark = connection.execAndGet("pragma application_id").getInt();
    if (version == versions.newest() && mark == versions.applicationId)
        return;
    try {
        if (version < versions.newest() && versions.setsAside)
            setAside(connection, path, mode, version, progress);
        withSqlErrors({SqlActivity::Kind::Writing, path, {}}, [&] {
            WatchedWork(connection, [&] { tell(progress, FileStage::Ordering); }).run([&] {
                migrate(connection, version, versions);
            });
        });
    } catch (const EngineError &error) {
        if (error.number() == DatabaseDamaged)
            throw;
        throw EngineError(error.number(),
                          u"'%1' is a collection of an earlier version and has to be brought up to date, "
                          "which could not be done.  It is as it was.  %2"_s.arg(path, error.description()));
    }
}

void removeSetAside(const QString &path)
{
    const QFileInfo file(path);
    const QRegularExpression isOne(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(file.completeBaseName()) + u"-version-\\d+(-\\d+)?"_s));
    for (const QFileInfo &other : file.dir().entryInfoList(QDir::Files)) {
        if (other.suffix() == file.suffix() && isOne.match(other.completeBaseName()).hasMatch())
            QFile::remove(other.filePath());
    }
}

} // namespace obelmark
