// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include "support/Cases.h"

using namespace obelmark;

/// Copies of rows, and rows streamed.
class Snapshots : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_file = std::make_unique<CoinFile>();
        m_file->shell(uR"(
            insert into country(coudesc) values ('Österreich'), ('Oman');
            insert into Coin(descr, face, Year, sold, issuedate, couid, notes) values
            ('a', 25000, 1852, 1, '1852-05-03', 2, 'n'), ('b', null, null, null, null, null, null),
            ('c', -1, -5, 0, '1999-12-31T23:59:59', 1, '');)"_s);
        m_database = m_file->open();
    }

    void cleanup() { m_database.reset(); }
    void kinds()
    {
        const auto rows = m_database->openSnapshot(
            u"Select c.descr, c.face as price, c.Year, sold, c.issuedate, coudesc as country, c.face * 2 as "
            u"twice, "
            u"length(c.descr) / 2.0 as half, 'x' || c.descr as text, (select max(face) from coin) as best "
            u"from (coin as c left join country on c.couid = country.couid) order by c.descr"_s);
        QCOMPARE(rows->value(u"DESCR"), Value(u"a"_s));
        QCOMPARE(rows->value(u"price"), Value(Money::fromTenThousandths(25000)));
        QCOMPARE(rows->value(u"year"), Value(1852));
        QCOMPARE(rows->value(u"Sold"), Value(true));
        QCOMPARE(rows->value(u"issuedate"), Value(Date::from(QDate(1852, 5, 3))));
        QCOMPARE(rows->value(u"country"), Value(u"Oman"_s));
        QCOMPARE(rows->value(u"twice"), Value(50000));
        QCOMPARE(rows->value(u"half"), Value(0.5));
        QCOMPARE(rows->value(u"text"), Value(u"xa"_s));
        QCOMPARE(rows->value(u"best"), Value(25000)); // an expression has no kind of its own
        QCOMPARE(errorOf([&] { rows->value(u"face"); }), int(UnknownColumn));
        rows->moveNext();
        for (const QStringView field : {u"price", u"year", u"sold", u"issuedate", u"country", u"twice"})
            QVERIFY2(rows->value(field).isNull(), qPrintable(field.toString()));
        rows->moveNext();
        QCOMPARE(rows->value(u"issuedate"), Value(Date::from(QDate(1999, 12, 31), QTime(23, 59, 59))));
        QCOMPARE(rows->value(u"country"), Value(u"Österreich"_s));
        // Of two columns of one name the first is meant
        const auto joined =
            m_database->openSnapshot(u"select * from coin, country where coin.couid = country.couid "
                                     u"and coinid = 1"_s);
        QCOMPARE(joined->value(u"couid"), Value(2));
    }

    void moves()
    {
        const auto rows = m_database->openSnapshot(u"select * from Coin order by descr"_s);
        const auto at = [&rows] { return rows->value(u"descr").toText(); };
        QCOMPARE(rows->recordCount(), 3);
        QCOMPARE(at(), u"a"_s);
        rows->movePrevious();
        QVERIFY(rows->bof() && !rows->eof());
        QCOMPARE(errorOf([&] { at(); }), int(NoCurrentRecord));
        QCOMPARE(errorOf([&] { rows->movePrevious(); }), int(NoCurrentRecord));
        QCOMPARE(errorOf([&] { rows->findNext(u"coinid = 1"_s); }), int(NoCurrentRecord));
        rows->moveNext();
        QCOMPARE(at(), u"a"_s);
        rows->moveLast();
        QCOMPARE(at(), u"c"_s);
        rows->moveNext();
        QVERIFY(rows->eof() && !rows->bof());
        QCOMPARE(errorOf([&] { rows->moveNext(); }), int(NoCurrentRecord));
        QCOMPARE(errorOf([&] { rows->findPrevious(u"coinid = 1"_s); }), int(NoCurrentRecord));
        rows->movePrevious();
        QCOMPARE(at(), u"c"_s);
        rows->moveFirst();
        QCOMPARE(at(), u"a"_s);
        rows->close();
        QCOMPARE(errorOf([&] { rows->recordCount(); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { rows->close(); }), int(ObjectClosed));
    }

    void unaffectedByWrites()
    {
        const auto copy = m_database->openSnapshot(u"select * from Coin order by descr"_s);
        const auto rows = m_database->openDynaset(u"select * from Coin order by descr"_s);
        rows->remove();
        rows->moveNext();
        rows->edit();
        rows->setValue(u"descr", u"z"_s);
        rows->update();
        addRow(*rows, {{u"descr", u"new"_s}});
        QCOMPARE(column(*copy, u"descr"), u"a b c"_s);
        copy->findFirst(u"descr = 'z'"_s);
        QVERIFY(copy->noMatch());
    }

    void finds_data() { cases::add(); }
    void finds()
    {
        const auto [criteria, expected] = cases::row<2>();
        const auto rows = m_database->openSnapshot(u"select * from Coin order by descr"_s);
        const auto find = [&](void (Recordset::*direction)(const QString &)) {
            rows->moveFirst();
            rows->moveNext();
            ((*rows).*direction)(criteria);
            const QString current = rows->value(u"descr").toText();
            return rows->noMatch() && current == u"b"_s ? u"-"_s : current; // without a match the row stays
        };
        for (int i = 0; i < 2; ++i) { // made ready, and used again
            const QStringList found{find(&Recordset::findFirst), find(&Recordset::findLast),
                                    find(&Recordset::findNext), find(&Recordset::findPrevious)};
            QCOMPARE(found.join(u' '), expected);
        }
    }

    void empty()
    {
        const auto rows = m_database->openSnapshot(u"select * from Coin where coinid > 99"_s);
        QVERIFY(rows->bof() && rows->eof() && rows->isEmpty());
        QCOMPARE(rows->recordCount(), 0);
        for (const auto move :
             {&Recordset::moveFirst, &Recordset::moveLast, &Recordset::moveNext, &Recordset::movePrevious})
            QCOMPARE(errorOf([&] { ((*rows).*move)(); }), int(NoCurrentRecord));
        QCOMPARE(errorOf([&] { rows->value(u"descr"); }), int(NoCurrentRecord));
        rows->findFirst(u"coinid = 1"_s);
        QVERIFY(rows->noMatch());
    }

    void streams()
    {
        const auto rows = m_database->openForwardOnly(u"select descr, face from Coin order by descr"_s);
        QCOMPARE(rows->value(u"face"), Value(Money::fromTenThousandths(25000)));
        QCOMPARE(rows->value(u"Descr"), Value(u"a"_s));
        QCOMPARE(errorOf([&] { rows->value(u"notes"); }), int(UnknownColumn));
        rows->moveNext();
        QVERIFY(rows->value(u"face").isNull());
        rows->moveNext();
        rows->moveNext();
        QVERIFY(rows->eof());
        QCOMPARE(errorOf([&] { rows->value(u"descr"); }), int(NoCurrentRecord));
        QCOMPARE(errorOf([&] { rows->moveNext(); }), int(NoCurrentRecord));
        rows->close();
        QCOMPARE(errorOf([&] { rows->eof(); }), int(ObjectClosed));
        QVERIFY(m_database->openForwardOnly(u"select descr from Coin where coinid > 99"_s)->eof());
    }

    void manyRows()
    {
        m_database.reset();
        m_file->shell(
            u"delete from Coin; with n(i) as (values (1) union all select i + 1 from n where i < 30000) "
            u"insert into Coin(descr, face, notes) select nullif(i % 10, 0) || ' Ж', i * 100, "
            u"substr('notes of any length', 1, i % 20) from n;"_s);
        m_database = m_file->open();
        const QString sql =
            u"select coinid, descr, face, notes, coinid * 0.5 as half from Coin order by face"_s;
        const auto rows = m_database->openSnapshot(sql);
        const auto streamed = m_database->openForwardOnly(sql);
        QCOMPARE(rows->recordCount(), 30000);
        qint64 number = 0;
        for (; !rows->eof(); rows->moveNext(), streamed->moveNext()) {
            QCOMPARE(rows->value(u"face"), Value(Money::fromTenThousandths(++number * 100)));
            const Value descr = number % 10 ? Value(u"%1 Ж"_s.arg(number % 10)) : Value();
            const Value notes = u"notes of any length"_s.first(number % 20 ? number % 20 : 0);
            QCOMPARE(rows->value(u"descr"), descr);
            QCOMPARE(rows->value(u"notes"), notes);
            QCOMPARE(streamed->value(u"notes"), notes);
            QCOMPARE(streamed->value(u"half"), rows->value(u"half"));
        }
        QVERIFY(streamed->eof());
    }

private:
    std::unique_ptr<CoinFile> m_file;
    std::unique_ptr<Database> m_database;
};

QTEST_APPLESS_MAIN(Snapshots)
#include "Snapshots.moc"
