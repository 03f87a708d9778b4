#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

/// The dialect of criteria and queries, by what it selects from real rows.
class Criteria : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void selects_data();
    void selects();
    void queries_data();
    void queries();
    void refuses_data();
    void refuses();
    void dynasetQueries_data();
    void dynasetQueries();

private:
    CoinFile m_file;
    std::unique_ptr<Database> m_database;
};

void Criteria::initTestCase()
{
    m_file.shell(uR"(
        insert into country(coudesc) values ('Österreich'), ('Oman'), ('Panama'), ('ostfriesland');
        alter table format add column yes boolean;
        alter table format add column face money;
        insert into format(fordesc, yes, face) values ('round', 0, 20000), ('square', 1, 30000);
        insert into Coin(descr, catnum, face, Year, wantlist, sold, quantity, couid, PurchaseDate, pricepaid, notes)
        values
        ('Liberty "Head" Dollar', 'KM 1', 25000, 1852, 1, 0, 1, 3, '2005-01-05', -5000, 'can''t say'),
        ('Walking Liberty', 'KM 12', 10000, 1940, 0, 0, 5, 1, '2005-02-13', 9223372036854775807, 'a # b'),
        ('50% [silver] * coin', null, 1, null, 0, 1, null, 2, '1899-12-30T10:30:00', 0, '#1/5/2005#'),
        ('Écu d''or', 'Y 5', null, 1641, null, 1, 2, null, null, 15000, null),
        (null, '', 20000, 1900, 1, 1, 3, 4, '2005-01-05T18:15:42', 14999, 'yes')
    )"_s);
    m_database = m_file.open();
}

void Criteria::selects_data()
{
    QTest::addColumn<QString>("criteria");
    QTest::addColumn<QString>("coins"); // the keys that it selects
    const auto row = [](const QString &criteria, const QString &coins) {
        QTest::newRow(qPrintable(criteria)) << criteria << coins;
    };
    // Texts
    row(u"descr like \"*liberty*\""_s, u"1 2"_s);
    row(u"DESCR LIKE '*\"head\"*'"_s, u"1"_s);
    row(u"descr like \"*\"\"head\"\"*\""_s, u"1"_s);
    row(u"descr like 'ecu d''OR'"_s, u"4"_s);
    row(u"not descr like '*liberty*'"_s, u"3 4"_s); // null is no match either way
    row(u"descr not like '*liberty*'"_s, u"3 4"_s);
    row(u"descr like '50% [[]silver] [*] coin'"_s, u"3"_s);
    row(u"descr like '*_*'"_s, u""_s);
    row(u"catnum like null"_s, u""_s);
    row(u"descr = 'WALKING liberty'"_s, u"2"_s);
    row(u"[catnum] = \"\""_s, u"5"_s);
    row(u"coin.[Year] = 1852 or [Coin].descr is null"_s, u"1 5"_s);
    row(u"notes = 'can''t say' or notes = \"#1/5/2005#\" or notes = 'yes'"_s, u"1 3 5"_s);
    // Numbers
    row(u"Year >= 1852 and year<1941"_s, u"1 2 5"_s);
    row(u"quantity <> 5"_s, u"1 4 5"_s);
    row(u"5--quantity = 6"_s, u"1"_s);
    row(u"year like '18*'"_s, u"1"_s);
    row(u"coinid = 3"_s, u"3"_s);
    row(u"Coin.CoinID=3"_s, u"3"_s);
    row(u"coinid = 3.5"_s, u""_s);
    // Money
    row(u"face = 2.5"_s, u"1"_s);
    row(u"face = 2.50000"_s, u"1"_s);
    row(u"face < 1"_s, u"3"_s);
    row(u"face<=1.00 AND face>.0001"_s, u"2"_s);
    row(u"face = 0.0001"_s, u"3"_s);
    row(u"1 < face"_s, u"1 5"_s);
    row(u"25e-1 = Coin.face"_s, u"1"_s);
    row(u"(face) > (1)"_s, u"1 5"_s);
    row(u"face > 0.00005"_s, u"1 2 3 5"_s);
    row(u"face > 1.99999 and face < 2.00001"_s, u"5"_s);
    row(u"pricepaid = -0.5"_s, u"1"_s);
    row(u"-.5 = pricepaid"_s, u"1"_s);
    row(u"pricepaid > -.50001 and pricepaid < - 0.49999"_s, u"1"_s);
    row(u"pricepaid = 922337203685477.5807"_s, u"2"_s);
    row(u"pricepaid > 922337203685477.5806"_s, u"2"_s);
    row(u"pricepaid < 1e30 and pricepaid > 1e2"_s, u"2"_s);
    row(u"pricepaid between -1 and 1.4999"_s, u"1 3 5"_s);
    row(u"pricepaid not between 0 and 1.4999 and year > 1600"_s, u"1 2 4"_s);
    row(u"face in (2.5, 2, 99)"_s, u"1 5"_s);
    row(u"face not in (2.5, 2)"_s, u"2 3"_s);
    row(u"quantity * face > 4"_s, u"2 5"_s);
    row(u"face > pricepaid"_s, u"1 3 5"_s);
    row(u"face >= 1 and year >= 1900"_s, u"2 5"_s);
    row(u"exists (select 1 from format where fordesc = 'round' and format.face = coin.face)"_s, u"5"_s);
    // Dates: month first, whatever the region
    row(u"PurchaseDate = #1/5/2005#"_s, u"1"_s);
    row(u"PurchaseDate = #2005-01-05#"_s, u"1"_s);
    row(u"PurchaseDate = #13/2/2005#"_s, u"2"_s);
    row(u"PurchaseDate = #5 January 2005#"_s, u"1"_s);
    row(u"PurchaseDate >= #1/6/2005#"_s, u"2"_s);
    row(u"PurchaseDate > #1/5/2005# and PurchaseDate < #1/6/2005#"_s, u"5"_s);
    row(u"PurchaseDate = #1/5/2005 18:15:42#"_s, u"5"_s);
    row(u"PurchaseDate = #1/5/2005 6:15:42 PM#"_s, u"5"_s);
    row(u"PurchaseDate = #10:30:00 AM#"_s, u"3"_s);
    row(u"PurchaseDate <= #6:00:00 PM#"_s, u"3"_s);
    // Yes and no
    row(u"wantlist"_s, u"1 5"_s);
    row(u"not wantlist"_s, u"2 3"_s);
    row(u"wantlist = true and sold = No"_s, u"1"_s);
    row(u"sold=ON or wantlist=yes"_s, u"1 3 4 5"_s);
    row(u"(wantlist = off) and sold = FALSE"_s, u"2"_s);
    row(u"wantlist is null"_s, u"4"_s);
    row(u"catnum = 'yes' or notes = 'yes'"_s, u"5"_s);
}

void Criteria::selects()
{
    QFETCH(QString, criteria);
    QFETCH(QString, coins);
    // Found one by one in a dynaset, selected by a query, and found in a copy of the rows
    const auto found = [&criteria](auto &rows) {
        QStringList keys;
        for (rows.findFirst(criteria); !rows.noMatch(); rows.findNext(criteria))
            keys << rows.value(u"coinid").toText();
        return keys.join(u' ');
    };
    QCOMPARE(found(*m_database->openDynaset(u"select * from Coin"_s)), coins);
    const auto selected =
        m_database->openSnapshot(u"select coinid from Coin where %1 order by coinid"_s.arg(criteria));
    QCOMPARE(column(*selected, u"coinid"), coins);
    if (!criteria.contains(u"exists"_s))
        QCOMPARE(found(*m_database->openSnapshot(u"select * from Coin"_s)), coins);
}

void Criteria::queries_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("values");
    const auto row = [](const QString &sql, const QString &field, const QString &values) {
        QTest::newRow(qPrintable(sql)) << sql << field << values;
    };
    const QString countries = u"Oman Österreich ostfriesland Panama"_s;
    row(u"Select * from country order by coudesc"_s, u"CouDesc"_s, countries);
    row(u"Select * from country order by CouDesc;"_s, u"coudesc"_s, countries);
    row(u"select couid as id, coudesc as descr from country order by coudesc"_s, u"descr"_s, countries);
    row(u"select couid as id, coudesc as descr from country order by descr"_s, u"descr"_s, countries);
    row(u"select coudesc from country order by country.coudesc desc"_s, u"coudesc"_s,
        u"Panama ostfriesland Österreich Oman"_s);
    row(u"select c.coudesc from country as c order by c.[coudesc]"_s, u"coudesc"_s, countries);
    row(u"select coudesc from country c order by coudesc asc"_s, u"coudesc"_s, countries);
    row(u"select distinct coudesc from country order by coudesc"_s, u"coudesc"_s, countries);
    row(u"select length(coudesc) as coudesc, couid from country order by coudesc, couid"_s, u"couid"_s,
        u"2 3 1 4"_s);
    row(u"select coudesc from country order by lower(coudesc)"_s, u"coudesc"_s,
        u"Oman ostfriesland Panama Österreich"_s);
    row(u"select coudesc from country where couid > 1 union select fordesc from format order by coudesc"_s,
        u"coudesc"_s, u"Oman ostfriesland Panama round square"_s);
    row(u"select yes from format order by forid"_s, u"yes"_s, u"0 1"_s);
    row(u"select fordesc from format where yes = yes and yes = on"_s, u"fordesc"_s, u"square"_s);
    row(u"select forid from format where face < 2.5 order by fordesc"_s, u"forid"_s, u"1"_s);
    row(u"Select coinid, coudesc from Coin left join country on coin.couid = country.couid "
        u"where not wantlist and not sold  order by coudesc, descr"_s,
        u"coinid"_s, u"2"_s);
    row(u"Select coinid, coudesc from (coin left join country on coin.couid = country.couid) where  "
        u"PurchaseDate >= #1/5/2005# and Coin.face > 1 order by coudesc"_s,
        u"coinid"_s, u"5 1"_s);
    row(u"Select coinid, fordesc, coudesc from ((coin left join country on coin.couid = country.couid) "
        u"left join format on coin.forid = format.forid) order by coudesc desc, descr"_s,
        u"coinid"_s, u"1 5 2 3 4"_s);
    row(u"select coinid from Coin, format where Coin.face = format.face and format.face >= 2"_s, u"coinid"_s,
        u"5"_s);
    row(u"select coinid from Coin order by descr"_s, u"coinid"_s, u"5 3 4 1 2"_s);
    row(u"select coinid from Coin order by descr limit 2"_s, u"coinid"_s, u"5 3"_s);
    row(u"select max(face) as f from Coin"_s, u"f"_s, u"25000"_s);
}

void Criteria::queries()
{
    QFETCH(QString, sql);
    QFETCH(QString, field);
    const auto rows = m_database->openSnapshot(sql);
    QTEST(column(*rows, field), "values");
    const auto streamed = m_database->openForwardOnly(sql);
    QTEST(column(*streamed, field), "values");
}

void Criteria::refuses_data()
{
    QTest::addColumn<QString>("criteria");
    QTest::addColumn<int>("number");
    const auto row = [](const QString &criteria, int number) {
        QTest::newRow(qPrintable(criteria)) << criteria << number;
    };
    row(u"descr like \"*"_s, SyntaxError);
    row(u"descr like '*"_s, SyntaxError);
    row(u"descr like 'a' b'"_s, SyntaxError);
    row(u"issuedate = #1/5/2005"_s, SyntaxError);
    row(u"issuedate = #soon#"_s, SyntaxError);
    row(u"issuedate = ##"_s, SyntaxError);
    row(u"[descr like 'a'"_s, SyntaxError);
    row(u""_s, SyntaxError);
    row(u" "_s, SyntaxError);
    row(u"descr ="_s, SyntaxError);
    row(u"face > 1,000"_s, SyntaxError);
    row(u"face > $5"_s, SyntaxError);
    row(u"face > ?"_s, SyntaxError);
    row(u"face > :a"_s, SyntaxError);
    row(u"1=1) or (1=1"_s, SyntaxError);
    row(u"(1=1"_s, SyntaxError);
    row(u"1=1 --"_s, SyntaxError);
    row(u"1=1 /* x"_s, SyntaxError);
    row(u"1=1; delete from Coin"_s, SyntaxError);
    row(u"1=1 order by descr"_s, SyntaxError);
    row(u"nosuchfunction(descr) = 1"_s, SyntaxError);
    row(u"description = 'a'"_s, UnknownColumn);
    row(u"[no such] = 1"_s, UnknownColumn);
    row(u"country.coudesc = 'a'"_s, UnknownColumn);
    row(u"couid in (select couid from nosuchtable)"_s, UnknownTable);
}

void Criteria::refuses()
{
    QFETCH(QString, criteria);
    QFETCH(int, number);
    const auto rows = m_database->openDynaset(u"select * from Coin order by descr"_s);
    QCOMPARE(errorOf([&] { rows->findFirst(criteria); }), number);
    QCOMPARE(errorOf([&] { rows->findNext(criteria); }), number);
    if (number == SyntaxError)
        QCOMPARE(errorTextOf([&] { rows->findFirst(criteria); }),
                 u"Syntax error in query expression '%1'."_s.arg(criteria));
    QCOMPARE(rows->value(u"coinid").toInt(), 5); // nothing has moved
    QCOMPARE(rows->recordCount(), 5);
    const auto copy = m_database->openSnapshot(u"select * from Coin"_s);
    QCOMPARE(errorOf([&] { copy->findLast(criteria); }), number);
}

void Criteria::dynasetQueries_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("number");
    QTest::newRow("any letter case") << u"SELECT * FROM coin ORDER BY DESCR"_s << 0;
    QTest::newRow("brackets, table name, asc")
        << u"select * from [Coin] order by coin.[Year] asc, [descr];"_s << 0;
    QTest::newRow("unknown table") << u"select * from coins"_s << int(UnknownTable);
    QTest::newRow("unknown column") << u"select * from Coin order by description"_s << int(UnknownColumn);
    QTest::newRow("no select") << u"delete from Coin"_s << int(SyntaxError);
    QTest::newRow("columns") << u"select descr from Coin"_s << int(SyntaxError);
    QTest::newRow("condition") << u"select * from Coin where sold"_s << int(SyntaxError);
    QTest::newRow("join") << u"select * from Coin, country"_s << int(SyntaxError);
    QTest::newRow("no column") << u"select * from Coin order by"_s << int(SyntaxError);
}

void Criteria::dynasetQueries()
{
    QFETCH(QString, sql);
    QTEST(errorOf([&] { m_database->openDynaset(sql); }), "number");
    if (sql.startsWith(u"delete"_s)) {
        QCOMPARE(errorOf([&] { m_database->openSnapshot(sql); }), int(SyntaxError));
        QCOMPARE(errorOf([&] { m_database->openForwardOnly(sql); }), int(SyntaxError));
    }
    QCOMPARE(errorTextOf([&] { m_database->openSnapshot(u"select a from Nowhere"_s); }),
             u"Could not find input table or query 'Nowhere'."_s);
    QCOMPARE(errorTextOf([&] { m_database->openSnapshot(u"select couid from coin, country"_s); }),
             u"The specified field 'couid' could refer to more than one table listed in the FROM clause of "
             u"your SQL "
             u"statement."_s);
    QCOMPARE(errorTextOf([&] { m_database->openSnapshot(u"select a from Coin"_s); }),
             u"Too few parameters. Expected 1."_s);
}

QTEST_APPLESS_MAIN(Criteria)
#include "Criteria.moc"
