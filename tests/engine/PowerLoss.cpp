// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/DamageSupport.h"
#include "engine/EngineFixture.h"
#include "engine/care/Repair.h"
#include "engine/language/EngineError.h"
#include "support/UnsyncedVfs.h"
#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace obelmark;

namespace {

const QString allCoins = u"select * from Coin order by descr"_s;

struct Save
{
    const char *name;
    /// Begins the save; the second part, which can be repeated, carries it out.
    std::function<void(Dynaset &)> begin;
    void (Dynaset::*finish)();
};

void setNotes(Dynaset &coins, const QString &descr, int length)
{
    coins.setValue(u"descr", descr);
    coins.setValue(u"notes", u"note "_s.repeated(length));
}

/// Saves of every kind, through many pages and few.
const std::vector<Save> saves{
    {"edit",
     [](Dynaset &coins) {
         coins.edit();
         coins.setValue(u"Year", qint16(1871));
     },
     &Dynaset::update},
    {"add long",
     [](Dynaset &coins) {
         coins.addNew();
         setNotes(coins, u"Aachen"_s, 4000);
     },
     &Dynaset::update},
    {"edit long",
     [](Dynaset &coins) {
         coins.moveLast();
         coins.edit();
         setNotes(coins, u"Zürich"_s, 9000);
     },
     &Dynaset::update},
    {"remove long", [](Dynaset &coins) { coins.moveLast(); }, &Dynaset::remove},
    {"remove", [](Dynaset &coins) { coins.moveFirst(); }, &Dynaset::remove},
    {"add",
     [](Dynaset &coins) {
         coins.addNew();
         setNotes(coins, u"Berlin"_s, 1);
     },
     &Dynaset::update},
};

} // namespace

/// Saves on a disk that forgets what was not flushed, and on one that is full.
class PowerLoss : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        addCoins(m_path, 100);
        m_states.push_back({fileContent(m_path), storedRows(m_path)});
        for (std::size_t number = 0; number < saves.size(); ++number) {
            QCOMPARE(runSaves(number, number + 1), 1U);
            m_states.push_back({fileContent(m_path), storedRows(m_path)});
        }
    }

    /// Without flushing, a committed change must get lost or torn here, or the test below proves nothing.
    void diskForgets()
    {
        int whole = 0;
        int lost = 0;
        for (unsigned seed = 0; seed < 40; ++seed) {
            startFrom(m_states.front());
            UnsyncedVfs disk;
            SQLite::Database(m_path.toStdString(), SQLite::OPEN_READWRITE)
                .exec("pragma synchronous = off; update Coin set descr = 'x', descrsort = 'x'");
            disk.restart(seed);
            try {
                whole += integrity(m_path) == "ok"_L1;
                lost += storedRows(m_path) == m_states.front().rows;
            } catch (const SQLite::Exception &) {
            }
        }
        QVERIFY2(whole < 30 && lost > 0, qPrintable(u"%1 %2"_s.arg(whole).arg(lost)));
    }

    void leavesTheLastCommittedState()
    {
        for (unsigned seed = 1; seed <= 5; ++seed) {
            std::minstd_rand chance(seed);
            int changes = 0;
            for (int cut = 0; cut <= changes; cut += 1 + int(chance() % 3)) { // 0: after the last change
                startFrom(m_states.front());
                std::size_t done = 0;
                {
                    UnsyncedVfs disk;
                    disk.cutPowerAt(cut);
                    done = runSaves(0, saves.size());
                    changes = std::max(changes, disk.changeCount());
                    disk.restart(seed * 10'000 + unsigned(cut));
                }
                m_file.open();
                QCOMPARE(integrity(m_path), u"ok"_s);
                const StoredRows rows = storedRows(m_path);
                const bool kept = rows == m_states[done].rows;
                const bool finished = done < saves.size() && rows == m_states[done + 1].rows;
                QVERIFY2(kept || finished, qPrintable(u"cut %1, saves %2"_s.arg(cut).arg(done)));
            }
            QVERIFY(changes > 60);
        }
    }

    void fullDiskKeepsOldAndBegunRow()
    {
        for (std::size_t number = 0; number < saves.size(); ++number) {
            const auto finish = saves[number].finish;
            int failures = 0;
            for (qint64 freeSpace = 0; freeSpace < 120'000; freeSpace += 6'000) {
                startFrom(m_states[number]);
                {
                    UnsyncedVfs disk;
                    const auto database = m_file.open();
                    const auto coins = database->openDynaset(allCoins);
                    const auto other = database->openDynaset(allCoins);
                    saves[number].begin(*coins);
                    disk.setFreeSpace(freeSpace);
                    try {
                        ((*coins).*finish)();
                        continue;
                    } catch (const EngineError &error) {
                        QCOMPARE(error.number(), int(DiskFull));
                        ++failures;
                    }
                    QCOMPARE(other->recordCount(), qint64(m_states[number].rows.size()));
                    disk.setFreeSpace({});
                    ((*coins).*finish)();
                }
                QCOMPARE(integrity(m_path), u"ok"_s);
                QVERIFY(storedRows(m_path) == m_states[number + 1].rows);
            }
            QVERIFY(failures > 0);
        }
    }

    void fullDiskStopsRepair()
    {
        startFrom(m_states.front());
        const QStringList files = QDir(m_file.folder()).entryList(QDir::Files);
        for (qint64 freeSpace = 0; freeSpace < 400'000; freeSpace += 40'000) {
            UnsyncedVfs disk;
            disk.setFreeSpace(freeSpace);
            try {
                repairDatabase(m_path, {u"Coin"_s});
                QVERIFY(freeSpace > 100'000);
                return;
            } catch (const EngineError &error) {
                QCOMPARE(error.number(), int(DiskFull));
            }
            QCOMPARE(QDir(m_file.folder()).entryList(QDir::Files), files);
            QVERIFY(fileContent(m_path) == m_states.front().file);
        }
        QFAIL("the repair never had enough space");
    }

private:
    struct State
    {
        QByteArray file;
        StoredRows rows;
    };
    /// Carries out saves until one fails; how many did not.
    std::size_t runSaves(std::size_t from, std::size_t to) const
    {
        std::size_t done = from;
        try {
            const auto database = m_file.open();
            const auto coins = database->openDynaset(allCoins);
            for (; done < to; ++done) {
                saves[done].begin(*coins);
                ((*coins).*saves[done].finish)();
            }
        } catch (const EngineError &) {
        }
        return done - from;
    }
    void startFrom(const State &state) const
    {
        QFile::remove(m_path + u"-journal"_s);
        setFileContent(m_path, state.file);
    }

    const CoinFile m_file;
    const QString m_path = m_file.path();
    std::vector<State> m_states; ///< after so many of the saves
};

QTEST_GUILESS_MAIN(PowerLoss)
#include "PowerLoss.moc"
