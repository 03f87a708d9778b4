// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include "engine/rows/Transaction.h"
#include "support/Cases.h"
#include <QTest>
#include <sqlite3.h>

using namespace obelmark;

namespace {

using Step = std::function<void(Dynaset &)>;

void beginEdit(Dynaset &rows)
{
    rows.edit();
    rows.setValue(u"descr", u"changed"_s);
}

/// A value as the table of cases writes it: its kind, and the rest.
Value valueOf(const QString &text)
{
    const QString kind = text.section(u' ', 0, 0), rest = text.section(u' ', 1);
    if (kind == u"integer")
        return Value(rest.toLongLong());
    if (kind == u"number")
        return Value(rest.toDouble());
    if (kind == u"money")
        return Money::fromTenThousandths(rest.toLongLong());
    if (kind == u"date")
        return fromIsoText(rest).value();
    if (kind == u"mark")
        return Value(rest == u"yes");
    if (kind == u"letters")
        return Value(rest.section(u' ', 1).repeated(rest.section(u' ', 0, 0).toInt()));
    return kind == u"text" ? Value(rest.isNull() ? u""_s : rest) : Value();
}

} // namespace
Q_DECLARE_METATYPE(Step)

/// What a dynaset allows in which state, what it writes, and what it keeps when writing fails.
class RecordRules : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_file = std::make_unique<CoinFile>();
        m_file->shell(
            u"insert into Coin(descr, quantity, face) values ('a', 1, 10000), ('b', 2, null), ('c', 3, null);"_s);
        m_database = m_file->open();
        m_rows = m_database->openDynaset(u"select * from Coin order by descr"_s);
    }

    void cleanup() { m_database.reset(); }
    void errors_data()
    {
        QTest::addColumn<Step>("before");
        QTest::addColumn<Step>("step");
        QTest::addColumn<int>("number");
        const auto row = [](const char *name, const Step &before, const Step &step, int number) {
            QTest::newRow(name) << before << step << number;
        };
        const Step nothing = [](Dynaset &) {};
        const Step toEof = [](Dynaset &r) { r.moveLast(), r.moveNext(); };
        const Step toBof = [](Dynaset &r) { r.movePrevious(); };
        const Step remove = [](Dynaset &r) { r.remove(); };
        const Step read = [](Dynaset &r) { r.value(u"descr"); };
        row(
            "update without edit", nothing, [](Dynaset &r) { r.update(); }, UpdateWithoutEdit);
        row(
            "cancelUpdate without edit", nothing, [](Dynaset &r) { r.cancelUpdate(); }, UpdateWithoutEdit);
        row(
            "setValue without edit", nothing, [](Dynaset &r) { r.setValue(u"descr", Value()); },
            UpdateWithoutEdit);
        row(
            "second update", beginEdit, [](Dynaset &r) { r.update(), r.update(); }, UpdateWithoutEdit);
        row(
            "update after a move", [](Dynaset &r) { beginEdit(r), r.moveNext(); },
            [](Dynaset &r) { r.update(); }, UpdateWithoutEdit);
        row(
            "update after a find", [](Dynaset &r) { r.addNew(), r.findFirst(u"coinid = 9"_s); },
            [](Dynaset &r) { r.update(); }, UpdateWithoutEdit);
        row("edit at eof", toEof, beginEdit, NoCurrentRecord);
        row("remove at eof", toEof, remove, NoCurrentRecord);
        row("deleted: edit", remove, beginEdit, RecordDeleted);
        row("deleted: remove", remove, remove, RecordDeleted);
        row(
            "unknown field", nothing, [](Dynaset &r) { r.value(u"description"); }, UnknownColumn);
        row(
            "unknown field written", [](Dynaset &r) { r.edit(); },
            [](Dynaset &r) { r.setValue(u"description", Value()); }, UnknownColumn);
    }

    void errors()
    {
        QFETCH(Step, before);
        QFETCH(Step, step);
        before(*m_rows);
        QTEST(errorOf([&] { step(*m_rows); }), "number");
    }

    void discarded_data()
    {
        QTest::addColumn<Step>("step");
        QTest::addColumn<QString>("current");
        const auto row = [](const char *name, const QString &current, const Step &step) {
            QTest::newRow(name) << step << current;
        };
        row("move", u"b"_s, [](Dynaset &r) { r.moveNext(); });
        row("find", u"c"_s, [](Dynaset &r) { r.findLast(u"quantity > 1"_s); });
        row("find without match", u"a"_s, [](Dynaset &r) { r.findLast(u"quantity > 5"_s); });
        row("edit again", u"a"_s, [](Dynaset &r) { r.edit(), r.update(); });
        row("cancelUpdate", u"a"_s, [](Dynaset &r) { r.cancelUpdate(); });
        row("another addNew", u"a"_s, [](Dynaset &r) { r.addNew(), r.cancelUpdate(); });
    }

    void discarded()
    {
        QFETCH(Step, step);
        for (const Step &begin :
             {Step(beginEdit), Step([](Dynaset &r) { r.addNew(), r.setValue(u"descr", u"changed"_s); })}) {
            m_rows->moveFirst();
            begin(*m_rows);
            QCOMPARE(m_rows->value(u"descr").toText(), u"changed"_s); // the begun row is what is read
            step(*m_rows);
            QTEST(m_rows->value(u"descr").toText(), "current");
            QCOMPARE(stored(u"descr = 'changed'"_s), 0);
            QCOMPARE(m_rows->recordCount(), 3);
        }
    }

    void counter()
    {
        const auto other = m_database->openDynaset(u"select * from Coin"_s);
        m_rows->addNew();
        QCOMPARE(m_rows->value(u"coinid"), Value(4)); // readable before it is saved
        QVERIFY(m_rows->value(u"descr").isNull() && m_rows->value(u"sold").isNull());
        QCOMPARE(errorOf([&] { m_rows->setValue(u"coinid", 9); }), int(DataTypeConversion));
        QCOMPARE(errorOf([&] { m_rows->setValue(u"coinid", Value()); }), int(DataTypeConversion));
        QCOMPARE(addRow(*other, {}), 5); // 4 is taken by the begun row
        m_rows->update();
        QCOMPARE(m_rows->value(u"descr").toText(), u"a"_s); // the row current before
        QCOMPARE(stored(u"coinid in (4, 5)"_s), 2);
        m_rows->findFirst(u"coinid = 5"_s);
        m_rows->remove();
        m_rows->addNew(); // abandoned
        QCOMPARE(addRow(*m_rows, {}), 7);
        // Other tables count for themselves
        const auto categories = m_database->openDynaset(u"select * from category"_s);
        categories->addNew();
        QCOMPARE(categories->value(u"catid"), Value(1));
    }

    void counterSurvivesClosing()
    {
        m_rows->findFirst(u"coinid = 3"_s);
        m_rows->remove();
        m_database.reset();
        m_file->shell(u"insert into Coin(coinid) values (90); delete from Coin where coinid = 90;"_s);
        m_database = m_file->open();
        const auto rows = m_database->openDynaset(u"select * from Coin"_s);
        QCOMPARE(addRow(*rows, {}), 91);
        rows->close();
        m_database.reset();
        m_file->shell(u"update sqlite_sequence set seq = 2147483647 where name = 'Coin';"_s);
        m_database = m_file->open();
        QCOMPARE(errorOf([&] { m_database->openDynaset(u"select * from Coin"_s)->addNew(); }), int(Overflow));
    }

    void values_data() { cases::add(); }
    void values()
    {
        const auto [name, field, text, error] = cases::row<4>();
        const Value value = valueOf(text);
        const int number = error.toInt();
        m_rows->edit();
        const Value before = m_rows->value(field);
        QCOMPARE(errorOf([&] { m_rows->setValue(field, value); }), number);
        const Value expected = number == 0 ? value : before;
        QCOMPARE(m_rows->value(field), expected);
        m_rows->update();
        m_rows->findFirst(u"coinid = 1"_s);
        QCOMPARE(m_rows->value(field), expected);
        m_rows->addNew();
        QCOMPARE(errorOf([&] { m_rows->setValue(field, value); }), number);
        m_rows->update();
        m_rows->findFirst(u"coinid = 4"_s);
        QCOMPARE(m_rows->value(field), number == 0 ? value : Value());
    }

    void unreadableValues()
    {
        m_database.reset();
        m_file->shell(
            u"update Coin set descr = x'FF', Year = 'old', quantity = 2.5, face = 'much', sold = 'maybe', "
            u"issuedate = '5/3/1852', PurchaseDate = 1852, SoldDate = '1852-02-30', conid = 99999999999, "
            u"wantlist = -1, forsale = 0.5, pricepaid = 1.5 where coinid = 1;"_s);
        m_database = m_file->open();
        const auto rows = m_database->openDynaset(u"select * from Coin"_s);
        for (const QStringView field : {u"descr", u"Year", u"quantity", u"face", u"sold", u"issuedate",
                                        u"PurchaseDate", u"SoldDate", u"conid", u"pricepaid"})
            QVERIFY2(rows->value(field).isNull(), qPrintable(field.toString()));
        QCOMPARE(rows->value(u"wantlist"), Value(true));
        QCOMPARE(rows->value(u"forsale"), Value(true));
        // Editing something else leaves them as they are
        rows->edit();
        rows->setValue(u"notes", u"n"_s);
        rows->update();
        QCOMPARE(stored(u"Year = 'old' and face = 'much' and quantity = 2.5 and notes = 'n'"_s), 1);
    }

    void writesCompanions()
    {
        const auto companions = [this] {
            const auto rows =
                m_database->openSnapshot(u"select descrsort, catnumsort from Coin order by coinid"_s);
            return column(*rows, u"descrsort");
        };
        beginEdit(*m_rows);
        m_rows->setValue(u"descr", u"Écu"_s);
        m_rows->update();
        addRow(*m_rows, {{u"descr", u"ΛΌΓΟΣ"_s}, {u"catnum", u"KM 1"_s}});
        addRow(*m_rows, {});
        QCOMPARE(companions(), u"ecu b c λογοσ -"_s);
        m_rows->findFirst(u"coinid = 4"_s);
        m_rows->edit();
        m_rows->setValue(u"descr", Value());
        m_rows->update();
        QCOMPARE(companions(), u"ecu b c - -"_s);
        QCOMPARE(stored(u"catnumsort = 'km 1'"_s), 1);
        m_database.reset();
        QCOMPARE(m_file->shell(u"pragma integrity_check;"_s), u"ok"_s);
    }

    void twoRecordsets()
    {
        const auto other = m_database->openDynaset(u"select * from Coin order by descr"_s);
        beginEdit(*other);
        other->update();
        QCOMPARE(m_rows->value(u"descr").toText(), u"changed"_s);
        // Only the columns set are written: what the other one changes meanwhile stays
        m_rows->edit();
        m_rows->setValue(u"quantity", 7);
        other->edit();
        other->setValue(u"notes", u"from the other"_s);
        other->update();
        m_rows->update();
        QCOMPARE(stored(u"quantity = 7 and notes = 'from the other'"_s), 1);
        // Deleted while being changed
        m_rows->edit();
        m_rows->setValue(u"quantity", 8);
        other->remove();
        QCOMPARE(errorOf([&] { m_rows->update(); }), int(RecordDeleted));
        QCOMPARE(m_rows->value(u"quantity"), Value(8));
        m_rows->cancelUpdate();
        QCOMPARE(errorOf([&] { m_rows->value(u"quantity"); }), int(RecordDeleted));
        QCOMPARE(errorOf([&] { m_rows->edit(); }), int(RecordDeleted));
        m_rows->moveFirst();
        QCOMPARE(column(*m_rows, u"descr"), u"b c"_s);
        // Likewise without a change
        m_rows->moveFirst();
        m_rows->edit();
        other->findFirst(u"descr = 'b'"_s);
        other->remove();
        QCOMPARE(errorOf([&] { m_rows->update(); }), int(RecordDeleted));
    }

    void failedWriteKeepsTheRow_data() { cases::add(); }
    void failedWriteKeepsTheRow()
    {
        const auto [name, code, error] = cases::row<3>();
        const int number = error.toInt();
        const auto fail = [resultCode = code.toInt()](FaultPoint point) {
            return point == FaultPoint::Query ? 0 : resultCode;
        };
        beginEdit(*m_rows);
        m_database->setFaultHook(fail);
        QCOMPARE(errorOf([&] { m_rows->update(); }), number);
        if (number == DiskFull)
            QCOMPARE(errorTextOf([&] { m_rows->update(); }), u"Disk full"_s);
        m_database->setFaultHook({});
        QCOMPARE(stored(u"descr = 'changed'"_s), 0);
        m_rows->update();
        QCOMPARE(stored(u"descr = 'changed'"_s), 1);

        m_rows->addNew();
        m_rows->setValue(u"descr", u"new"_s);
        m_database->setFaultHook(fail);
        QCOMPARE(errorOf([&] { m_rows->update(); }), number);
        m_database->setFaultHook({});
        QCOMPARE(m_rows->value(u"coinid"), Value(4));
        m_rows->update();
        QCOMPARE(stored(u"descr = 'new' and coinid = 4"_s), 1);

        m_database->setFaultHook(fail);
        QCOMPARE(errorOf([&] { m_rows->remove(); }), number);
        m_database->setFaultHook({});
        QCOMPARE(m_rows->value(u"descr").toText(), u"changed"_s);
        m_rows->remove();
        QCOMPARE(stored(u"descr = 'changed'"_s), 0);
    }

    void lockedForAWhile()
    {
        int failures = 99;
        m_database->setFaultHook([&failures](FaultPoint point) {
            return point == FaultPoint::Update && failures-- > 0 ? SQLITE_BUSY : 0;
        });
        beginEdit(*m_rows);
        int tries = 1;
        for (; errorOf([&] { m_rows->update(); }) == RecordLocked; ++tries) {
        }
        QCOMPARE(tries, 100);
        QCOMPARE(m_rows->value(u"descr").toText(), u"changed"_s);
        // Moves and finds that cannot read leave everything as it was
        m_database->setFaultHook(
            [](FaultPoint point) { return point == FaultPoint::Query ? SQLITE_IOERR : 0; });
        QCOMPARE(errorOf([&] { m_rows->moveNext(); }), int(PathFileAccess));
        QCOMPARE(errorOf([&] { m_rows->findFirst(u"coinid = 2"_s); }), int(PathFileAccess));
        QCOMPARE(errorOf([&] { m_database->openDynaset(u"select * from Coin"_s); }), int(PathFileAccess));
        QCOMPARE(errorOf([&] { m_database->openSnapshot(u"select * from Coin"_s); }), int(PathFileAccess));
        QCOMPARE(m_rows->value(u"descr").toText(), u"changed"_s);
    }

    void transactions()
    {
        {
            Transaction outer(*m_database);
            addRow(*m_rows, {{u"descr", u"kept"_s}});
            {
                Transaction inner(*m_database);
                addRow(*m_rows, {{u"descr", u"dropped"_s}});
                beginEdit(*m_rows);
                m_rows->update();
                QCOMPARE(m_rows->recordCount(), 5);
            }
            QCOMPARE(m_rows->recordCount(), 4);
            QCOMPARE(m_rows->value(u"descr").toText(), u"a"_s);
            Transaction second(*m_database);
            QCOMPARE(addRow(*m_rows, {}), 6); // a number once given stays given
            m_rows->moveNext();
            m_rows->remove();
            second.commit();
            outer.commit();
        }
        m_rows->moveFirst();
        QCOMPARE(column(*m_rows, u"coinid"), u"6 1 3 4"_s);
        {
            const Transaction dropped(*m_database);
            m_rows->moveLast();
            m_rows->remove();
        }
        QCOMPARE(m_rows->recordCount(), 4);
        m_database.reset();
        QCOMPARE(m_file->shell(u"select group_concat(coinid) from Coin;"_s), u"1,3,4,6"_s);
    }

    void closing()
    {
        const Step uses[] = {[](Dynaset &r) { r.bof(); },
                             [](Dynaset &r) { r.eof(); },
                             [](Dynaset &r) { r.isEmpty(); },
                             [](Dynaset &r) { r.recordCount(); },
                             [](Dynaset &r) { r.moveFirst(); },
                             [](Dynaset &r) { r.moveNext(); },
                             [](Dynaset &r) { r.findFirst(u"coinid = 1"_s); },
                             [](Dynaset &r) { r.noMatch(); },
                             [](Dynaset &r) { r.value(u"descr"); },
                             [](Dynaset &r) { r.addNew(); },
                             [](Dynaset &r) { r.edit(); },
                             [](Dynaset &r) { r.setValue(u"descr", Value()); },
                             [](Dynaset &r) { r.update(); },
                             [](Dynaset &r) { r.cancelUpdate(); },
                             [](Dynaset &r) { r.remove(); },
                             [](Dynaset &r) { r.close(); }};
        const auto closed = m_database->openDynaset(u"select * from Coin"_s);
        closed->edit();
        closed->close();
        const auto snapshot = m_database->openSnapshot(u"select * from Coin"_s);
        snapshot->findFirst(u"coinid = 2"_s);
        const auto streamed = m_database->openForwardOnly(u"select * from Coin"_s);
        beginEdit(*m_rows);
        m_database.reset(); // while all of them are open, one in the middle of its rows
        for (const Step &use : uses) {
            QCOMPARE(errorOf([&] { use(*closed); }), int(ObjectClosed));
            QCOMPARE(errorOf([&] { use(*m_rows); }), int(ObjectClosed));
        }
        QCOMPARE(errorOf([&] { snapshot->moveNext(); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { snapshot->value(u"descr"); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { snapshot->close(); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { streamed->eof(); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { streamed->moveNext(); }), int(ObjectClosed));
        QCOMPARE(errorOf([&] { streamed->close(); }), int(ObjectClosed));
        // The file is free again, and no journal is left
        QCOMPARE(m_file->shell(u"select count(*) from Coin where descr = 'changed';"_s), u"0"_s);
        QCOMPARE(QDir(m_file->folder()).entryList(QDir::Files), QStringList{u"coin.mdb"_s});
    }

private:
    qint64 stored(const QString &condition)
    {
        return m_database->openSnapshot(u"select coinid from Coin where "_s + condition)->recordCount();
    }

    std::unique_ptr<CoinFile> m_file;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Dynaset> m_rows; ///< coins a, b, c in this order; a is current
};

QTEST_APPLESS_MAIN(RecordRules)
#include "RecordRules.moc"
