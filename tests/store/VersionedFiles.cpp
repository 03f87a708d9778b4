// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/Packing.h"
#include "engine/care/FileVersions.h"
#include "engine/language/EngineError.h"
#include "store/CoinFile.h"
#include "support/TestCollection.h"
#include "support/UnsyncedVfs.h"
#include <QtTest>
#include <random>

using namespace obelmark;

namespace {

const QString marks = u"select application_id || ' ' || user_version from pragma_application_id, "
                      "pragma_user_version"_s;
const QString currentMarks = u"1331848556 2"_s;
/// Columns that a migration must leave alone.
const QString contents = u"select coinid, descr, catnum, catsort, notes, pricepaid from Coin"_s;
const QString setAside = u"coin-version-1.mdb"_s;

/// A collection as the first version wrote it: unmarked, "ø" ordered behind "z".
class FirstVersion : public TestCollection
{
public:
    FirstVersion()
    {
        exec(
            u"insert into Coin (descr, descrsort, catnum, catnumsort, catsort, notes, pricepaid) values "
            "('Ørsted', 'ørsted', '12', '12', '       12', 'x', 25055), ('Zloty', 'zloty', 'Ł1', 'ł1', '1', "
            "'', 1), "
            "('Ostrava', 'ostrava', null, null, null, hex(randomblob(8000)), null), (null, null, null, null, null, '', 0)"_s);
        exec(u"update country set coudescsort = 'norge ø', coudesc = 'Norge Ø' where couid = 1"_s);
        exec(u"update country set coudescsort = 'norge ø' where couid = 1"_s);
        exec(u"pragma user_version = 0; pragma application_id = 0"_s);
        before = query(contents);
    }

    QStringList files() const { return QDir(folder()).entryList(QDir::Files); }
    QByteArray bytes(const QString &file = u"coin.mdb"_s) const
    {
        QFile read(folder() + file);
        return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
    }
    /// What is wrong with the file as one of the newest version; with any other, whether it is as it was.
    bool isNewest() const
    {
        const QStringList sorted = query(u"select descr from Coin order by descrsort"_s);
        return query(marks) == QStringList{currentMarks} && query(contents) == before &&
               sorted == QStringList{u"NULL"_s, u"Ørsted"_s, u"Ostrava"_s, u"Zloty"_s} &&
               query(u"select count(*) from country where coudescsort = 'norge o'"_s) == QStringList{u"1"_s};
    }
    bool isFirst(const QString &file = u"coin.mdb"_s) const
    {
        return query(marks, file) == QStringList{u"0 0"_s} && query(contents, file) == before &&
               query(u"select descrsort from Coin where descr = 'Ørsted'"_s, file) ==
                   QStringList{u"ørsted"_s};
    }
    bool isWhole() const { return query(u"pragma integrity_check"_s) == QStringList{u"ok"_s}; }

    QStringList before;
};

} // namespace

/// Files of other versions than today's.
class VersionedFiles : public QObject
{
    Q_OBJECT
private slots:
    void earlierIsBroughtUpToDate()
    {
        const FirstVersion collection;
        openCoinDatabase(collection.databasePath());
        QVERIFY(collection.isNewest());
        QVERIFY(collection.isFirst(setAside));
        // Nothing more happens to it, and another old file is set aside under a name of its own.
        const QByteArray done = collection.bytes();
        openCoinDatabase(collection.databasePath());
        QCOMPARE(collection.bytes(), done);
        collection.exec(u"pragma user_version = -5; update Coin set notes = 'other'"_s);
        openCoinDatabase(collection.databasePath());
        QCOMPARE(collection.query(marks), QStringList{currentMarks});
        QVERIFY(collection.files().contains(u"coin-version-1-2.mdb"_s));
        replaceByCompacted(collection.databasePath(), {});
        QVERIFY(collection.files().filter(u"version"_s).isEmpty());
        QCOMPARE(collection.query(marks), QStringList{currentMarks});
    }

    void laterIsLeftAlone()
    {
        const FirstVersion collection;
        collection.exec(u"pragma user_version = 3; drop table mint"_s);
        const QByteArray before = collection.bytes();
        const QStringList files = collection.files();
        const auto refuse = [&](auto use) {
            try {
                use(collection.databasePath());
                return 0;
            } catch (const EngineError &error) {
                return error.number();
            }
        };
        QCOMPARE(refuse([](const QString &path) { openCoinDatabase(path); }), int(NewerVersion));
        QCOMPARE(refuse([](const QString &path) { repairCoinFile(path); }), int(NewerVersion));
        QCOMPARE(collection.bytes(), before);
        QCOMPARE(collection.files(), files);
    }

    void cutOffAtAnyChange()
    {
        int changes = 0;
        int kept = 0;
        std::minstd_rand chance(1);
        for (int cut = 0; cut <= changes; cut += 1 + int(chance() % 8)) { // 0: after the last change
            const FirstVersion collection;
            {
                UnsyncedVfs disk;
                disk.cutPowerAt(cut);
                try {
                    openCoinDatabase(collection.databasePath());
                } catch (const NumberedError &) {
                }
                changes = std::max(changes, disk.changeCount());
                disk.restart(unsigned(cut));
            }
            QVERIFY2(collection.isFirst() || collection.isNewest(), qPrintable(QString::number(cut)));
            kept += collection.isFirst();
            openCoinDatabase(collection.databasePath());
            QVERIFY2(collection.isNewest() && collection.isWhole(), qPrintable(QString::number(cut)));
            QCOMPARE(collection.files().filter(u"version"_s), QStringList{setAside});
            QVERIFY(collection.isFirst(setAside));
        }
        QVERIFY2(kept > 8 && kept < changes, qPrintable(u"%1 of %2"_s.arg(kept).arg(changes)));
    }

    void fullDisk()
    {
        int failures = 0;
        for (qint64 freeSpace = 0; freeSpace < 2'000'000; freeSpace += 100'000) {
            const FirstVersion collection;
            const QByteArray before = collection.bytes();
            UnsyncedVfs disk;
            disk.setFreeSpace(freeSpace);
            try {
                openCoinDatabase(collection.databasePath());
                QVERIFY(failures > 2);
                return;
            } catch (const EngineError &error) {
                QCOMPARE(error.number(), int(DiskFull));
                QVERIFY(error.description().contains(u"as it was"_s));
                QVERIFY(collection.isFirst());
                ++failures;
            }
        }
        QFAIL("never enough space");
    }

    /// A repaired file is brought up to date without being set aside once more.
    void damaged()
    {
        const FirstVersion collection;
        QFile file(collection.databasePath());
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.seek(20);
        file.write(QByteArray(20, '\xff'));
        file.close();
        repairCoinFile(collection.databasePath());
        QVERIFY(collection.isNewest());
        QVERIFY(collection.files().filter(u"version"_s).isEmpty());
    }
};

QTEST_GUILESS_MAIN(VersionedFiles)
#include "VersionedFiles.moc"
