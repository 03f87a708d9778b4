#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include <QDir>
#include <QFile>
#include <QTest>
#include <csignal>
#include <sqlite3.h>
#include <sys/resource.h>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// Opening and locking the file, and putting right what other tools have changed in it.
class DatabaseFile : public QObject
{
    Q_OBJECT
private slots:
    void refuses_data();
    void refuses();
    void openingFails_data();
    void openingFails();
    void exclusive();
    void shared();
    void changesByOtherTools_data();
    void changesByOtherTools();
    void stoppedWhileOrdering();
    void leavesTheSchemaAlone();
    void fullDisk();

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

void DatabaseFile::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("missing") << u"none.mdb"_s << int(DatabaseFileNotFound) << u"Could not find file '%1'."_s;
    QTest::newRow("folder missing") << u"none/coin.mdb"_s << int(InvalidPath)
                                    << u"'%1' is not a valid path."_s;
    const QString unrecognized = u"Unrecognized database format '%1'."_s;
    QTest::newRow("empty") << u"empty.mdb"_s << int(UnrecognizedFormat) << unrecognized;
    QTest::newRow("something else") << u"garbage.mdb"_s << int(UnrecognizedFormat) << unrecognized;
    QTest::newRow("another program's") << u"foreign.mdb"_s << int(UnrecognizedFormat) << unrecognized;
    QTest::newRow("without a table") << u"lacking.mdb"_s << int(UnrecognizedFormat) << unrecognized;
    QTest::newRow("a folder") << u"folder.mdb"_s << int(UnrecognizedFormat) << unrecognized;
    const QString damaged = u"Cannot open database '%1'.  It may not be a database that your application "
                            u"recognizes, or the file may be corrupt."_s;
    QTest::newRow("cut off") << u"short.mdb"_s << int(DatabaseDamaged) << damaged;
    QTest::newRow("table overwritten") << u"hole.mdb"_s << int(DatabaseDamaged) << damaged;
    QTest::newRow("locked") << u"coin.mdb"_s << int(FileInUse)
                            << u"Could not use '%1'; file already in use."_s;
}

void DatabaseFile::refuses()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
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
    QTEST(errorOf(open), "number");
    QCOMPARE(errorTextOf(open), text.arg(folder.filePath(name)));
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
    QVERIFY(read(folder.filePath(name)) == content);
    QDir::setCurrent(QDir::rootPath());
}

void DatabaseFile::openingFails_data()
{
    QTest::addColumn<int>("resultCode");
    QTest::addColumn<int>("number");
    QTest::newRow("locked") << SQLITE_BUSY << int(FileInUse);
    QTest::newRow("damaged") << SQLITE_CORRUPT << int(DatabaseDamaged);
    QTest::newRow("no database") << SQLITE_NOTADB << int(UnrecognizedFormat);
    QTest::newRow("read-only") << SQLITE_READONLY << int(PermissionDenied);
    QTest::newRow("not readable") << SQLITE_CANTOPEN << int(PermissionDenied);
    QTest::newRow("disk error") << SQLITE_IOERR << int(PathFileAccess);
}

void DatabaseFile::openingFails()
{
    QFETCH(int, resultCode);
    const CoinFile file;
    const auto fail = [resultCode](FaultPoint point) { return point == FaultPoint::Open ? resultCode : 0; };
    QTEST(errorOf([&] { file.open(fail); }), "number");
    file.open()->openDynaset(u"select * from Coin"_s);
}

void DatabaseFile::exclusive()
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

void DatabaseFile::shared()
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

void DatabaseFile::changesByOtherTools_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("order");
    QTest::newRow("nothing") << QString() << u"3 1 2"_s;
    QTest::newRow("new text") << u"update category set catdesc = 'Álpha' where catid = 2"_s << u"3 2 1"_s;
    QTest::newRow("new row") << u"insert into category(catdesc) values ('ALPHABET')"_s << u"3 4 1 2"_s;
    QTest::newRow("text to null") << u"update category set catdesc = null where catid = 1"_s << u"1 3 2"_s;
    QTest::newRow("letter case only")
        << u"update category set catdesc = 'BETA' where catid = 1"_s << u"3 1 2"_s;
    QTest::newRow("without the index")
        << u"drop index category_catdesc_stale; update category set catdesc = 'AA' "
           u"where catid = 2"_s
        << u"2 3 1"_s;
    QTest::newRow("many rows") << u"with n(i) as (values (1) union all select i + 1 from n where i < 3000) "
                                  u"insert into category(catdesc) select 'Z' from n; "
                                  u"delete from category where catid > 5"_s
                               << u"3 1 4 5 2"_s;
}

void DatabaseFile::changesByOtherTools()
{
    QFETCH(QString, change);
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
        QTEST(column(*database->openDynaset(u"select * from category order by catdesc"_s), u"catid"),
              "order");
        QTEST(column(*database->openSnapshot(u"select * from category order by catdesc"_s), u"catid"),
              "order");
    }
    QCOMPARE(file.shell(u"select count(*) from category where catdescsort is null and catdesc is not null; "
                        u"pragma integrity_check;"_s),
             u"0\nok"_s);
}

void DatabaseFile::stoppedWhileOrdering()
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

void DatabaseFile::leavesTheSchemaAlone()
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

void DatabaseFile::fullDisk()
{
    const CoinFile file;
    const auto database = file.open();
    const auto rows = database->openDynaset(u"select * from Coin order by descr"_s);
    const qint64 key = addRow(*rows, {{u"descr", u"before"_s}});
    // A limit on the size of files stands for the disk: writing beyond it fails with an error
    rlimit unlimited{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
    const auto ignored = signal(SIGXFSZ, SIG_IGN);
    rlimit limited = unlimited;
    limited.rlim_cur = rlim_t(QFileInfo(file.path()).size());
    setrlimit(RLIMIT_FSIZE, &limited);
    rows->addNew();
    rows->setValue(u"notes", QString(100'000, u'x'));
    const int error = errorOf([&] { rows->update(); });
    setrlimit(RLIMIT_FSIZE, &unlimited);
    signal(SIGXFSZ, ignored);
    QVERIFY2(error == DiskFull || error == PathFileAccess, qPrintable(QString::number(error)));
    QCOMPARE(rows->recordCount(), 1);
    rows->update(); // there is room again
    QCOMPARE(rows->recordCount(), 2);
    rows->findFirst(u"coinid = %1"_s.arg(key + 1));
    QCOMPARE(rows->value(u"notes").toText().size(), 100'000);
}

QTEST_APPLESS_MAIN(DatabaseFile)
#include "DatabaseFile.moc"
