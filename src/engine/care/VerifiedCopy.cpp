// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/VerifiedCopy.h"

#include "engine/care/ErrorMapping.h"
#include "engine/care/JournalFiles.h"
#include "engine/care/LockedFile.h"
#include "engine/care/WatchedWork.h"
#include "engine/language/EngineError.h"
#include "runtime/SafeFile.h"
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <SQLiteCpp/SQLiteCpp.h>
#include <cerrno>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 pieceSize = 1024 * 1024;

/// Pages kept in memory while a file is checked, in KiB: every row is looked up in every index.
constexpr char checkingCache[] = "pragma cache_size = -65536";

[[noreturn]] void raiseFileError(const QFile &file)
{
    throw EngineError(int(PathFileAccess), u"%1: %2"_s.arg(file.fileName(), file.errorString()));
}

[[noreturn]] void raiseNotWhole(const QString &path)
{
    throw EngineError(int(PathFileAccess), u"The copy '%1' is not like the original"_s.arg(path));
}

/// Some file systems know neither owner nor mode, and only root may give a file away: the contents count.
void takeOverPermissions(const QString &original, const QString &newPath)
{
    struct stat status;
    const QByteArray name = QFile::encodeName(newPath);
    if (::stat(QFile::encodeName(original).constData(), &status) != 0 ||
        ::chown(name.constData(), status.st_uid, status.st_gid) != 0 ||
        ::chmod(name.constData(), status.st_mode & 07777) != 0)
        errno = 0;
}

void copyBytes(LockedFile &original, const QString &newPath, const FileProgress &progress)
{
    QFile copy(newPath);
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        raiseFileError(copy);
    const qint64 size = original.size();
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (qint64 done = 0; done < size; done += piece.size()) {
        tell(progress, FileStage::Copying, done, size);
        piece.resize(std::min(pieceSize, size - done));
        original.read(done, {piece.data(), size_t(piece.size())});
        if (copy.write(piece) != piece.size())
            raiseFileError(copy);
    }
    copy.close();
    if (copy.error() != QFile::NoError)
        raiseFileError(copy);
}

/// \a size: that of the original, 0 when nobody knows it.
void compact(SQLite::Database &original, qint64 size, const QString &newPath, const FileProgress &progress)
{
    const auto look = [&] {
        tell(progress, FileStage::Compacting, std::min(QFileInfo(newPath).size(), size), size);
    };
    SQLite::Statement vacuum(original, "vacuum into ?1");
    vacuum.bind(1, newPath.toStdString());
    WatchedWork(original, look).run([&] { vacuum.exec(); });
}

/// Reads the copy back, from its medium where the system lets go of what it keeps in memory.
void compareBytes(LockedFile &original, const QString &newPath, const FileProgress &progress)
{
    QFile copy(newPath);
    if (!copy.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        raiseFileError(copy);
    ::posix_fadvise(copy.handle(), 0, 0, POSIX_FADV_DONTNEED);
    const qint64 size = original.size();
    if (copy.size() != size)
        raiseNotWhole(newPath);
    QByteArray piece(pieceSize, Qt::Uninitialized), copied(pieceSize, Qt::Uninitialized);
    for (qint64 done = 0; done < size; done += piece.size()) {
        tell(progress, FileStage::Checking, done, size);
        piece.resize(std::min(pieceSize, size - done));
        copied.resize(piece.size());
        original.read(done, {piece.data(), size_t(piece.size())});
        if (copy.read(copied.data(), copied.size()) != copied.size())
            raiseFileError(copy);
        if (copied != piece)
            raiseNotWhole(newPath);
    }
}

bool isWhole(SQLite::Database &database, const FileProgress &progress)
{
    database.exec(checkingCache);
    WatchedWork work(database, [&] { tell(progress, FileStage::Checking); });
    return work.run([&] { return database.execAndGet("pragma integrity_check(1)").getString() == "ok"; });
}

bool isWholeCopyOf(SQLite::Database &original, const QString &path, const FileProgress &progress)
{
    return withSqlErrors({SqlActivity::Kind::Opening, path, {}}, [&] {
        SQLite::Database copy(path.toStdString(), SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX);
        return isWhole(copy, progress) && rowCounts(copy) == rowCounts(original);
    });
}

/// A copy that is not whole is no wonder when the original is not.
void requireWhole(SQLite::Database &original, const FileProgress &progress)
{
    const QString path = QString::fromStdString(original.getFilename());
    withSqlErrors({SqlActivity::Kind::Reading, path, {}}, [&] {
        if (!isWhole(original, progress))
            throw EngineError(DatabaseDamaged, path);
    });
}

void makeVerified(SQLite::Database &original, const QString &newPath, const FileProgress &progress,
                  const std::function<void()> &make)
{
    const auto remove = [&] {
        QFile::remove(newPath);
        removeJournals(newPath);
    };
    remove();
    auto cleanUp = qScopeGuard(remove);
    try {
        withSqlErrors({SqlActivity::Kind::Writing, newPath, {}}, [&] {
            make();
            if (isWholeCopyOf(original, newPath, progress))
                return;
            requireWhole(original, progress);
            raiseNotWhole(newPath);
        });
    } catch (const EngineError &error) {
        if (error.number() == DatabaseDamaged)
            requireWhole(original, progress);
        throw;
    }
    removeJournals(newPath);
    cleanUp.dismiss();
}

} // namespace

void copyVerified(LockedFile &original, const QString &newPath, const FileProgress &progress)
{
    makeVerified(original.connection(), newPath, progress, [&] {
        copyBytes(original, newPath, progress);
        takeOverPermissions(original.path(), newPath);
        flushToDisk(newPath);
        compareBytes(original, newPath, progress);
    });
}

void compactVerified(LockedFile &original, const QString &newPath, const FileProgress &progress)
{
    makeVerified(original.connection(), newPath, progress, [&] {
        compact(original.connection(), original.size(), newPath, progress);
        takeOverPermissions(original.path(), newPath);
        flushToDisk(newPath);
    });
}

void compactVerified(SQLite::Database &original, const QString &newPath, mode_t mode,
                     const FileProgress &progress)
{
    makeVerified(original, newPath, progress, [&] {
        compact(original, 0, newPath, progress);
        ::chmod(QFile::encodeName(newPath).constData(), mode);
        flushToDisk(newPath);
    });
}

bool isWholeCopy(LockedFile &original, const QString &path, const FileProgress &progress)
{
    return isWholeCopyOf(original.connection(), path, progress);
}

} // namespace obelmark
