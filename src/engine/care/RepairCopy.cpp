#include "engine/care/RepairCopy.h"

#include "engine/care/RepairTable.h"
#include "engine/care/WatchedWork.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include <QHash>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <functional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// The library makes these itself.
bool isInternal(const SchemaObject &object)
{
    return object.name.startsWith("sqlite_"_L1, Qt::CaseInsensitive);
}

/// Runs a statement of the damaged file's schema. One that makes no sense must not cost the rows.
bool tryCreate(SQLite::Database &target, const SchemaObject &object)
{
    if (!object.sql.startsWith("create "_L1, Qt::CaseInsensitive))
        return false;
    try {
        SQLite::Statement(target, object.sql.toStdString()).exec();
        return true;
    } catch (const SQLite::Exception &error) {
        if (error.getErrorCode() != SQLITE_ERROR && error.getErrorCode() != SQLITE_CONSTRAINT)
            throw;
        return false;
    }
}

bool hasRowIds(SQLite::Database &target, const QString &table)
{
    SQLite::Statement query(target, "select 1 from pragma_table_list(?1) where type = 'table' and wr = 0");
    query.bind(1, table.toStdString());
    return query.executeStep();
}

using Counters = QHash<QString, std::int64_t>;

void readCounters(SalvageFile &damaged, std::uint32_t rootPage, Counters &counters)
{
    const auto isCounter = [](const SalvagedRow &row) {
        return row.values.size() == 2 && std::holds_alternative<std::string>(row.values[0]) &&
               std::holds_alternative<std::int64_t>(row.values[1]);
    };
    damaged.readTable(rootPage, isCounter, [&](const SalvagedRow &row) {
        if (isCounter(row))
            counters.insert(textOf(row.values[0]), integerOf(row.values[1]));
    });
}

/// Gives the rows that no table leads to to the one whose they are.
void saveStrayRows(SalvageFile &damaged, std::vector<TableCopy> &tables)
{
    using enum TableCopy::Trust;
    // First those that cannot be mistaken: of a row that is there twice, one may be what it was before.
    damaged.readStrayPages([&](const std::vector<SalvagedRow> &rows) {
        const auto best = std::max_element(tables.begin(), tables.end(), [&](const auto &a, const auto &b) {
            return a.confirmed(rows) < b.confirmed(rows);
        });
        const std::size_t confirmed = best == tables.end() ? 0 : best->confirmed(rows);
        if (confirmed > 0)
            best->saveStray(rows, OnlyConfirmed);
        return confirmed == rows.size();
    });
    damaged.readStrayPages([&](const std::vector<SalvagedRow> &rows) {
        const auto only = [&](const auto &isOne) {
            const auto table = std::find_if(tables.begin(), tables.end(), isOne);
            const bool isUnique = table != tables.end() && std::none_of(table + 1, tables.end(), isOne);
            return isUnique ? &*table : nullptr; // otherwise nobody's, or nobody knows whose
        };
        TableCopy *table = only([&](const TableCopy &each) { return each.misses(rows); });
        if (!table)
            table = only([&](const TableCopy &each) { return each.alike(rows) > 0; });
        if (table)
            table->saveStray(rows, damaged.knowsFreePages() ? InUse : MayBeFree);
        return table != nullptr;
    });
}

/// Makes the tables and fills them.
std::vector<TableCopy> copyTables(SalvageFile &damaged, const SalvagedSchema &schema,
                                  SQLite::Database &target)
{
    Counters counters;
    std::vector<TableCopy> tables;
    for (const SchemaObject &object : schema.objects) {
        if (object.type == "table"_L1 && !isInternal(object) && tryCreate(target, object) &&
            hasRowIds(target, object.name))
            tables.emplace_back(target, object);
    }
    SQLite::Database scratch(":memory:", SQLite::OPEN_READWRITE);
    for (const auto type : {"table"_L1, "index"_L1}) {
        for (const SchemaObject &object : schema.objects) {
            if (object.type == type)
                tryCreate(scratch, object);
        }
    }
    for (const SchemaObject &object : schema.objects) {
        if (object.type != "table"_L1 || !isInternal(object))
            continue;
        if (object.name == "sqlite_sequence"_L1)
            readCounters(damaged, object.rootPage, counters);
        else // read all the same: its pages are no stray pages
            damaged.readTable(
                object.rootPage, [](const SalvagedRow &) { return true; }, [](const SalvagedRow &) {});
    }
    for (TableCopy &table : tables)
        table.copy(damaged);
    for (TableCopy &table : tables)
        table.readIndexes(damaged, schema.objects, scratch);
    saveStrayRows(damaged, tables);
    for (TableCopy &table : tables) {
        table.finish(counters.value(table.name()));
        table.countLost();
    }
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
                tryCreate(target, object);
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
