#include "engine/RepairTable.h"

#include "engine/Schema.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// A counter beyond this is garbage: keys are numbers of 32 bits.
constexpr std::int64_t highestCounter = std::numeric_limits<std::int32_t>::max();

void bind(SQLite::Statement &insert, int at, std::monostate)
{
    insert.bind(at);
}
void bind(SQLite::Statement &insert, int at, std::int64_t value)
{
    insert.bind(at, value);
}
void bind(SQLite::Statement &insert, int at, double value)
{
    insert.bind(at, value);
}
void bind(SQLite::Statement &insert, int at, const std::string &text)
{
    insert.bindNoCopy(at, text);
}
void bind(SQLite::Statement &insert, int at, const QByteArray &blob)
{
    insert.bindNoCopy(at, blob.constData(), int(blob.size()));
}

} // namespace

TableCopy::TableCopy(SQLite::Database &target, const SchemaObject &table) : m_target(target), m_table(table)
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

void TableCopy::copy(SalvageFile &damaged)
{
    m_losses = damaged.readTable(m_table.rootPage, int(m_columns.size()),
                                 [this](const SalvagedRow &row) { save(row); });
    for (const RowRange &range : m_losses.ranges)
        know(range.after);
}

bool TableCopy::misses(const std::vector<SalvagedRow> &rows) const
{
    const auto fits = [&](const RowRange &range) {
        return std::all_of(rows.begin(), rows.end(), [&](const SalvagedRow &row) {
            return range.contains(row.id) && row.values.size() == m_columns.size();
        });
    };
    return std::any_of(m_losses.ranges.begin(), m_losses.ranges.end(), fits);
}

void TableCopy::save(const SalvagedRow &row)
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

void TableCopy::findLost(SalvageFile &damaged, const std::vector<SchemaObject> &schema)
{
    std::sort(m_savedIds.begin(), m_savedIds.end());
    std::vector<std::int64_t> lost;
    for (const SchemaObject &index : schema) {
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

void TableCopy::setCounter(std::int64_t oldCounter)
{
    if (!m_table.sql.contains("autoincrement"_L1, Qt::CaseInsensitive))
        return;
    know(oldCounter);
    SQLite::Statement counter(m_target, "insert into sqlite_sequence (name, seq) select ?1, 0 "
                                        "where not exists (select 1 from sqlite_sequence where name = ?1)");
    counter.bind(1, m_table.name.toStdString());
    counter.exec();
    SQLite::Statement raise(m_target, "update sqlite_sequence set seq = max(seq, ?2) where name = ?1");
    raise.bind(1, m_table.name.toStdString());
    raise.bind(2, m_highestId);
    raise.exec();
}

void TableCopy::know(std::int64_t id)
{
    if (id <= highestCounter)
        m_highestId = std::max(m_highestId, id);
}

/// Rows written before a column was added are shorter; the insert leaves the column's default to them.
SQLite::Statement &TableCopy::insertOf(std::size_t columnCount)
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

} // namespace obelmark
