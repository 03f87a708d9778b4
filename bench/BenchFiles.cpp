// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Work on the file as a whole: packing and backing up a million coins, against the same with the sqlite3
// shell.
#include "Collections.h"
#include "Comparison.h"
#include "EngineBenches.h"
#include "backup/Backup.h"
#include "backup/Packing.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <stdexcept>
#include <unistd.h>

namespace obelmark::bench {

using namespace Qt::StringLiterals;

namespace {

void runShell(const QString &path, const QString &sql, const QByteArray &answer)
{
    QProcess shell;
    shell.start(QStringLiteral(SQLITE3_SHELL), {path, sql});
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0 ||
        shell.readAllStandardOutput().trimmed() != answer)
        throw std::runtime_error("the sqlite3 shell failed: " + shell.readAllStandardError().toStdString());
}

void checkWithShell(const QString &path)
{
    runShell(path, u"pragma integrity_check"_s, "ok");
}

void flush(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || fsync(file.handle()) != 0)
        throw std::runtime_error("cannot flush " + path.toStdString());
}

/// As much as a progress box does before it is shown.
FileProgress clockWatcher()
{
    QElapsedTimer timer;
    timer.start();
    return [timer](FileStage, qint64, qint64) { return timer.elapsed() >= 0; };
}

/// A collection, and a folder beside it for what is made of it.
struct Work
{
    explicit Work(const QString &name) : path(scratchCopy(collection(million), name))
    {
        requireRealDisk();
        folder = QFileInfo(path).path() + u"/made"_s;
        QDir().mkpath(folder);
    }
    QString made() const { return folder + u"/coin.mdb"_s; }

    QString path;
    QString folder;
};

Sides preparePack()
{
    const auto work = std::make_shared<Work>(u"pack"_s);
    return {.ours = [=] { return milliseconds([&] { replaceByCompacted(work->path, clockWatcher()); }); },
            .other =
                [=] {
                    return milliseconds([&] {
                        runShell(work->path, u"vacuum into '%1'"_s.arg(work->made()), {});
                        checkWithShell(work->made());
                    });
                },
            .beforePair = [=] { QFile::remove(work->made()); }};
}

Sides prepareBackup()
{
    const auto work = std::make_shared<Work>(u"backup"_s);
    return {
        .ours =
            [=] { return milliseconds([&] { backUpDatabase(work->path, work->folder, clockWatcher()); }); },
        .other =
            [=] {
                const QString copy = work->folder + u"/plain.mdb"_s;
                QFile::remove(copy);
                return milliseconds([&] {
                    if (!QFile::copy(work->path, copy))
                        throw std::runtime_error("cannot copy to " + copy.toStdString());
                    flush(copy);
                    checkWithShell(copy);
                });
            }};
}

} // namespace

void addFileBenches()
{
    registerComparison({.name = "Pack, 1 million",
                        .prepare = preparePack,
                        .pairs = 3,
                        .target = {.ratio = 1.15},
                        .against = "shell"});
    registerComparison({.name = "Backup, 1 million",
                        .prepare = prepareBackup,
                        .pairs = 3,
                        .target = {.ratio = 1.2},
                        .against = "shell"});
}

} // namespace obelmark::bench
