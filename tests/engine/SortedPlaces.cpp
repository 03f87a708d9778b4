// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "support/Cases.h"

using namespace obelmark;

/// Where rows stand in a dynaset: moves in both directions, and finds, against orders written down by hand.
class SortedPlaces : public QObject
{
    Q_OBJECT
private slots:
    void orders_data() { cases::add(); }
    void orders()
    {
        const auto [name, keys, query, rows] = cases::row<4>();
        const QString sql = query.isEmpty() ? u"Select * from Coin order by Descr"_s : query;
        const CoinFile file;
        QCOMPARE(file.shell(rows + u';'), QString());
        const auto database = file.open();
        const auto dynaset = database->openDynaset(sql);
        QCOMPARE(column(*dynaset, u"coinid"), keys);
        QVERIFY(dynaset->eof());
        if (!dynaset->isEmpty())
            QCOMPARE(backward(*dynaset, u"coinid"), keys);
    }

    void neighboursOfChangedRows()
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

    void findsFarAway()
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

private:
    static QString backward(Dynaset &rows, QStringView field)
    {
        QStringList texts;
        for (rows.moveLast(); !rows.bof(); rows.movePrevious()) {
            const Value value = rows.value(field);
            texts.prepend(value.isNull() ? u"-"_s : value.toText());
        }
        return texts.join(u' ');
    }
};

QTEST_APPLESS_MAIN(SortedPlaces)
#include "SortedPlaces.moc"
