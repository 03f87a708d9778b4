// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/RepairCopy.h"

#include "engine/care/RepairTable.h"
#include "engine/care/WatchedWork.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include <QHash>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <functional>
#include <optional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// The library makes these itself.
bool isInternal(const SchemaObject &object)
{
    return object.name.startsWith("sqlite_"_L1, Qt::CaseInsensitive);
}

bool hasRowIds(SQLite::Database &target, const QString &table)
{
    SQLite::Statement query(target, "select 1 from pragma_table_list(?1) where type = 'table' and wr = 0");
    query.bind(1, table.toStdString());
    return query.executeStep();
}

struct Counters
{
    QHash<QString, std::int64_t> byTable;
    bool areAllKnown = false;

    std::optional<std::int64_t> of(const QString &table) const
    {
        const auto counter = byTable.constFind(table);
        if (counter != byTable.constEnd())
            return *counter;
        return areAllKnown ? std::optional<std::int64_t>(0) : std::nullopt;
    }
};
using Rows = std::vector<SalvagedRow>;

/// Reads the library's own tables, all of them: their pages are no stray pages.
Counters readInternal(SalvageFile &damaged, const SalvagedSchema &schema)
{
    const auto isCounter = [](const SalvagedRow &row) {
        return row.values.size() == 2 && std::holds_alternative<std::string>(row.values[0]) &&
               std::holds_alternative<std::int64_t>(row.values[1]);
    };
    Counters counters;
    for (const SchemaObject &object : schema.objects) {
        if (object.type != "table"_L1 || !isInternal(object))
            continue;
        const bool hasCounters = object.name == "sqlite_sequence"_L1;
        const TableLosses losses = damaged.readTable(
            object.rootPage,
            [&](const Rows &rows) {
                return !hasCounters || std::any_of(rows.begin(), rows.end(), isCounter);
            },
            [&](const SalvagedRow &row) {
                if (hasCounters && isCounter(row))
                    counters.byTable.insert(textOf(row.values[0]), integerOf(row.values[1]));
            });
        counters.areAllKnown = hasCounters ? losses.none() : counters.areAllKnown;
    }
    return counters;
}

/// The table that the most rows are confirmed by; nullptr when there is none, or two.
TableCopy *confirmedOwner(std::vector<TableCopy> &tables, const Rows &rows)
{
    TableCopy *owner = nullptr;
    std::size_t most = 0;
    for (TableCopy &table : tables) {
        const std::size_t confirmed = table.confirmed(rows);
        if (confirmed == most)
            owner = nullptr;
        if (confirmed > most)
            owner = &table;
        most = std::max(most, confirmed);
    }
    return owner;
}

/// The tables that are so.
std::vector<TableCopy *> those(std::vector<TableCopy> &tables, const std::function<bool(TableCopy &)> &are)
{
    std::vector<TableCopy *> result;
    for (TableCopy &table : tables) {
        if (are(table))
            result.push_back(&table);
    }
    return result;
}

/// Whose the rows of a page may be that no table leads to.
std::vector<TableCopy *> likelyOwners(std::vector<TableCopy> &tables, const Rows &rows)
{
    if (TableCopy *owner = confirmedOwner(tables, rows))
        return {owner};
    auto owners = those(tables, [&](TableCopy &each) { return each.knows(rows); }); // a copy of a page
    if (owners.empty())
        owners =
            those(tables, [&](TableCopy &each) { return !each.isBeyondCounter(rows) && each.misses(rows); });
    if (owners.empty())
        owners = those(tables, [&](TableCopy &each) { return each.alike(rows) > 0; });
    return owners;
}

/// Gives the rows that no table leads to to the one whose they are.
void saveStrayRows(SalvageFile &damaged, std::vector<TableCopy> &tables)
{
    using enum TableCopy::Trust;
    // First those that cannot be mistaken: of a row that is there twice, one may be what it was before.
    damaged.readStrayPages([&](const Rows &rows) {
        TableCopy *owner = confirmedOwner(tables, rows);
        if (owner)
            owner->saveStray(rows, OnlyConfirmed);
        return owner && owner->confirmed(rows) == rows.size();
    });
    const TableCopy::Trust trust = damaged.knowsFreePages() ? InUse : MayBeFree;
    // Of a page that may be several tables', the pages found after it may have left but one.
    bool isUndecided = true;
    for (std::size_t round = 0; round < tables.size() && isUndecided; ++round) {
        isUndecided = false;
        bool isAnySaved = false;
        damaged.readStrayPages([&](const Rows &rows) {
            const std::vector<TableCopy *> owners = likelyOwners(tables, rows);
            isUndecided = isUndecided || owners.size() > 1;
            if (owners.size() != 1)
                return false;
            owners.front()->saveStray(rows, trust);
            isAnySaved = true;
            return true;
        });
        isUndecided = isUndecided && isAnySaved;
    }
    // Where nothing decides, the tables' own trees do.
    damaged.readStrayPages([&](const Rows &rows) {
        const auto owners =
            those(tables, [&](TableCopy &each) { return each.hasRefused(rows) && each.misses(rows); });
        if (owners.size() == 1)
            owners.front()->saveStray(rows, trust);
        return owners.size() == 1;
    });
}

/// Makes the tables and fills them.
std::vector<TableCopy> copyTables(SalvageFile &damaged, const SalvagedSchema &schema,
                                  SQLite::Database &target)
{
    const Counters counters = readInternal(damaged, schema);
    std::vector<TableCopy> tables;
    for (const SchemaObject &object : schema.objects) {
        if (object.type == "table"_L1 && !isInternal(object) && tryCreate(target, object.sql) &&
            hasRowIds(target, object.name))
            tables.emplace_back(target, object, counters.of(object.name));
    }
    SQLite::Database scratch(":memory:", SQLite::OPEN_READWRITE);
    for (const auto type : {"table"_L1, "index"_L1}) {
        for (const SchemaObject &object : schema.objects) {
            if (object.type == type)
                tryCreate(scratch, object.sql);
        }
    }
    for (TableCopy &table : tables)
        table.readIndexes(damaged, schema.objects, scratch);
    for (TableCopy &table : tables) {
        table.copy(damaged, [&](const Rows &rows) {
            return std::any_of(tables.begin(), tables.end(), [&](const TableCopy &each) {
                const bool isItsEnd = each.endsWith(rows) && !table.endsWith(rows) && each.alike(rows) > 0;
                const bool isConfirmed = table.hasEvidence() && each.confirmed(rows) > 0;
                return &each != &table && (isItsEnd || isConfirmed);
            });
        });
    }
    saveStrayRows(damaged, tables);
    for (TableCopy &table : tables)
        table.finish();
    return tables;
}

QList<RepairReport::Table> copyInto(SQLite::Database &target, SalvageFile &damaged, const RepairPlan &plan)
{
    const SalvagedSchema schema = readSchema(damaged, plan.schema);
    // Nothing need survive a crash: the file counts for nothing before it is complete.
    target.exec(
        "pragma journal_mode = memory; pragma synchronous = off; pragma ignore_check_constraints = on;"
        "pragma user_version = " +
        std::to_string(damaged.userVersion()) +
        "; pragma application_id = " + std::to_string(damaged.applicationId()) + "; begin");
    QList<RepairReport::Table> report;
    {
        const std::vector<TableCopy> tables = copyTables(damaged, schema, target);
        const auto key = std::find_if(tables.begin(), tables.end(), [&](const TableCopy &table) {
            return table.name().compare(plan.keyTable, Qt::CaseInsensitive) == 0;
        });
        const auto isFound = [&](const SchemaObject &object) {
            return object.type == "table"_L1 && object.wasFound && sameName(object.name, plan.keyTable);
        };
        const bool wasFound = std::any_of(schema.objects.begin(), schema.objects.end(), isFound);
        if (key == tables.end() || (!wasFound && key->report().rowsSaved == 0))
            throw EngineError(schema.whole ? UnrecognizedFormat : DatabaseDamaged, damaged.path());
        if (!key->isWhole() && key->report().rowsSaved == 0)
            throw EngineError(DatabaseDamaged, damaged.path());
        for (const TableCopy &table : tables)
            report.append(table.report());
    }
    for (const auto type : {"index"_L1, "view"_L1, "trigger"_L1}) {
        for (const SchemaObject &object : schema.objects) {
            if (object.type == type)
                tryCreate(target, object.sql);
        }
    }
    target.exec("commit");
    if (target.execAndGet("pragma integrity_check").getString() != "ok")
        throw EngineError(DatabaseDamaged, damaged.path());
    return report;
}

} // namespace

QList<RepairReport::Table> copyReadable(SalvageFile &damaged, const QString &newPath, const RepairPlan &plan,
                                        const FileProgress &progress)
{
    SQLite::Database target(newPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    return WatchedWork(target, [&] { tell(progress, FileStage::Rescuing); }).run([&] {
        return copyInto(target, damaged, plan);
    });
}

} // namespace obelmark
