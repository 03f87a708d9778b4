// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include "support/Cases.h"

using namespace obelmark;

/// The dialect of criteria and queries, by what it selects from real rows.
class Criteria : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
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

    void selects_data() { cases::add(); }
    void selects()
    {
        const auto [criteria, coins] = cases::row<2>();
        // Found one by one in a dynaset, selected by a query, and found in a copy of the rows
        const auto found = [&](auto &rows) {
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

    void queries_data() { cases::add(); }
    void queries()
    {
        const auto [result, sql] = cases::row<2>();
        const QString field = result.section(u':', 0, 0), values = result.section(u": "_s, 1);
        QCOMPARE(column(*m_database->openSnapshot(sql), field), values);
        QCOMPARE(column(*m_database->openForwardOnly(sql), field), values);
    }

    void refuses_data() { cases::add(); }
    void refuses()
    {
        const auto [digits, criteria] = cases::row<2>();
        const int number = digits.toInt();
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

    void dynasetQueries_data() { cases::add(); }
    void dynasetQueries()
    {
        const auto [name, number, sql] = cases::row<3>();
        QCOMPARE(errorOf([&] { m_database->openDynaset(sql); }), number.toInt());
        if (sql.startsWith(u"delete"_s)) {
            QCOMPARE(errorOf([&] { m_database->openSnapshot(sql); }), int(SyntaxError));
            QCOMPARE(errorOf([&] { m_database->openForwardOnly(sql); }), int(SyntaxError));
        }
        QCOMPARE(errorTextOf([&] { m_database->openSnapshot(u"select a from Nowhere"_s); }),
                 u"Could not find input table or query 'Nowhere'."_s);
        QCOMPARE(
            errorTextOf([&] { m_database->openSnapshot(u"select couid from coin, country"_s); }),
            u"The specified field 'couid' could refer to more than one table listed in the FROM clause of "
            u"your SQL "
            u"statement."_s);
        QCOMPARE(errorTextOf([&] { m_database->openSnapshot(u"select a from Coin"_s); }),
                 u"Too few parameters. Expected 1."_s);
    }

private:
    CoinFile m_file;
    std::unique_ptr<Database> m_database;
};

QTEST_APPLESS_MAIN(Criteria)
#include "Criteria.moc"
