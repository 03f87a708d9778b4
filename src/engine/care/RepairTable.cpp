// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/RepairTable.h"

#include "engine/language/Schema.h"
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

bool isOdd(const SalvagedValue &value, ColumnKind kind)
{
    const bool isText = std::holds_alternative<std::string>(value);
    const bool isNumber =
        std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
    switch (kind) {
    case ColumnKind::Any:
        return false;
    case ColumnKind::Text:
    case ColumnKind::Date:
        return isNumber || std::holds_alternative<QByteArray>(value);
    default:
        return isText || std::holds_alternative<QByteArray>(value);
    }
}

} // namespace

TableCopy::TableCopy(SQLite::Database &target, const SchemaObject &table, std::optional<std::int64_t> counter)
    : m_target(target), m_table(table), m_counter(hasCounter() ? counter : std::nullopt)
{
    m_report.name = table.name;
    SQLite::Statement columns(target, "select name, type, pk = 1 and type = 'INTEGER' collate nocase and "
                                      "(select count(*) from pragma_table_info(?1) where pk > 0) = 1 "
                                      "from pragma_table_info(?1)");
    columns.bind(1, table.name.toStdString());
    while (columns.executeStep()) {
        if (columns.getColumn(2).getInt())
            m_rowIdColumn = m_columns.size();
        m_columns.push_back(quoted(QString::fromStdString(columns.getColumn(0).getString())));
        m_types.push_back(
            columnTypeFromDeclaration(QString::fromStdString(columns.getColumn(1).getString())));
    }
}

bool TableCopy::hasCounter() const
{
    return m_table.sql.contains("autoincrement"_L1, Qt::CaseInsensitive);
}

/// How many values are none that their columns hold.
std::size_t TableCopy::oddValues(const SalvagedRow &row) const
{
    std::size_t odd = 0;
    for (std::size_t i = 0; i < row.values.size(); ++i)
        odd += i != m_rowIdColumn && isOdd(row.values[i], m_types[i].kind);
    return odd;
}

/// Whether the values are such as the table's columns hold, but for a few that are damaged or foreign. Less
/// than half of the columns may have been added when the row was there already.
bool TableCopy::couldBeRow(const SalvagedRow &row) const
{
    const bool hasId = m_rowIdColumn < row.values.size();
    return row.values.size() <= m_columns.size() && 2 * row.values.size() > m_columns.size() &&
           (!hasId || std::holds_alternative<std::monostate>(row.values[m_rowIdColumn])) &&
           oddValues(row) <= m_columns.size() / 4;
}

/// The same without the table's own word for it: that of a row which lacks many columns.
bool TableCopy::isRow(const SalvagedRow &row) const
{
    return couldBeRow(row) && oddValues(row) + m_columns.size() - row.values.size() <= m_columns.size() / 4;
}

void TableCopy::copy(SalvageFile &damaged, const SalvageFile::PageTest &isAnothers)
{
    const auto isOurs = [&](const std::vector<SalvagedRow> &rows) {
        if (confirmed(rows) > 0)
            return true;
        if (std::none_of(rows.begin(), rows.end(),
                         [this](const SalvagedRow &row) { return couldBeRow(row); }))
            return false;
        const bool isRefused = isBeyondCounter(rows) || isAnothers(rows);
        if (isRefused)
            m_refused.emplace(rows.front().id, rows.back().id);
        return !isRefused;
    };
    std::int64_t tooLong = 0;
    m_losses = damaged.readTable(m_table.rootPage, isOurs, [&](const SalvagedRow &row) {
        if (row.values.size() <= m_columns.size())
            save(row);
        else
            ++tooLong;
    });
    m_losses.cells += tooLong;
    for (const RowRange &range : m_losses.ranges)
        know(range.after);
    std::sort(m_savedIds.begin(), m_savedIds.end());
    m_evidence.forgetForeign(m_savedIds);
}

bool TableCopy::couldBeEntry(const SalvagedRow &entry, const std::vector<int> &columns) const
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto column = std::size_t(columns[i]);
        if (column < m_types.size() && isOdd(entry.values[i], m_types[column].kind))
            return false;
    }
    return true;
}

void TableCopy::readIndexes(SalvageFile &damaged, const std::vector<SchemaObject> &schema,
                            SQLite::Database &scratch)
{
    for (const SchemaObject &index : schema) {
        const bool isOurs = index.type == "index"_L1 && index.rootPage != 0 &&
                            index.table.compare(m_table.name, Qt::CaseInsensitive) == 0;
        // One of some of the rows, or of none, tells nothing of the others.
        if (!isOurs || index.sql.contains(" where "_L1, Qt::CaseInsensitive))
            continue;
        SQLite::Statement query(scratch, "select cid from pragma_index_info(?1) order by seqno");
        query.bind(1, index.name.toStdString());
        std::vector<int> columns;
        while (query.executeStep())
            columns.push_back(query.getColumn(0).getInt());
        m_evidence.readIndex(damaged, index.rootPage, columns,
                             [&](const SalvagedRow &entry) { return couldBeEntry(entry, columns); });
    }
    m_evidence.finish();
    if (!m_counter || m_evidence.highestId() <= *m_counter)
        return;
    // Either the counter is wrong, or the index has a page of another.
    const auto isConfirmed = [this](const std::vector<SalvagedRow> &rows) {
        return isBeyondCounter(rows) && m_evidence.confirms(rows.back());
    };
    if (damaged.hasPage(m_table.rootPage, isConfirmed))
        m_counter.reset();
    else
        m_evidence.forgetBeyond(*m_counter);
}

std::size_t TableCopy::alike(const std::vector<SalvagedRow> &rows) const
{
    return std::size_t(
        std::count_if(rows.begin(), rows.end(), [this](const SalvagedRow &row) { return isRow(row); }));
}

std::size_t TableCopy::confirmed(const std::vector<SalvagedRow> &rows) const
{
    const auto named = std::count_if(rows.begin(), rows.end(),
                                     [this](const SalvagedRow &row) { return m_evidence.names(row.id); });
    const auto confirmed = std::count_if(rows.begin(), rows.end(), [this](const SalvagedRow &row) {
        return couldBeRow(row) && m_evidence.confirms(row);
    });
    // Two lists may have the same entry under the same number.
    return 2 * confirmed < named ? 0 : std::size_t(confirmed);
}

bool TableCopy::knows(const std::vector<SalvagedRow> &rows) const
{
    return std::any_of(rows.begin(), rows.end(),
                       [this](const SalvagedRow &row) { return m_evidence.knows(row); });
}

bool TableCopy::hasRefused(const std::vector<SalvagedRow> &rows) const
{
    return m_refused.contains({rows.front().id, rows.back().id});
}

bool TableCopy::inHole(std::int64_t id) const
{
    const auto isBelow = [](const RowRange &range, std::int64_t row) { return range.upTo < row; };
    const auto &ranges = m_losses.ranges; // they rise
    const auto range = std::lower_bound(ranges.begin(), ranges.end(), id, isBelow);
    return range != ranges.end() && range->contains(id);
}

bool TableCopy::misses(const std::vector<SalvagedRow> &rows)
{
    return std::all_of(rows.begin(), rows.end(), [this](const SalvagedRow &row) {
        return inHole(row.id) && isRow(row) && !isSaved(row.id);
    });
}

bool TableCopy::endsWith(const std::vector<SalvagedRow> &rows) const
{
    return !rows.empty() && rows.back().id == m_counter;
}

bool TableCopy::isBeyondCounter(const std::vector<SalvagedRow> &rows) const
{
    return m_counter && !rows.empty() && rows.back().id > *m_counter;
}

bool TableCopy::isSaved(std::int64_t id)
{
    if (!m_lookUp)
        m_lookUp.emplace(m_target, "select 1 from " + quoted(m_table.name) + " where rowid = ?");
    m_lookUp->bind(1, id);
    const bool isThere = m_lookUp->executeStep();
    m_lookUp->reset();
    return isThere;
}

void TableCopy::saveStray(const std::vector<SalvagedRow> &rows, Trust trust)
{
    for (const SalvagedRow &row : rows) {
        if (!couldBeRow(row))
            continue;
        const bool isNamed = m_evidence.names(row.id);
        const bool isDeleted = m_evidence.isComplete() && !isNamed;
        const bool isLikely = trust == Trust::InUse || isNamed || inHole(row.id);
        if (trust == Trust::OnlyConfirmed ? m_evidence.confirms(row) : !isDeleted && isLikely)
            save(row);
    }
}

/// Adds a row unless there is one of that id.
void TableCopy::save(const SalvagedRow &row)
{
    // A counter has 32 bits; a row is more than its number.
    if (m_rowIdColumn < m_columns.size() && row.id != std::int32_t(row.id)) {
        m_unnumbered.try_emplace(row.id, row);
    } else if (insert(row)) {
        m_savedIds.push_back(row.id);
        m_evidence.learn(row);
    }
}

bool TableCopy::insert(const SalvagedRow &row)
{
    SQLite::Statement &insert = insertOf(row.values.size());
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        // The column that stands for the row id lies as null in the row; whatever else lies there counts for
        // nothing.
        if (i == m_rowIdColumn)
            insert.bind(int(i) + 1, row.id);
        else
            std::visit([&](const auto &value) { bind(insert, int(i) + 1, value); }, row.values[i]);
    }
    const int inserted = insert.exec();
    insert.reset();
    if (inserted == 0)
        return false;
    ++m_report.rowsSaved;
    m_report.rowsIncomplete += row.complete ? 0 : 1;
    return true;
}

/// Each lost page and each entry that is none has been a row at least; the indexes may know of more, or know
/// each of them.
void TableCopy::countLost()
{
    const bool areAllNamed = m_evidence.isComplete();
    std::sort(m_savedIds.begin(), m_savedIds.end());
    m_evidence.forgetUnproved(m_savedIds);
    const auto isSaved = [this](std::int64_t id) {
        return std::binary_search(m_savedIds.begin(), m_savedIds.end(), id);
    };
    const auto &ids = m_evidence.agreedIds();
    const auto named = std::count_if(ids.begin(), ids.end(),
                                     [&](std::int64_t id) { return id == std::int32_t(id) && !isSaved(id); });
    const auto isEmpty = [this](const RowRange &range) {
        if (range.after >= range.upTo || (m_counter && range.after >= *m_counter))
            return false; // no row can be there
        const auto next = std::upper_bound(m_savedIds.begin(), m_savedIds.end(), range.after);
        return next == m_savedIds.end() || !range.contains(*next);
    };
    const auto isRoot = [](const RowRange &range) {
        return range.after == RowRange().after && range.upTo == RowRange().upTo;
    };
    const auto &ranges = m_losses.ranges;
    m_report.isLost = m_report.rowsSaved == 0 && std::any_of(ranges.begin(), ranges.end(), isRoot);
    const auto empty = m_report.isLost ? 0 : std::count_if(ranges.begin(), ranges.end(), isEmpty);
    if (m_counter == 0 && m_report.rowsSaved == 0)
        return; // there has never been a row
    const qint64 unnamed = empty + m_losses.cells;
    m_report.rowsLost = std::max(qint64(named), areAllNamed ? std::min(unnamed, qint64(1)) : unnamed);
}

void TableCopy::finish()
{
    know(m_counter.value_or(0));
    know(m_evidence.highestId());
    for (const std::int64_t id : m_savedIds)
        know(id);
    for (auto &[id, row] : m_unnumbered) {
        row.id = m_highestId + 1;
        const bool isInserted = m_highestId < highestCounter && insert(row);
        know(row.id);
        m_report.rowsRenumbered += isInserted ? 1 : 0;
        m_losses.cells += isInserted ? 0 : 1;
    }
    countLost();
    if (!hasCounter())
        return;
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
