#include "engine/RepairCopy.h"

#include "engine/EngineError.h"
#include "engine/SalvageFile.h"
#include "engine/Schema.h"
#include <QHash>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <functional>
#include <map>
#include <sqlite3.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A counter beyond this is garbage: keys are numbers of 32 bits.
constexpr std::int64_t highestCounter = std::numeric_limits<std::int32_t>::max();

/// A row of the table of tables.
struct SchemaObject
{
    QString type;
    QString name;
    QString table;
    std::uint32_t rootPage = 0;
    QString sql;

    bool isTable() const { return type == "table"_L1; }
    /// The library makes these itself.
    bool isInternal() const { return name.startsWith("sqlite_"_L1, Qt::CaseInsensitive); }
};

struct SalvagedSchema
{
    std::vector<SchemaObject> objects;
    bool whole = true;
};

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

/// One table on its way into the new database.
class TableCopy
{
public:
    TableCopy(SQLite::Database &target, const SchemaObject &table) : m_target(target), m_table(table)
    {
        m_report.name = table.name;
        SQLite::Statement columns(target, "select name, pk = 1 and type = 'INTEGER' collate nocase and "
                                          "(select count(*) from pragma_table_info(?1) where pk > 0) = 1 "
                                          "from pragma_table_info(?1)");
        columns.bind(1, table.name.toStdString());
        while (columns.executeStep()) {
            if (columns.getColumn(1).getInt())
                m_rowIdColumn = m_columns.size();
            m_columns.push_back(quoted(QString::fromStdString(columns.getColumn(0).getString())));
        }
    }

    const QString &name() const { return m_table.name; }
    const RepairReport::Table &report() const { return m_report; }
    bool hasHoles() const { return !m_losses.ranges.empty(); }
    bool isWhole() const { return m_losses.none(); }

    void copy(SalvageFile &damaged)
    {
        m_losses = damaged.readTable(m_table.rootPage, int(m_columns.size()),
                                     [this](const SalvagedRow &row) { save(row); });
        for (const RowRange &range : m_losses.ranges)
            know(range.after);
    }

    /// Whether rows that no table leads to fill a hole of this one.
    bool misses(const std::vector<SalvagedRow> &rows) const
    {
        const auto fits = [&](const RowRange &range) {
            return std::all_of(rows.begin(), rows.end(), [&](const SalvagedRow &row) {
                return range.contains(row.id) && row.values.size() == m_columns.size();
            });
        };
        return std::any_of(m_losses.ranges.begin(), m_losses.ranges.end(), fits);
    }

    /// A row that is there already stays.
    void save(const SalvagedRow &row)
    {
        SQLite::Statement &insert = insertOf(row.values.size());
        for (std::size_t i = 0; i < row.values.size(); ++i) {
            // The column that stands for the row id lies as null in the row.
            if (i == m_rowIdColumn && std::holds_alternative<std::monostate>(row.values[i]))
                insert.bind(int(i) + 1, row.id);
            else
                std::visit([&](const auto &value) { bind(insert, int(i) + 1, value); }, row.values[i]);
        }
        const int inserted = insert.exec();
        insert.reset();
        if (inserted == 0)
            return;
        ++m_report.rowsSaved;
        m_report.rowsIncomplete += row.complete ? 0 : 1;
        m_savedIds.push_back(row.id);
    }

    /// Learns from the table's indexes which rows there were.
    void findLost(SalvageFile &damaged, const SalvagedSchema &schema)
    {
        std::sort(m_savedIds.begin(), m_savedIds.end());
        std::vector<std::int64_t> lost;
        for (const SchemaObject &index : schema.objects) {
            if (index.type != "index"_L1 || index.table.compare(m_table.name, Qt::CaseInsensitive) != 0)
                continue;
            damaged.readIndex(index.rootPage, [&](std::int64_t id) {
                if (!std::binary_search(m_savedIds.begin(), m_savedIds.end(), id))
                    lost.push_back(id);
                know(id);
            });
            std::sort(lost.begin(), lost.end());
            lost.erase(std::unique(lost.begin(), lost.end()), lost.end());
        }
        m_report.rowsLost = qint64(lost.size());
    }

    /// A counter once given is not given again, though its row be lost.
    void setCounter(std::int64_t oldCounter)
    {
        if (!m_table.sql.contains("autoincrement"_L1, Qt::CaseInsensitive))
            return;
        know(oldCounter);
        SQLite::Statement counter(m_target,
                                  "insert into sqlite_sequence (name, seq) select ?1, 0 "
                                  "where not exists (select 1 from sqlite_sequence where name = ?1)");
        counter.bind(1, m_table.name.toStdString());
        counter.exec();
        SQLite::Statement raise(m_target, "update sqlite_sequence set seq = max(seq, ?2) where name = ?1");
        raise.bind(1, m_table.name.toStdString());
        raise.bind(2, m_highestId);
        raise.exec();
    }

private:
    void know(std::int64_t id)
    {
        if (id <= highestCounter)
            m_highestId = std::max(m_highestId, id);
    }

    /// Rows written before a column was added are shorter; the insert leaves the column's default to them.
    SQLite::Statement &insertOf(std::size_t columnCount)
    {
        const auto found = m_inserts.find(columnCount);
        if (found != m_inserts.end())
            return found->second;
        std::string names;
        std::string values;
        for (std::size_t i = 0; i < columnCount; ++i) {
            names += (i ? ", " : "") + m_columns[i];
            values += i ? ", ?" : "?";
        }
        const std::string sql =
            "insert or ignore into " + quoted(m_table.name) + " (" + names + ") values (" + values + ")";
        return m_inserts.try_emplace(columnCount, m_target, sql).first->second;
    }

    static void bind(SQLite::Statement &insert, int at, std::monostate) { insert.bind(at); }
    static void bind(SQLite::Statement &insert, int at, std::int64_t value) { insert.bind(at, value); }
    static void bind(SQLite::Statement &insert, int at, double value) { insert.bind(at, value); }
    static void bind(SQLite::Statement &insert, int at, const std::string &text)
    {
        insert.bindNoCopy(at, text);
    }
    static void bind(SQLite::Statement &insert, int at, const QByteArray &blob)
    {
        insert.bindNoCopy(at, blob.constData(), int(blob.size()));
    }

    SQLite::Database &m_target;
    const SchemaObject &m_table;
    std::vector<std::string> m_columns;
    std::size_t m_rowIdColumn = std::size_t(-1);
    std::map<std::size_t, SQLite::Statement> m_inserts;
    TableLosses m_losses;
    std::vector<std::int64_t> m_savedIds;
    std::int64_t m_highestId = 0;
    RepairReport::Table m_report;
};

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
        if (!object.isTable())
            continue;
        if (object.name == "sqlite_sequence"_L1)
            counters = readCounters(damaged, object.rootPage);
        else if (object.isInternal()) // read all the same: its pages are no stray pages
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
            table.findLost(damaged, schema);
        table.setCounter(counters.value(table.name()));
    }
    return tables;
}

} // namespace

QList<RepairReport::Table> copyReadable(SalvageFile &damaged, const QString &newPath, const QString &keyTable)
{
    const SalvagedSchema schema = readSchema(damaged);
    SQLite::Database target(newPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    // No journal and no flushing: the file counts for nothing before it is complete.
    target.exec("pragma journal_mode = off; pragma synchronous = off; pragma ignore_check_constraints = on;"
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

} // namespace obelmark
