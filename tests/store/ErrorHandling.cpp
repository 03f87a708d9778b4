// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/ErrorHandling.h"
#include "common/SharedState.h"
#include "engine/language/EngineError.h"
#include "store/CoinFile.h"
#include "support/Cases.h"
#include "support/ScriptedDesktop.h"
#include "support/TestCollection.h"
#include <sqlite3.h>

using namespace obelmark;
using Answer = Desktop::Answer;

namespace {

const QString lockQuestion = u"Could not update locked record.  Do you wish to try again?"_s;
const QString lockTitle = u"Locked Record"_s;

struct Program
{
    ScriptedDesktop desktop;
    SharedState shared{desktop, RegionalSettings(QLocale(u"en_US"_s))};

    void open(const TestCollection &collection)
    {
        shared.DatabasePath = collection.databasePath();
        shared.CoinDatabase = openCoinDatabase(shared.DatabasePath);
        shared.CoinRecordset = openCoins(*shared.CoinDatabase);
    }
};

} // namespace

class ErrorHandlingTest : public QObject
{
    Q_OBJECT
private slots:
    void whatAnErrorComesTo_data() { cases::add(); }
    void whatAnErrorComesTo()
    {
        const auto [name, code, description, message] = cases::row<4>();
        const int number = code.toInt();
        Program program;
        if (!message.isEmpty())
            program.desktop.expectMessage(message);
        bool ended = false;
        try {
            DbErrorHandler(program.shared, NumberedError(number, description));
        } catch (const ProgramEnded &) {
            ended = true;
        }
        QCOMPARE(ended, !message.isEmpty());
        QCOMPARE(program.desktop.problems(), QStringList());
        QCOMPARE(program.shared.FindCancelled, number == 32755);
        QCOMPARE(program.shared.LockRetryAgain, number == 3168 || number == 3260);
    }

    void lockedRow()
    {
        // 99 failures pass in silence, the 100th asks, and so does every 99th further one.
        for (const auto &[failures, questions] : {std::pair(99, 0), {100, 1}, {198, 1}, {199, 2}}) {
            TestCollection collection;
            Program program;
            program.open(collection);
            for (int i = 0; i < questions; ++i)
                program.desktop.answerYesNo(lockQuestion, lockTitle, Answer::Yes);
            int left = failures;
            program.shared.CoinDatabase->setFaultHook([&](FaultPoint point) {
                return point == FaultPoint::Update && left-- > 0 ? SQLITE_BUSY : 0;
            });
            auto &coins = *program.shared.CoinRecordset;
            coins.addNew();
            coins.setValue(u"descr", u"Penny"_s);
            QVERIFY(writeWithRetry(program.shared, [&] { coins.update(); }));
            QCOMPARE(program.desktop.problems(), QStringList());
            QCOMPARE(coins.recordCount(), 1);
        }
    }

    void refusingToTryAgainEndsTheProgram()
    {
        TestCollection collection;
        Program program;
        program.open(collection);
        program.desktop.answerYesNo(lockQuestion, lockTitle, Answer::No);
        program.shared.CoinDatabase->setFaultHook([](FaultPoint) { return SQLITE_BUSY; });
        auto &coins = *program.shared.CoinRecordset;
        coins.addNew();
        coins.setValue(u"descr", u"Penny"_s);
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, writeWithRetry(program.shared, [&] { coins.update(); }));
        QCOMPARE(program.desktop.problems(), QStringList());
    }

    // A page of the coins is destroyed while the file is open: the rest is saved, the damaged file kept, and
    // the recordset is usable again.
    void damagedFileIsRepairedAndOpenedAgain()
    {
        TestCollection collection;
        collection.exec(u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 3000) "
                        "insert into Coin (descr, notes) select 'Coin ' || i, hex(zeroblob(100)) from n"_s);
        {
            Program fillsSortKeys;
            fillsSortKeys.open(collection);
        }
        {
            QFile file(collection.databasePath());
            QVERIFY(file.open(QIODevice::ReadWrite));
            const QByteArray bytes = file.readAll();
            const auto at = bytes.indexOf("Coin 1567") / 4096 * 4096;
            QVERIFY(at > 0);
            file.seek(at);
            file.write(QByteArray(4096, '\xee'));
        }
        Program program;
        program.open(collection);
        bool repaired = false;
        try {
            attempt(program.shared, [&] { program.shared.CoinRecordset->findFirst(u"notes = 'nowhere'"_s); });
        } catch (const DatabaseRepaired &) {
            repaired = true;
        }
        QVERIFY(repaired);
        QCOMPARE(program.desktop.calls().size(), 1);
        const QString told = program.desktop.calls().first().text;
        const qint64 saved = coinRecordset(program.shared).recordCount();
        QVERIFY2(saved > 2900 && saved < 3000, qPrintable(QString::number(saved)));
        QVERIFY2(told.contains(u"Coin: %1"_s.arg(saved)), qPrintable(told));
        QVERIFY2(told.contains(u"coin-damaged.mdb"_s), qPrintable(told));
        QVERIFY(QFile::exists(collection.folder() + u"coin-damaged.mdb"_s));
    }

    // What another tool changed is in its place again after the next opening, catalogue order included.
    void changesByAnotherToolAreSortedAgain()
    {
        TestCollection collection;
        collection.exec(
            u"insert into Coin (descr, catnum) values ('b', 'KM 10'), ('a', 'KM 9'), ('Ä', 'KM 100')"_s);
        {
            Program program;
            program.open(collection);
        }
        collection.exec(u"update Coin set descr = 'Zz', catnum = 'KM 2' where descr = 'a'"_s);
        Program program;
        program.open(collection);
        const auto walk = [](Dynaset &coins) {
            QStringList texts;
            for (; !coins.eof(); coins.moveNext())
                texts << coins.value(u"descr").toText();
            return texts;
        };
        QCOMPARE(walk(*program.shared.CoinRecordset), QStringList({u"Ä"_s, u"b"_s, u"Zz"_s}));
        QCOMPARE(walk(*openCoins(*program.shared.CoinDatabase, CoinOrder::CatalogueNumber)),
                 QStringList({u"Zz"_s, u"b"_s, u"Ä"_s}));
    }
};

QTEST_GUILESS_MAIN(ErrorHandlingTest)
#include "ErrorHandling.moc"
