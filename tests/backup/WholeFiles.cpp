// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/Backup.h"
#include "backup/Packing.h"
#include "common/SharedState.h"
#include "engine/language/EngineError.h"
#include "support/Cases.h"
#include "support/FileFaults.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"

using namespace obelmark;

namespace {

const QString someCoins =
    u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 300) insert into Coin (descr, "
    "notes) select 'coin ' || i, hex(zeroblob(i)) from n; delete from Coin where coinid % 3 = 0"_s;
const QString allRows = u"select * from Coin order by coinid"_s;
const QString title = u"Compact Database"_s;

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void setContent(const QString &name, const QByteArray &content, qint64 at = 0)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(content) == content.size());
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// The program without its main window, and a drive.
struct Collection : TestCollection
{
    Collection() : shared(desktop, RegionalSettings(QLocale(u"en_US"_s)))
    {
        exec(someCoins);
        shared.DatabasePath = databasePath();
    }
    /// The number of the error, 0 for none.
    int failureOfBackup(
        const QString &folder, const FileProgress &progress = [](auto...) { return true; }) const
    {
        try {
            backUpDatabase(databasePath(), folder, progress);
            return 0;
        } catch (const NumberedError &error) {
            return error.number();
        }
    }

    ScriptedDesktop desktop;
    SharedState shared;
    QTemporaryDir driveFolder;
    const QString drive = driveFolder.path();
    const QString copy = drive + u"/coin.mdb"_s;
};

} // namespace

class WholeFiles : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (QFileInfo(u"/dev/shm"_s).isWritable())
            qputenv("TMPDIR", "/dev/shm"); // memory: there is nothing to wait for
    }

    void backupReplacesEarlierOne()
    {
        const Collection c;
        QCOMPARE(c.failureOfBackup(c.drive), 0);
        c.exec(u"insert into Coin (descr) values ('Beta')"_s);
        setContent(c.copy + u"-journal"_s, "another program's");
        QCOMPARE(c.failureOfBackup(c.drive), 0);
        QCOMPARE(contentOf(c.copy), contentOf(c.databasePath()));
        QCOMPARE(filesIn(c.drive), QStringList(u"coin.mdb"_s));
    }

    void backupRefused()
    {
        Collection c;
        const QByteArray content = contentOf(c.databasePath());
        QVERIFY(QFile::link(c.folder(), c.drive + u"/link"_s));
        QCOMPARE(c.failureOfBackup(c.folder()), int(PathFileAccess));
        QCOMPARE(c.failureOfBackup(c.drive + u"/link"_s), int(PathFileAccess));
        QCOMPARE(c.failureOfBackup(c.drive + u"/missing"_s), int(PathNotFound));
        QCOMPARE(contentOf(c.databasePath()), content);
        // A damaged database does not take the place of a whole backup.
        QCOMPARE(c.failureOfBackup(c.drive), 0);
        setContent(c.databasePath(), QByteArray(4096, 'x'), 3 * 4096);
        QCOMPARE(c.failureOfBackup(c.drive), int(DatabaseDamaged));
        QCOMPARE(contentOf(c.copy), content);
        c.desktop.answerYesNo(
            u"The database could not be compacted, because it is damaged.\n\nDo you wish to "
            "repair it now?  What can be read is saved in a new file, and the damaged file is "
            "kept."_s,
            title, Desktop::Answer::No);
        packDatabase(c.shared);
        QCOMPARE(c.desktop.problems(), QStringList());
        QCOMPARE(filesIn(c.folder()), QStringList(u"coin.mdb"_s));
    }

    // A medium that gives back other bytes than it was given, within a text, where the database's own check
    // sees nothing wrong.
    void backupIsComparedWithTheMedium()
    {
        const Collection c;
        const auto spoil = [&](FileStage stage, qint64 done, qint64) {
            if (stage == FileStage::Checking && done == 0)
                setContent(c.drive + u'/' + filesIn(c.drive).first(), "C",
                           contentOf(c.databasePath()).indexOf("coin 299"));
            return true;
        };
        QCOMPARE(c.failureOfBackup(c.drive, spoil), int(PathFileAccess));
        QCOMPARE(filesIn(c.drive), QStringList());
    }

    // Whatever step goes wrong, there is a whole backup: the earlier one or the new one.
    void backupIsAlwaysWhole()
    {
        for (const Fault fault : {Fault::Killed, Fault::FailsOnce, Fault::FailsFromThenOn}) {
            const Collection c;
            const QByteArray earlier = contentOf(c.databasePath());
            c.exec(u"insert into Coin (descr) values ('Beta')"_s);
            const QByteArray content = contentOf(c.databasePath());
            int change = 1;
            for (bool came = true; came; ++change) {
                QFile::remove(c.copy);
                setContent(c.copy, earlier);
                int failure = 0;
                came = runWithFault(fault, change, [&] { failure = c.failureOfBackup(c.drive); });
                QVERIFY(contentOf(c.copy) == content || (came && contentOf(c.copy) == earlier));
                QVERIFY(failure == 0 || came);
                QCOMPARE(contentOf(c.databasePath()), content);
            }
            QVERIFY2(change > 5, qPrintable(QString::number(change)));
            QCOMPARE(filesIn(c.drive), QStringList(u"coin.mdb"_s));
        }
    }

    void packs()
    {
        Collection c;
        const QStringList rows = c.query(allRows);
        QVERIFY(QFile::rename(u"coin.mdb"_s, u"COIN.MDB"_s));
        c.shared.DatabasePath = c.folder() + u"COIN.MDB"_s;
        const auto mode = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(u"COIN.MDB"_s, mode));
        const QByteArray before = contentOf(u"COIN.MDB"_s);
        // What an earlier packing and other programs have left.
        for (const auto *name : {u"Coinnew.mdb", u"COINDB.BAK", u"COINDB.BAK-journal", u"Coinnew.mdb-wal"})
            setContent(QString::fromUtf16(name), "old");
        packDatabase(c.shared);
        QCOMPARE(c.desktop.problems(), QStringList());
        QCOMPARE(filesIn(c.folder()), QStringList({u"COIN.MDB"_s, u"COINDB.BAK"_s}));
        QCOMPARE(contentOf(u"COINDB.BAK"_s), before);
        const QByteArray packed = contentOf(u"COIN.MDB"_s);
        QVERIFY(packed.size() < before.size());
        const QFile::Permissions ofTheUser(0x0700); // follow from the others
        QCOMPARE(QFile::permissions(u"COIN.MDB"_s) & ~ofTheUser, mode);
        packDatabase(c.shared);
        QCOMPARE(contentOf(u"COINDB.BAK"_s), packed);

        QVERIFY(QFile::rename(u"COIN.MDB"_s, u"coin.mdb"_s));
        QCOMPARE(c.query(allRows), rows);
        c.exec(u"insert into Coin (descr) values ('next')"_s);
        QCOMPARE(c.query(u"select max(coinid) from Coin"_s), QStringList(u"301"_s)); // 300 was deleted
    }

    void packingStopped_data() { cases::add(); }
    void packingStopped()
    {
        const auto [name, folder, message] = cases::row<3>();
        Collection c;
        if (message.isEmpty()) {
            c.exec(u"insert into Coin (descr) select a.descr from Coin a, Coin b"_s);
            c.desktop.cancelProgressAt(1);
        } else {
            c.desktop.expectMessage(
                u"The database could not be compacted.  The database is as it was.\n\n"_s +
                    message.arg(c.folder()),
                title);
        }
        if (folder.isEmpty())
            c.shared.CoinDatabase = Database::open(c.databasePath(), Database::Access::Exclusive, {});
        else
            QVERIFY(QDir().mkpath(folder + u"/full"_s));
        const QByteArray before = contentOf(c.databasePath());
        const QStringList files = filesIn(c.folder());
        packDatabase(c.shared);
        QCOMPARE(c.desktop.problems(), QStringList());
        QCOMPARE(filesIn(c.folder()), files);
        c.shared.CoinDatabase.reset();
        QCOMPARE(contentOf(c.databasePath()), before);
    }

    // Whatever step goes wrong, every coin is in coin.mdb, at the latest after the next start.
    void packingLosesNothing()
    {
        for (const Fault fault : {Fault::Killed, Fault::FailsOnce, Fault::FailsFromThenOn}) {
            Collection c;
            const QStringList rows = c.query(allRows);
            int recoveries = 0;
            int change = 1;
            for (bool came = true; came; ++change) {
                c.desktop.reset();
                came = runWithFault(fault, change, [&] { packDatabase(c.shared); });
                const bool isThere = QFile::exists(u"coin.mdb"_s);
                const bool toldThatItIs =
                    c.desktop.calls().value(0).text.contains(u"The database is as it was."_s);
                QVERIFY(c.desktop.calls().isEmpty() ? isThere || fault == Fault::Killed
                                                    : toldThatItIs == isThere);
                if (!isThere) {
                    ++recoveries;
                    recoverDatabase(c.shared);
                    QVERIFY(c.desktop.calls().last().text.contains(u"has now been completed."_s));
                }
                QCOMPARE(c.query(u"pragma integrity_check"_s), QStringList(u"ok"_s));
                QCOMPARE(c.query(allRows), rows);
            }
            QVERIFY2(change > 20, qPrintable(QString::number(change)));
            QCOMPARE(recoveries > 0, fault != Fault::FailsOnce);
            QCOMPARE(filesIn(c.folder()), QStringList({u"coin.mdb"_s, u"Coindb.bak"_s}));
        }
    }

    // Only a complete copy takes the place of a missing database.
    void missingDatabase_data() { cases::add(); }
    void missingDatabase()
    {
        const auto [name, old, packed] = cases::row<3>();
        Collection c;
        QMap<QString, QByteArray> contents{{u"whole"_s, contentOf(c.databasePath())}};
        contents[u"half"_s] = contents[u"whole"_s].first(contents[u"whole"_s].size() / 2);
        c.exec(u"delete from Coin where coinid = 7"_s);
        contents[u"fewer"_s] = contentOf(c.databasePath());
        QVERIFY(QFile::remove(u"coin.mdb"_s));
        if (!old.isEmpty())
            setContent(u"Coindb.bak"_s, contents[old]);
        if (!packed.isEmpty())
            setContent(u"Coinnew.mdb"_s, contents[packed]);
        const QStringList files = filesIn(c.folder());
        recoverDatabase(c.shared);
        QCOMPARE(c.desktop.calls().size(), old.isEmpty() ? 0 : 1); // where the old one is
        QCOMPARE(filesIn(c.folder()), files);
        QCOMPARE(contentOf(u"Coindb.bak"_s), contents[old]);
    }
};

QTEST_GUILESS_MAIN(WholeFiles)
#include "WholeFiles.moc"
