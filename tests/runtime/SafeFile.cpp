// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/SafeFile.h"

#include "Regions.h"
#include "support/FileFaults.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace obelmark;

static QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(unreadable)";
}

static void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

static QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

static mode_t modeOf(const QString &path)
{
    struct stat status
    {
    };
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// Runs the step and checks the number and the whole description of the error it raises.
template<class Step>
static void verifyError(Step step, int number, const QString &description)
{
    try {
        step();
    } catch (const NumberedError &error) {
        QCOMPARE(error.number(), number);
        QCOMPARE(error.description(), description);
        return;
    }
    QFAIL("nothing was raised");
}

class SafeFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/%2CCoins %1 XXXXXX"_s);
        QVERIFY(m_folder->isValid());
        m_path = m_folder->filePath(u"report \u00E4\u65E5.txt"_s);
    }

    void targetIsWholeAtEveryMoment()
    {
        put(m_path, "old");
        const QByteArray large(1'000'000, 'x');
        {
            SafeFile file(m_path);
            file.write("a");
            file.write(large);
            file.write("z");
            QCOMPARE(contents(m_path), "old");
            file.commit();
        }
        QCOMPARE(contents(m_path), "a" + large + "z");
        QCOMPARE(entries(m_folder->path()), QStringList{QFileInfo(m_path).fileName()});
    }

    void notCommittedLeavesNothing()
    {
        {
            SafeFile(m_path).write("lost");
        }
        QCOMPARE(entries(m_folder->path()), QStringList());
        put(m_path, "old");
        {
            SafeFile(m_path).write("lost");
        }
        QCOMPARE(contents(m_path), "old");
        QCOMPARE(entries(m_folder->path()).size(), 1);
    }

    void emptyFileAndRelativePath()
    {
        const QString before = QDir::currentPath();
        const auto back = qScopeGuard([&] { QDir::setCurrent(before); });
        QVERIFY(QDir::setCurrent(m_folder->path()));
        const QString longName(250, u'n');
        SafeFile(longName).commit();
        QCOMPARE(contents(longName), "");
        QCOMPARE(entries(u"."_s), QStringList{longName});
    }

    void permissions()
    {
        const mode_t mask = ::umask(027);
        SafeFile fresh(m_path);
        fresh.commit();
        ::umask(mask);
        QCOMPARE(modeOf(m_path), mode_t(0640));

        for (const mode_t mode : {0600, 0664, 0755}) {
            QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), mode), 0);
            SafeFile file(m_path);
            file.write("new");
            file.commit();
            QCOMPARE(modeOf(m_path), mode);
        }
    }

    void linksAreFollowed()
    {
        const QString elsewhere = m_folder->filePath(u"elsewhere"_s);
        QVERIFY(QDir().mkdir(elsewhere));
        QVERIFY(QFile::link(u"elsewhere/second"_s, m_path));
        QVERIFY(QFile::link(elsewhere + u"/target"_s, elsewhere + u"/second"_s));
        for (const QByteArray bytes : {"made", "replaced"}) { // the link leads nowhere at first
            SafeFile file(m_path);
            file.write(bytes);
            file.commit();
            QCOMPARE(contents(elsewhere + u"/target"_s), bytes);
            QCOMPARE(QFile::symLinkTarget(m_path), elsewhere + u"/second"_s);
            QCOMPARE(entries(elsewhere), (QStringList{u"second"_s, u"target"_s}));
        }
        const QString loop = m_folder->filePath(u"loop"_s);
        QVERIFY(QFile::link(loop, loop));
        QCOMPARE(errorNumber([&] { SafeFile file(loop); }), int(PathFileAccess));
    }

    void refusedPlaces()
    {
        const QString nowhere = m_folder->filePath(u"no/such.txt"_s);
        verifyError([&] { SafeFile file(nowhere); }, PathNotFound, u"Path not found: '%1'"_s.arg(nowhere));
        verifyError([&] { flushToDisk(nowhere); }, PathNotFound, u"Path not found: '%1'"_s.arg(nowhere));
        put(m_path, "old");
        const QString below = m_path + u"/below"_s;
        verifyError([&] { SafeFile file(below); }, PathNotFound, u"Path not found: '%1'"_s.arg(below));
        verifyError([&] { SafeFile file(m_folder->path()); }, PathFileAccess,
                    u"Path/File access error: '%1' (Is a directory)"_s.arg(m_folder->path()));
        QCOMPARE(errorNumber([] { SafeFile file(u"/dev/null"_s); }), int(PathFileAccess));
        QVERIFY(QFile::exists(u"/dev/null"_s));
    }

    void withoutPermission()
    {
        put(m_path, "old");
        const QByteArray folder = QFile::encodeName(m_folder->path());
        QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), 0444), 0);
        QCOMPARE(::chmod(folder.constData(), 0555), 0);
        // Root may do everything: look at it as somebody else.
        const bool root = ::geteuid() == 0;
        QVERIFY(!root || ::seteuid(65534) == 0);
        const auto back = qScopeGuard([&] {
            QVERIFY(!root || ::seteuid(0) == 0);
            ::chmod(folder.constData(), 0755);
        });
        for (const QString &path : {m_path, m_folder->filePath(u"new.txt"_s)})
            verifyError([&] { SafeFile file(path); }, PermissionDenied,
                        u"Permission denied: '%1'"_s.arg(path));
    }

    /// Whatever change to the disk fails, the file is the old one or the new one, and nothing lies beside it.
    void failingWriteLeavesTheOldFile()
    {
        const QString description = u"Disk full: '%1'"_s.arg(m_path);
        put(m_path, "old");
        QVERIFY(runWithFault(Fault::FailsOnce, 1, [&] {
            SafeFile file(m_path);
            verifyError([&] { file.write(QByteArray(400'000, 'x')); }, DiskFull, description);
            // It cannot be put in place half written, not even when there is room again.
            verifyError([&] { file.commit(); }, DiskFull, description);
        }));
        QCOMPARE(contents(m_path), "old");
        QCOMPARE(entries(m_folder->path()).size(), 1);

        const QByteArray fresh(40'000, 'x'); // collected until it is committed
        int change = 1;
        for (bool came = true; came; ++change) {
            put(m_path, "old");
            bool failed = false;
            came = runWithFault(Fault::FailsOnce, change, [&] {
                failed = errorNumber([&] {
                    SafeFile file(m_path);
                    file.write(fresh);
                    file.commit();
                });
            });
            QCOMPARE(failed, came);
            QVERIFY(contents(m_path) == fresh || (failed && contents(m_path) == "old"));
            QCOMPARE(entries(m_folder->path()).size(), 1);
        }
        QVERIFY(change > 4); // writing, flushing, renaming, flushing the folder
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

QTEST_GUILESS_MAIN(SafeFileTest)
#include "SafeFile.moc"
