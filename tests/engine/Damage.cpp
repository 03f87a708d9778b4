// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/DamageSupport.h"
#include "engine/EngineFixture.h"
#include "engine/care/Repair.h"
#include "engine/language/EngineError.h"
#include "engine/language/TextFold.h"
#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <random>

using namespace obelmark;

namespace {

constexpr qsizetype pageSize = 4096;

const QString allCoins = u"select * from Coin order by descr"_s;

constexpr qint64 unknown = -1;
/// Storage class and text of null.
const QByteArray nullColumn = "5";

int middle(const QList<int> &pages)
{
    return pages.at(pages.size() / 2);
}

QByteArray otherDatabase()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"other.db"_s);
    SQLite::Database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("create table t (a); insert into t values (1)");
    return fileContent(path);
}

} // namespace

/// Collections damaged in many ways: what opening and using them answers, and what a repair brings back.
class Damage : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        const CoinFile file;
        const QString path = file.path();
        addCoins(path, coinCount);
        m_collection = fileContent(path);
        m_coins = storedRows(path);
        m_categories = storedRows(path, u"category"_s);
        SQLite::Database database(path.toStdString());
        SQLite::Statement query(database, "select name || ' ' || pagetype, pageno from dbstat order by path");
        while (query.executeStep())
            m_pages[QString::fromStdString(query.getColumn(0).getString())] << query.getColumn(1).getInt();
    }

    void init()
    {
        m_file = std::make_unique<CoinFile>();
        m_path = m_file->path();
    }

    void savesReadableRows_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::addColumn<std::size_t>("leastLost");
        QTest::addColumn<std::size_t>("mostLost");
        QTest::addColumn<qint64>("incomplete");
        QTest::addColumn<qint64>("nextCounter");

        const QList<int> leaves = pages(u"Coin leaf"_s);
        const QList<int> root = pages(u"Coin internal"_s);
        const QList<int> overflow = pages(u"Coin overflow"_s);
        const QList<int> byName = pages(u"coin_by_descr leaf"_s);
        const QList<int> counters = pages(u"sqlite_sequence leaf"_s);
        const auto row = [](const char *name, const QByteArray &damaged, std::size_t leastLost,
                            std::size_t mostLost, qint64 incomplete = 0,
                            qint64 nextCounter = lastCounter + 1) {
            QTest::newRow(name) << damaged << leastLost << mostLost << incomplete << nextCounter;
        };
        row("rows and an index", withZeros({middle(leaves), middle(byName)}), 1, 40);
        row("root of the table", withNoise(root), 0, 0);
        row("part of a note", withZeros({middle(overflow)}), 0, 0, 1);
        row("end of a note and an index", withZeros({overflow.last(), middle(byName)}), 0, 0, 1);
        row("rows deleted long ago in the place of others", withCopy(deletedRows(), middle(leaves)), 1, 40);
        row("counters", withZeros(counters), 0, 0, 0, coinCount + 1);
        row("counters and the last rows", withZeros({counters.at(0), leaves.last()}), 1, 40, 0,
            coinCount + 1);
        row("cut to half", m_collection.first(m_collection.size() / 2), 300, 1700, unknown);
        row("cut within a page", m_collection.first(m_collection.size() * 3 / 4 + 1000), 1, 1500, unknown);
    }

    void savesReadableRows()
    {
        QFETCH(QByteArray, damaged);
        QFETCH(std::size_t, leastLost);
        QFETCH(std::size_t, mostLost);
        QFETCH(qint64, incomplete);
        QFETCH(qint64, nextCounter);
        setFileContent(m_path, damaged);
        QCOMPARE(firstError(), int(DatabaseDamaged));

        const RepairReport report = repairDatabase(m_path, {u"coin"_s});
        QCOMPARE(QDir(m_file->folder()).entryList(QDir::Files),
                 QStringList({u"coin-damaged.mdb"_s, u"coin.mdb"_s}));
        QCOMPARE(report.damagedFilePath, m_file->folder() + u"/coin-damaged.mdb"_s);
        QVERIFY(fileContent(report.damagedFilePath) == damaged);
        QCOMPARE(integrity(m_path), u"ok"_s);

        // A saved row is the row it was, but for columns that became null.
        const StoredRows saved = storedRows(m_path);
        qint64 changed = 0;
        for (const auto &[id, columns] : saved) {
            const QByteArrayList &original = m_coins.at(id);
            changed += columns != original;
            for (qsizetype i = 0; i < columns.size(); ++i)
                QVERIFY2(columns[i] == original[i] || columns[i] == nullColumn, columns[i].constData());
        }
        const std::size_t lost = m_coins.size() - saved.size();
        QVERIFY2(lost >= leastLost && lost <= mostLost, qPrintable(QString::number(lost)));
        QCOMPARE(report.tables.first().name, u"Coin"_s);
        QCOMPARE(report.tables.first().rowsSaved, qint64(saved.size()));
        QCOMPARE(report.tables.first().rowsIncomplete, changed);
        if (incomplete != unknown) { // then the indexes tell of every row
            QCOMPARE(changed, incomplete);
            QCOMPARE(report.tables.first().rowsLost, qint64(lost));
            QVERIFY(storedRows(m_path, u"category"_s) == m_categories);
        }

        const auto database = m_file->open();
        const auto coins = database->openDynaset(allCoins);
        QString before;
        for (; !coins->eof(); coins->moveNext()) {
            coins->value(u"notes");
            const QString name = foldText(coins->value(u"descr").toText());
            QVERIFY2(before <= name, qPrintable(name));
            before = name;
        }
        QCOMPARE(coins->recordCount(), qint64(saved.size()));
        coins->addNew();
        QCOMPARE(coins->value(u"coinid").toInt(), nextCounter);
    }

    void leavesOtherFilesAlone_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("error");

        const auto schemaPages = pages(u"sqlite_schema leaf"_s);
        QTest::newRow("missing") << QByteArray() << int(DatabaseFileNotFound);
        QTest::newRow("empty") << QByteArray("") << int(UnrecognizedFormat);
        QTest::newRow("a single byte") << QByteArray(1, '\0') << int(UnrecognizedFormat);
        QTest::newRow("text") << QByteArray("Dear collector,\n").repeated(500) << int(UnrecognizedFormat);
        QTest::newRow("cut within the first page") << m_collection.first(100) << int(DatabaseDamaged);
        QTest::newRow("cut behind the first page") << m_collection.first(pageSize) << int(DatabaseDamaged);
        QTest::newRow("schema lost") << withZeros(schemaPages) << int(DatabaseDamaged);
        QTest::newRow("every row lost") << withZeros(pages(u"Coin leaf"_s)) << int(DatabaseDamaged);
        QTest::newRow("another database") << otherDatabase() << int(UnrecognizedFormat);
    }

    void leavesOtherFilesAlone()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, error);
        if (content.isNull())
            QFile::remove(m_path);
        else
            setFileContent(m_path, content);
        QCOMPARE(firstError(), error);
        QCOMPARE(errorOf([&] { repairDatabase(m_path, {u"Coin"_s}); }), error);
        const QStringList files = QDir(m_file->folder()).entryList(QDir::Files);
        QCOMPARE(files, content.isNull() ? QStringList() : QStringList(u"coin.mdb"_s));
        QVERIFY(files.isEmpty() || fileContent(m_path) == content);
    }

    /// A second repair takes another name, and a journal that belongs to the damaged file never gets beside
    /// the new one.
    void keepsEveryDamagedFile()
    {
        const QByteArray damaged = withZeros({middle(pages(u"Coin leaf"_s))});
        for (const auto name : {"coin-damaged.mdb"_L1, "coin-damaged-2.mdb"_L1}) {
            setFileContent(m_path, damaged);
            setFileContent(m_path + u"-journal"_s,
                           QByteArray(pageSize, '\0')); // left by a kill between two saves
            QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
            QCOMPARE(repairDatabase(m_path, {u"Coin"_s}).damagedFilePath, m_file->folder() + u'/' + name);
            QVERIFY(!QFile::exists(m_path + u"-journal"_s));
            QCOMPARE(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther),
                     QFile::Permissions());
        }
        setFileContent(m_path, damaged);
        const QStringList before = QDir(m_file->folder()).entryList(QDir::Files);
        const auto stop = [&](FileStage stage, qint64, qint64) {
            // Nobody else gets at the file meanwhile.
            [&] { QCOMPARE(errorOf([&] { m_file->open(); }), int(FileInUse)); }();
            return stage != FileStage::Rescuing;
        };
        QVERIFY_THROWS_EXCEPTION(FileWorkStopped, repairDatabase(m_path, {u"Coin"_s}, stop));
        QVERIFY(fileContent(m_path) == damaged);
        QCOMPARE(QDir(m_file->folder()).entryList(QDir::Files), before);
        repairDatabase(m_path, {u"Coin"_s});
        const auto user = m_file->open();
        QCOMPARE(errorOf([&] { repairDatabase(m_path, {u"Coin"_s}); }), int(FileInUse));
    }

    /// A counter has 32 bits. A coin with another number, which nothing in the program could name, is noticed
    /// at the opening and gets a new one.
    void keepsRowsWithImpossibleNumbers()
    {
        m_file->shell(u"insert into Coin (coinid, descr) values (7, 'a'), (5000000000, 'b')"_s);
        QCOMPARE(firstError(), int(DatabaseDamaged));
        QCOMPARE(repairDatabase(m_path, {u"Coin"_s}).tables.first().rowsRenumbered, 1);
        QCOMPARE(m_file->shell(u"select coinid, descr from Coin"_s), u"7|a\n8|b"_s);
        QCOMPARE(firstError(), 0);
    }

    /// Two pages of rows in each other's places, or an index that has two rows so, would lead a walk round in
    /// circles for ever.
    void endsWalksRoundInCircles()
    {
        const auto walk = [&](const QString &sql, const std::function<void(Dynaset &)> &move) {
            return errorOf([&] {
                const auto database = m_file->open();
                const auto coins = database->openDynaset(sql);
                coins->findFirst(u"coinid = 1000 or descr = 'k5'"_s);
                for (int left = 2 * coinCount; left > 0 && !coins->bof() && !coins->eof(); --left)
                    move(*coins);
            });
        };
        const QList<int> leaves = pages(u"Coin leaf"_s);
        QByteArray damaged = withCopy(leaves.at(2), leaves.last());
        setFileContent(m_path, damaged.replace((leaves.at(2) - 1) * pageSize, pageSize,
                                               m_collection.mid((leaves.last() - 1) * pageSize, pageSize)));
        QCOMPARE(walk(u"select * from Coin"_s, [](Dynaset &coins) { coins.moveNext(); }),
                 int(DatabaseDamaged));
        QCOMPARE(walk(u"select * from Coin"_s, [](Dynaset &coins) { coins.movePrevious(); }),
                 int(DatabaseDamaged));

        m_file = std::make_unique<CoinFile>();
        m_path = m_file->path();
        for (int i = 1; i < 10; ++i)
            m_file->shell(u"insert into Coin (descr, descrsort) values ('k%1', 'k%1')"_s.arg(i));
        damaged =
            fileContent(m_path).replace("k3\3", "k3\xF").replace("k7\7", "k7\3").replace("k3\xF", "k3\7");
        setFileContent(m_path, damaged);
        QCOMPARE(walk(allCoins, [](Dynaset &coins) { coins.findNext(u"descr like 'k*'"_s); }),
                 int(DatabaseDamaged));
    }

    /// What a damaged file has in the place of a table's statement is made a table of, and nothing else.
    void runsNothingOfTheSchema()
    {
        m_file->shell(
            u"insert into Coin (descr) values ('a'); pragma writable_schema = on; update sqlite_schema set "
            u"sql "
            u"= sql || '; attach ''%1/other.mdb'' as other; create table other.t (a)' where name = 'Coin'"_s
                .arg(m_file->folder()));
        QCOMPARE(repairDatabase(m_path, {u"Coin"_s, coinSchema()}).tables.first().rowsSaved, 1);
        QCOMPARE(QDir(m_file->folder()).entryList(QDir::Files),
                 QStringList({u"coin-damaged.mdb"_s, u"coin.mdb"_s}));
    }

    /// The lists look alike. Whichever of their pages lies in another's place, each list is whole again, also
    /// one that another tool has added columns to.
    void keepsListsApart()
    {
        const QList<std::pair<QString, int>> lists{
            {u"mint"_s, 175}, {u"country"_s, 300}, {u"format"_s, 18}, {u"type"_s, 23}, {u"category"_s, 60}};
        for (const auto &[list, count] : lists)
            m_file->shell(
                u"with n(i) as (values (1) union all select i + 1 from n where i < %2) insert into %1 "
                u"(%3desc, "
                u"%3descsort) select '%1 number ' || (i * 7919 % 1000), '%1 number ' || (i * 7919 % 1000) from n"_s
                    .arg(list)
                    .arg(count)
                    .arg(list.left(3)));
        m_file->shell(u"alter table category add column a; alter table category add column b"_s);
        const QByteArray original = fileContent(m_path);
        QHash<QString, StoredRows> rows;
        for (const auto &[list, count] : lists)
            rows[list] = storedRows(m_path, list);
        QList<int> pages;
        {
            SQLite::Database database(m_path.toStdString());
            SQLite::Statement query(database,
                                    "select pageno from dbstat where name not like 'coin%' and name not in "
                                    "('sqlite_schema', 'sqlite_sequence')");
            while (query.executeStep())
                pages << query.getColumn(0).getInt() - 1;
        }
        std::mt19937 chance(3);
        for (int round = 0; round < 40; ++round) {
            const qsizetype a = pages.at(int(chance() % pages.size())) * pageSize;
            const qsizetype b = pages.at(int(chance() % pages.size())) * pageSize;
            QByteArray damaged = original;
            damaged.replace(a, pageSize, original.mid(b, pageSize))
                .replace(b, pageSize, original.mid(a, pageSize));
            setFileContent(m_path, damaged);
            const RepairReport report = repairDatabase(m_path, {u"Coin"_s, coinSchema()});
            QFile::remove(report.damagedFilePath);
            const QString told = u": round %1, %2 and %3"_s.arg(round).arg(a).arg(b);
            for (const auto &[list, count] : lists)
                QVERIFY2(storedRows(m_path, list) == rows[list], qPrintable(list + told));
            for (const RepairReport::Table &table : report.tables)
                QVERIFY2(table.rowsLost == 0, qPrintable(table.name + told));
        }
    }

    void bringsBackWhatIsNotHit_data()
    {
        QTest::addColumn<int>("first"); // page
        QTest::addColumn<int>("rounds");
        QTest::addColumn<bool>("schemaOnly");
        QTest::newRow("each sector of the schema") << 1 << 0 << true;
        QTest::newRow("bits of the header") << 1 << 25 << true;
        QTest::newRow("by chance") << 2 << 60 << false;
    }

    /// Whatever is hit, by sectors and pages and exchanged pages: a row of a page that was not is there again
    /// as it was, none is wrong, the file opens, and what is missing is told of.
    void bringsBackWhatIsNotHit()
    {
        QFETCH(int, first);
        QFETCH(int, rounds);
        QFETCH(bool, schemaOnly);
        constexpr qsizetype sector = 512;
        constexpr qsizetype mostRowsOfPage = 60;
        addCoins(m_path, 280);
        const QByteArray original = fileContent(m_path);
        const StoredRows coins = storedRows(m_path);
        const StoredRows categories = storedRows(m_path, u"category"_s);
        const int pageCount = int(original.size() / pageSize);
        std::mt19937 chance(11);
        const auto upTo = [&](int most) { return int(chance() % unsigned(most)); };

        QList<qsizetype> schema;
        for (int number = 1; number <= pageCount; ++number) {
            if (number == 1 || original.mid((number - 1) * pageSize, pageSize).contains("CREATE TABLE"))
                for (qsizetype at = 0; at < pageSize; at += sector)
                    schema << (number - 1) * pageSize + at;
        }
        constexpr std::array headerFields{0,  16, 18, 19, 20, 21,
                                          28, 32, 36, 44, 52, 56}; // that reading depends on
        for (int round = 0; round < (rounds ? rounds : schema.size()); ++round) {
            QByteArray damaged = original;
            const bool isSectors = round % 3 == 1;
            QSet<int> hit;
            if (schemaOnly && rounds == 0) {
                damaged.replace(schema[round], sector, QByteArray(sector, '\0'));
            } else if (schemaOnly) {
                damaged[headerFields[std::size_t(round) % headerFields.size()] + (round % 2)] ^=
                    char(1 << upTo(8));
            } else {
                for (int i = 1 + upTo(3); i > 0; --i) {
                    const int a = first + upTo(pageCount - first);
                    const int b = first + upTo(pageCount - first);
                    const QByteArray page = damaged.mid(a * pageSize, pageSize);
                    if (round % 3 == 0) {
                        damaged.replace(a * pageSize, pageSize, damaged.mid(b * pageSize, pageSize));
                        damaged.replace(b * pageSize, pageSize, page);
                    } else {
                        hit << a;
                        const qsizetype size = isSectors ? sector : pageSize;
                        damaged.replace(a * pageSize + upTo(int(pageSize / size)) * size, size,
                                        QByteArray(size, '\0'));
                    }
                }
            }
            setFileContent(m_path, damaged);
            const auto open = [](const QString &path) {
                Database::open(path, Database::Access::Exclusive, {u"Coin"_s, u"mint"_s});
            };
            const RepairReport report = repairDatabase(m_path, {u"Coin"_s, coinSchema(), open});
            QFile::remove(report.damagedFilePath);
            const StoredRows saved = storedRows(m_path);
            const QByteArray text =
                u"round %1: %2 of %3"_s.arg(round).arg(saved.size()).arg(coins.size()).toUtf8();
            const char *told = text.constData();
            qsizetype wrong = 0;
            for (const auto &[id, columns] : saved) {
                const QByteArrayList &row = coins.at(id);
                for (qsizetype i = 0; i < columns.size(); ++i) {
                    if (columns[i] != row[i] && columns[i] != nullColumn) {
                        ++wrong;
                        break;
                    }
                }
            }
            // A sector of zeros leaves the rows that lie across its ends, where zero may be a value.
            QVERIFY2(wrong <= (isSectors ? 2 * hit.size() : 0), told);
            const qsizetype lost = qsizetype(coins.size() - saved.size());
            QVERIFY2(lost <= hit.size() * mostRowsOfPage, told);
            QVERIFY2(report.tables.first().rowsLost <= lost, told);
            QVERIFY2(lost == 0 || report.tables.first().rowsLost > 0, told);
            if (hit.isEmpty())
                QVERIFY2(storedRows(m_path, u"category"_s) == categories, told);
        }
    }

private:
    /// The pages of a kind ("Coin leaf") in their order.
    QList<int> pages(const QString &kind) const { return m_pages.value(kind); }
    QByteArray withPages(const QList<int> &numbers, const std::function<char()> &filling) const
    {
        QByteArray content = m_collection;
        for (const int number : numbers)
            std::generate_n(content.begin() + (number - 1) * pageSize, pageSize, filling);
        return content;
    }
    QByteArray withZeros(const QList<int> &numbers) const
    {
        return withPages(numbers, [] { return '\0'; });
    }
    QByteArray withNoise(const QList<int> &numbers) const
    {
        std::mt19937 noise(7);
        return withPages(numbers, [&] { return char(noise()); });
    }
    QByteArray withCopy(int from, int to) const
    {
        QByteArray content = m_collection;
        return content.replace((to - 1) * pageSize, pageSize, content.mid((from - 1) * pageSize, pageSize));
    }
    /// A page of rows that is no longer in use.
    int deletedRows() const
    {
        constexpr char leafType = 13;
        QList<int> used;
        for (const QList<int> &ofKind : m_pages)
            used << ofKind;
        for (int number = 1;; ++number) {
            if (!used.contains(number) && m_collection.at((number - 1) * pageSize) == leafType)
                return number;
        }
    }
    /// What opening the file, reading every coin and beginning a new one answers first.
    int firstError() const
    {
        return errorOf([&] {
            const auto database = m_file->open();
            const auto coins = database->openDynaset(allCoins);
            for (; !coins->eof(); coins->moveNext())
                coins->value(u"notes");
            coins->addNew();
        });
    }

    static constexpr int coinCount = 2000;
    /// The number of the coin that was deleted.
    static constexpr qint64 lastCounter = coinCount + 1;

    QByteArray m_collection;
    QHash<QString, QList<int>> m_pages;
    StoredRows m_coins;
    StoredRows m_categories;
    std::unique_ptr<CoinFile> m_file;
    QString m_path;
};

QTEST_GUILESS_MAIN(Damage)
#include "Damage.moc"
