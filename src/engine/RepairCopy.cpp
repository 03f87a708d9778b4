#include "engine/RepairCopy.h"

#include "engine/EngineError.h"
#include "engine/RepairTable.h"
#include "engine/WatchedWork.h"
#include <QHash>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <functional>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

struct SalvagedSchema
{
    std::vector<SchemaObject> objects;
    bool whole = true;
};

/// The library makes these itself.
bool isInternal(const SchemaObject &object)
{
    return object.name.startsWith("sqlite_"_L1, Qt::CaseInsensitive);
}

QString textOf(const SalvagedValue &value)
{
    const auto *text = std::get_if<std::string>(&value);
    return text ? QString::fromStdString(*text) : QString();
}

std::int64_t integerOf(const SalvagedValue &value)
{
    const auto *number = std::get_if<std::int64_t>(&value);
    return number ? *number : 0;
}

SalvagedSchema readSchema(SalvageFile &damaged)
{
    constexpr std::size_t columnCount = 5;
    SalvagedSchema schema;
    const TableLosses losses = damaged.readTable(1, columnCount, [&](const SalvagedRow &row) {
        if (!row.complete || row.values.size() != columnCount) {
            schema.whole = false;
            return;
        }
        schema.objects.push_back({textOf(row.values[0]), textOf(row.values[1]), textOf(row.values[2]),
                                  std::uint32_t(integerOf(row.values[3])), textOf(row.values[4])});
    });
    schema.whole = schema.whole && losses.none();
    return schema;
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

QHash<QString, std::int64_t> readCounters(SalvageFile &damaged, std::uint32_t rootPage)
{
    QHash<QString, std::int64_t> counters;
    damaged.readTable(rootPage, 2, [&](const SalvagedRow &row) {
        if (row.values.size() == 2)
            counters.insert(textOf(row.values[0]), integerOf(row.values[1]));
    });
    return counters;
}

/// Makes the tables and fills them.
std::vector<TableCopy> copyTables(SalvageFile &damaged, const SalvagedSchema &schema,
                                  SQLite::Database &target)
{
    QHash<QString, std::int64_t> counters;
    std::vector<TableCopy> tables;
    for (const SchemaObject &object : schema.objects) {
        if (object.type != "table"_L1)
            continue;
        if (object.name == "sqlite_sequence"_L1)
            counters = readCounters(damaged, object.rootPage);
        else if (isInternal(object)) // read all the same: its pages are no stray pages
            damaged.readTable(object.rootPage, std::numeric_limits<int>::max(), [](const SalvagedRow &) {});
        else if (tryCreate(target, object) && hasRowIds(target, object.name))
            tables.emplace_back(target, object).copy(damaged);
    }
    if (std::any_of(tables.begin(), tables.end(), std::mem_fn(&TableCopy::hasHoles)))
        damaged.readStrayPages([&](const std::vector<SalvagedRow> &rows) {
            const auto fits = [&](const TableCopy &table) { return table.misses(rows); };
            const auto table = std::find_if(tables.begin(), tables.end(), fits);
            if (table == tables.end() || std::any_of(table + 1, tables.end(), fits))
                return; // nobody's, or nobody knows whose
            for (const SalvagedRow &row : rows)
                table->save(row);
        });
    for (TableCopy &table : tables) {
        if (!table.isWhole())
            table.findLost(damaged, schema.objects);
        table.setCounter(counters.value(table.name()));
    }
    return tables;
}

QList<RepairReport::Table> copyInto(SQLite::Database &target, SalvageFile &damaged, const QString &keyTable)
{
    const SalvagedSchema schema = readSchema(damaged);
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
            return table.name().compare(keyTable, Qt::CaseInsensitive) == 0;
        });
        if (key == tables.end())
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

QList<RepairReport::Table> copyReadable(SalvageFile &damaged, const QString &newPath, const QString &keyTable,
                                        const FileProgress &progress)
{
    SQLite::Database target(newPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    return WatchedWork(target, [&] { tell(progress, FileStage::Rescuing); }).run([&] {
        return copyInto(target, damaged, keyTable);
    });
}

} // namespace obelmark
