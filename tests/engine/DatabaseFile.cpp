// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include "support/Cases.h"
#include <sqlite3.h>

using namespace obelmark;

/// Opening and locking the file, and putting right what other tools have changed in it.
class DatabaseFile : public QObject
{
    Q_OBJECT
private slots:
    void refuses_data() { cases::add(); }
    void refuses()
    {
        const auto [title, name, number, text] = cases::row<4>();
        const CoinFile file;
        const QString rootPage = file.shell(u"insert into Coin(notes) values (zeroblob(20000)); "
                                            u"select rootpage from sqlite_schema where name = 'Coin';"_s);
        const QByteArray whole = read(file.path());
        const QDir folder(file.folder());
        write(folder.filePath(u"empty.mdb"_s), {});
        write(folder.filePath(u"garbage.mdb"_s), QByteArray(10'000, 'x'));
        write(folder.filePath(u"short.mdb"_s), whole.first(10'000));
        write(folder.filePath(u"hole.mdb"_s),
              QByteArray(whole).replace((rootPage.toInt() - 1) * 4096, 4096, QByteArray(4096, 'x')));
        write(folder.filePath(u"foreign.mdb"_s), whole);
        write(folder.filePath(u"lacking.mdb"_s), whole);
        QVERIFY(folder.mkdir(u"folder.mdb"_s));
        file.shell(u".open %1\ndrop table category;\n.open %2\ndrop table Coin; drop table category;"_s.arg(
            folder.filePath(u"lacking.mdb"_s), folder.filePath(u"foreign.mdb"_s)));
        const auto holder = file.open();

        const QStringList before = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        const QByteArray content = read(folder.filePath(name));
        const auto open = [&] {
            // By a relative path; messages name the full one
            QDir::setCurrent(file.folder());
            Database::open(name, Database::Access::Exclusive, {u"coin"_s, u"Category"_s});
        };
        QCOMPARE(errorOf(open), number.toInt());
        QCOMPARE(errorTextOf(open), text.arg(folder.filePath(name)));
        QCOMPARE(folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
        QVERIFY(read(folder.filePath(name)) == content);
        QDir::setCurrent(QDir::rootPath());
    }

    void openingFails()
    {
        const CoinFile file;
        for (const auto &[resultCode, number] : {std::pair(SQLITE_BUSY, FileInUse),
                                                 {SQLITE_CORRUPT, DatabaseDamaged},
                                                 {SQLITE_NOTADB, UnrecognizedFormat},
                                                 {SQLITE_READONLY, EngineErrorNumber(PermissionDenied)},
                                                 {SQLITE_CANTOPEN, EngineErrorNumber(PermissionDenied)},
                                                 {SQLITE_IOERR, EngineErrorNumber(PathFileAccess)}}) {
            const auto fail = [&](FaultPoint point) { return point == FaultPoint::Open ? resultCode : 0; };
            QCOMPARE(errorOf([&] { file.open(fail); }), int(number));
            file.open()->openDynaset(u"select * from Coin"_s);
        }
    }

    void exclusive()
    {
        const CoinFile file;
        auto database = file.open();
        QCOMPARE(database->path(), file.path());
        QVERIFY(file.shell(u"select * from Coin;"_s).contains(u"locked"_s));
        QCOMPARE(errorOf([&] { file.open(); }), int(FileInUse));
        QCOMPARE(errorOf([&] { Database::open(file.path(), Database::Access::Shared, {}); }), int(FileInUse));
        // The lock outlasts failed openers and writes
        addRow(*database->openDynaset(u"select * from Coin"_s), {});
        QVERIFY(file.shell(u"select * from Coin;"_s).contains(u"locked"_s));
        database.reset();
        QCOMPARE(file.shell(u"select count(*) from Coin;"_s), u"1"_s);
        // A file left in another journal mode is taken over
        file.shell(u"pragma journal_mode = wal; insert into Coin(descr) values ('x');"_s);
        file.open();
        QCOMPARE(file.shell(u"pragma journal_mode; select count(*) from Coin;"_s), u"delete\n2"_s);
    }

    void shared()
    {
        const CoinFile file;
        file.shell(u"insert into category(catdesc) values ('b'), ('a');"_s);
        const auto one = Database::open(file.path(), Database::Access::Shared, {u"category"_s});
        const auto two = Database::open(file.path(), Database::Access::Shared, {u"category"_s});
        const auto rows = one->openDynaset(u"select * from category order by catdesc"_s);
        QCOMPARE(two->openSnapshot(u"select * from category order by catdesc"_s)->value(u"catdesc").toText(),
                 u"a"_s);
        rows->edit();
        rows->setValue(u"catdesc", u"c"_s);
        rows->update(); // nobody is in the middle of reading
        const auto reader = two->openForwardOnly(u"select * from category"_s);
        rows->edit();
        rows->setValue(u"catdesc", u"d"_s);
        QCOMPARE(errorOf([&] { rows->update(); }), int(RecordLocked));
        reader->close();
        rows->update();
        QCOMPARE(errorOf([&] { file.open(); }), 0);
    }

    void changesByOtherTools_data() { cases::add(); }
    void changesByOtherTools()
    {
        const auto [name, order, change] = cases::row<3>();
        const CoinFile file;
        {
            const auto database = file.open();
            const auto rows = database->openDynaset(u"select * from category order by catdesc"_s);
            for (const QString &text : {u"beta"_s, u"Ωmega"_s, u"Alp"_s}) {
                rows->addNew();
                rows->setValue(u"catdesc", text);
                rows->update();
            }
        }
        QCOMPARE(file.shell(change + u';'), QString());
        {
            const auto database = file.open();
            const QString sql = u"select * from category order by catdesc"_s;
            QCOMPARE(column(*database->openDynaset(sql), u"catid"), order);
            QCOMPARE(column(*database->openSnapshot(sql), u"catid"), order);
        }
        QCOMPARE(
            file.shell(u"select count(*) from category where catdescsort is null and catdesc is not null; "
                       u"pragma integrity_check;"_s),
            u"0\nok"_s);
    }

    void stoppedWhileOrdering()
    {
        const CoinFile file;
        file.shell(u"with n(i) as (values (1) union all select i + 1 from n where i < 3000) "
                   u"insert into category(catdesc) select 'Z' || i from n;"_s);
        const QByteArray content = read(file.path());
        QList<FileStage> told;
        const FileProgress stop = [&](FileStage stage, qint64, qint64) {
            told << stage;
            return false;
        };
        const auto open = [&] { Database::open(file.path(), Database::Access::Exclusive, {}, {}, stop); };
        QVERIFY_THROWS_EXCEPTION(FileWorkStopped, open());
        QCOMPARE(told, QList{FileStage::Ordering});
        QVERIFY(read(file.path()) == content);
        file.open();
        open(); // nothing left to do, nothing to stop
        QCOMPARE(told.size(), 1);
    }

    void leavesTheSchemaAlone()
    {
        const CoinFile file;
        const QString schema =
            u"select group_concat(sql) from sqlite_schema; pragma user_version; pragma encoding;"_s;
        const QString before = file.shell(schema);
        const QByteArray content = read(file.path());
        file.open();
        QVERIFY(read(file.path()) == content); // nothing to fill, nothing written
        {
            const auto database = file.open();
            const auto rows = database->openDynaset(u"select * from Coin order by descr"_s);
            addRow(*rows, {{u"descr", u"Écu"_s}});
            rows->findFirst(u"descr like '*cu*'"_s);
        }
        QCOMPARE(file.shell(schema), before);
        QCOMPARE(file.shell(u"update Coin set descr = 'x'; vacuum; reindex; pragma integrity_check; "
                            u"select descr, descrsort is null from Coin where descr like '%X%';"_s),
                 u"ok\nx|1"_s);
    }

private:
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

QTEST_APPLESS_MAIN(DatabaseFile)
#include "DatabaseFile.moc"
