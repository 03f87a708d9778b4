// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/CoinFile.h"

#include "common/CatalogueSort.h"
#include "common/SharedState.h"
#include "common/ShownProgress.h"
#include "engine/language/EngineError.h"
#include "engine/rows/Transaction.h"
#include "runtime/NumberedError.h"
#include <QFile>
#include <QFileInfo>
#include <array>

/// A static library's resources want to be asked for.
static void initResources()
{
    Q_INIT_RESOURCE(store);
}

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QStringList requiredTables()
{
    QStringList tables{u"Coin"_s};
    for (const LookupTable &table : lookupTables())
        tables << QString::fromUtf16(table.name);
    return tables;
}

constexpr int coinsBetweenLooks = 200;

/// Another tool that changed a catalogue number has left its sort key null.
void fillCatalogueSortKeys(Database &database, const FileProgress &progress)
{
    const auto index = database.openSnapshot(
        u"select name from sqlite_master where type = 'index' and name = 'coin_catsort_stale'"_s);
    // With the index of just these rows the question costs nothing; left alone, SQLite would scan the table.
    const auto stale = database.openSnapshot(
        u"select coinid, catnum from Coin %1 where catsort is null and catnum is not null"_s.arg(
            index->isEmpty() ? QString() : u"indexed by coin_catsort_stale"_s));
    if (stale->isEmpty())
        return;
    Transaction transaction(database);
    const auto coins = database.openDynaset(u"select * from Coin"_s);
    const qint64 count = stale->recordCount();
    for (qint64 done = 0; !stale->eof(); stale->moveNext(), ++done) {
        if (done % coinsBetweenLooks == 0)
            tell(progress, FileStage::Ordering, done, count);
        coins->findFirst(u"coinid = %1"_s.arg(stale->value(u"coinid").toInt()));
        coins->edit();
        coins->setValue(u"catsort", MakeCatSort(stale->value(u"catnum").toText()));
        coins->update();
    }
    transaction.commit();
}

QByteArray coinSchema()
{
    initResources();
    QFile script(u":/store/coin.sql"_s);
    if (!script.open(QIODevice::ReadOnly))
        qFatal("The schema is missing from the program");
    return script.readAll();
}

/// "Obel" in ASCII.
constexpr qint32 applicationId = 0x4F62656C;

/// What coin.sql makes is the newest version. A migration never changes again once it has been delivered.
QList<Migration> migrations()
{
    return {
        {.foldsAnew = true}, // 2: letters such as "ø" stand beside their base letter
    };
}

std::unique_ptr<Database> openVersioned(const QString &path, const FileVersions &versions,
                                        const FileProgress &progress)
{
    try {
        auto database =
            Database::open(path, Database::Access::Exclusive, requiredTables(), {}, progress, versions);
        fillCatalogueSortKeys(*database, progress);
        removeAbandonedRepair(path);
        return database;
    } catch (const EngineError &error) {
        // A damaged beginning, or a table that is gone: only the attempt to repair it shows what it is.
        if (error.number() == UnrecognizedFormat && QFileInfo(path).isFile())
            throw EngineError(DatabaseDamaged, path);
        throw;
    }
}

} // namespace

std::unique_ptr<Database> openCoinDatabase(const QString &path, const FileProgress &progress)
{
    return openVersioned(path, {applicationId, migrations()}, progress);
}

RepairReport repairCoinFile(const QString &path, const FileProgress &progress)
{
    // The damaged file is kept: nothing of it need be set aside once more.
    const FileVersions versions{applicationId, migrations(), false};
    return repairDatabase(
        path,
        {u"Coin"_s, coinSchema(), [&](const QString &file) { openVersioned(file, versions, progress); }},
        progress);
}

std::unique_ptr<Dynaset> openCoins(Database &database, CoinOrder order)
{
    static constexpr std::array orders{
        u"Select * from Coin order by descr",
        u"Select * from Coin order by catsort, catnum",
        u"Select * from Coin order by Year",
    };
    return database.openDynaset(QString::fromUtf16(orders.at(size_t(order) - 1)));
}

void reopenCoinDatabase(SharedState &shared, bool withRecordset)
{
    shared.CoinDatabase =
        openCoinDatabase(shared.DatabasePath, shownProgress(shared.desktop, u"Open"_s, false));
    if (withRecordset)
        shared.CoinRecordset = openCoins(*shared.CoinDatabase, shared.SortOrder);
    ++shared.DatabaseRepairs;
    emit shared.changes.changed({.everything = true});
}

Database &coinDatabase(SharedState &shared)
{
    if (!shared.CoinDatabase)
        throw runtimeError(ObjectNotSet);
    return *shared.CoinDatabase;
}

Dynaset &coinRecordset(SharedState &shared)
{
    if (!shared.CoinRecordset)
        throw runtimeError(ObjectNotSet);
    return *shared.CoinRecordset;
}

} // namespace obelmark
