#include "engine/EngineFixture.h"
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// Where rows stand in a dynaset: moves in both directions, and finds, against orders written down by hand.
class SortedPlaces : public QObject
{
    Q_OBJECT
private slots:
    void orders_data();
    void orders();
    void neighboursOfChangedRows();
    void findsFarAway();

private:
    static QString backward(Dynaset &rows, QStringView field);
};

QString SortedPlaces::backward(Dynaset &rows, QStringView field)
{
    QStringList texts;
    for (rows.moveLast(); !rows.bof(); rows.movePrevious()) {
        const Value value = rows.value(field);
        texts.prepend(value.isNull() ? u"-"_s : value.toText());
    }
    return texts.join(u' ');
}

void SortedPlaces::orders_data()
{
    QTest::addColumn<QString>("rows"); // what the shell inserts
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("keys");
    const auto row = [](const char *name, const QString &rows, const QString &sql, const QString &keys) {
        QTest::newRow(name) << rows << sql << keys;
    };
    const QString insert = u"insert into Coin(descr) values "_s;
    const QString byDescr = u"Select * from Coin order by Descr"_s;
    row("no rows", {}, byDescr, {});
    row("one row", insert + u"('a')"_s, byDescr, u"1"_s);
    row("only nulls", insert + u"(null),(null),(null)"_s, byDescr, u"1 2 3"_s);
    row("nulls first, then empty texts", insert + u"('b'),(null),(''),('a'),(null),('')"_s, byDescr,
        u"2 5 3 6 4 1"_s);
    row("equal texts by key, letter case apart", insert + u"('b'),('a'),('B'),('A'),('b')"_s, byDescr,
        u"2 4 1 3 5"_s);
    row("blanks, digits, letters", insert + u"('a1'),('a b'),('ab'),('a'),('1'),(' z'),('10'),('2')"_s,
        byDescr, u"6 5 7 8 4 2 1 3"_s);
    row("accents beside their letter",
        insert + u"('eb'),('éa'),('ea'),('f'),('E'),('É'),('zoo'),('Øre'),('Ozean'),('ß'),('ss'),('st')"_s,
        byDescr, u"5 6 2 3 1 4 8 9 10 11 12 7"_s);
    row("alphabets",
        insert + u"('Рубль'),('рубин'),('Ярд'),('Ёлка'),('елка'),('Δραχμή'),('δράμα'),('阿'),('zł'),"
                 u"('शून्य'),('שקל'),('دينار')"_s,
        byDescr, u"9 7 6 4 5 2 1 3 11 12 10 8"_s);
    row("quotes and control characters", insert + u"('it''s'),(char(9)),('\"'),(char(10)||'b')"_s, byDescr,
        u"2 4 3 1"_s);
    row("two columns",
        u"insert into Coin(catsort, catnum) values ('  10','b'),(null,'x'),('   9','z'),('  10','B a'),('  "
        u"10',null),"
        u"(null,null),('  10','b'),('   9','Á')"_s,
        u"Select * from Coin order by catsort, catnum"_s, u"6 2 8 3 5 1 7 4"_s);
    row("numbers", u"insert into Coin(Year) values (1900),(null),(-50),(1852),(null),(0),(1900)"_s,
        u"Select * from Coin order by Year"_s, u"2 5 3 6 4 1 7"_s);
    row("money and dates without an index",
        u"insert into Coin(face, issuedate) values (100,'2001-01-01'),(null,null),(100,'1852-05-03'),(-5,null)"_s,
        u"select * from Coin order by face, issuedate"_s, u"2 4 3 1"_s);
    row("no order", insert + u"('b'),('a')"_s, u"select * from Coin"_s, u"1 2"_s);
    row("a column without companion",
        u"create table plain(coinid integer primary key, word text collate nocase); "
        u"insert into plain(word) values ('b'),('A'),('a'),('B'),(null),('é'),(x'41')"_s,
        u"select * from plain order by word"_s, u"5 2 3 1 4 6 7"_s);
    row("a table without a key",
        u"create table loose(coinid smallint, word varchar(5)); insert into loose values (7,'b'),(8,'a'),(9,'a')"_s,
        u"select * from loose order by word"_s, u"8 9 7"_s);
}

void SortedPlaces::orders()
{
    QFETCH(QString, rows);
    QFETCH(QString, sql);
    const CoinFile file;
    QCOMPARE(file.shell(rows + u';'), QString());
    const auto database = file.open();
    const auto dynaset = database->openDynaset(sql);
    QTEST(column(*dynaset, u"coinid"), "keys");
    QVERIFY(dynaset->eof());
    if (!dynaset->isEmpty())
        QTEST(backward(*dynaset, u"coinid"), "keys");
}

void SortedPlaces::neighboursOfChangedRows()
{
    const CoinFile file;
    file.shell(u"insert into category(catdesc) values ('a'),('c'),('e'),('g');"_s);
    const auto database = file.open();
    const auto rows = database->openDynaset(u"select * from category order by catdesc"_s);
    const auto others = database->openDynaset(u"select * from category order by catdesc"_s);
    const auto rename = [](Dynaset &set, const QString &from, const QString &to) {
        set.findFirst(u"catdesc = '%1'"_s.arg(from));
        set.edit();
        set.setValue(u"catdesc", to);
        set.update();
    };
    // A row stays current when it moves in the order, whoever moves it
    rename(*rows, u"a"_s, u"f"_s);
    QCOMPARE(rows->value(u"catdesc").toText(), u"f"_s);
    rows->moveNext();
    QCOMPARE(rows->value(u"catdesc").toText(), u"g"_s);
    rename(*others, u"g"_s, u"d"_s);
    QCOMPARE(rows->value(u"catdesc").toText(), u"d"_s);
    rows->moveNext();
    QCOMPARE(rows->value(u"catdesc").toText(), u"e"_s);
    rename(*others, u"e"_s, u"B"_s);
    rows->movePrevious(); // from its new place, without having been read there
    QVERIFY(rows->bof());
    rows->moveFirst();
    QCOMPARE(column(*rows, u"catdesc"), u"B c d f"_s);
    // A row whose text becomes null is the first one
    rename(*others, u"c"_s, u"c"_s);
    others->edit();
    others->setValue(u"catdesc", Value());
    others->update();
    rows->moveFirst();
    QCOMPARE(column(*rows, u"catdesc"), u"- B d f"_s);
}

void SortedPlaces::findsFarAway()
{
    // More rows than are looked at in the order of the index before the whole table is; the matches far
    // apart, among equal texts and nulls.
    const CoinFile file;
    file.shell(uR"(
        with n(i) as (values (1) union all select i + 1 from n where i < 20000)
        insert into Coin(descr, Year, quantity)
        select iif(i % 7, 'Coin ' || (i * 7919 % 900), null), iif(i % 11, i * 31 % 300, null), i % 5000 from n;)"_s);
    const auto database = file.open();
    const auto criteria = [](int i) {
        return i % 2 ? u"quantity = 77"_s : u"descr like '*n 77' or quantity = 4321"_s;
    };
    for (const QString &order : {u"descr"_s, u"Year, descr"_s, u"coinid"_s}) {
        const auto rows = database->openDynaset(u"select * from Coin order by "_s + order);
        const auto copy = database->openSnapshot(u"select coinid, descr, quantity from Coin order by "_s +
                                                 order + u", coinid"_s);
        for (int i = 0; i < 24; ++i) {
            const QString start = u"coinid = %1"_s.arg(1 + i * 7717 % 20000);
            const auto find = [&](Recordset &set) {
                set.findFirst(start);
                i % 4 < 2 ? set.findNext(criteria(i)) : set.findPrevious(criteria(i));
                return set.value(u"coinid").toText() + (set.noMatch() ? u" none"_s : QString());
            };
            QCOMPARE(find(*rows), find(*copy));
        }
        rows->findFirst(criteria(1));
        copy->findFirst(criteria(1));
        QCOMPARE(rows->value(u"coinid").toInt(), copy->value(u"coinid").toInt());
        rows->findLast(criteria(2));
        copy->findLast(criteria(2));
        QCOMPARE(rows->value(u"coinid").toInt(), copy->value(u"coinid").toInt());
    }
}

QTEST_APPLESS_MAIN(SortedPlaces)
#include "SortedPlaces.moc"
