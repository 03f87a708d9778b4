// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/OrderedTable.h"
#include "engine/rows/ResetGuard.h"
#include <SQLiteCpp/Column.h>
#include <sqlite3.h>

namespace obelmark {

namespace {

/// How many rows a search looks at in the order of the index before it turns to a scan of the whole table.
/// The index leads to rows that lie anywhere in the file, so that a scan is ten times faster per row; but a
/// match is often near.
constexpr int nearbyRows = 1500;

/// \a isBeyond: whether the row is where the index has led to it as being. If not, going on from it would
/// lead round in circles.
void requireTrue(const SQLite::Column &isBeyond)
{
    if (isBeyond.getInt() == 0)
        throw SQLite::Exception("database disk image is malformed", SQLITE_CORRUPT);
}

} // namespace

OrderedTable::OrderedTable(DatabaseCore &core, const DynasetQuery &query)
    : m_core(core), m_table(*query.table), m_order(m_table, query.orderColumns)
{
    m_selectRow = "select " + quoted(m_table.keyName());
    for (const Column &column : m_table.columns())
        m_selectRow += ", " + quoted(column.name);
}

std::optional<OrderedRow> OrderedTable::first(Direction direction)
{
    return readRow({}, m_order.orderBy(direction), {});
}

std::optional<OrderedRow> OrderedTable::next(const RowPosition &position, Direction direction)
{
    for (const RowOrder::Stretch &stretch : m_order.stretchesBeyond(position, direction)) {
        auto row = readRow(m_order.condition(stretch, direction),
                           m_order.orderBy(direction, stretch.equalColumns), position);
        if (row)
            return row;
    }
    return std::nullopt;
}

std::optional<OrderedRow> OrderedTable::row(qint64 key)
{
    return readRow(quoted(m_table.keyName()) + " = ?1", {}, {{}, key});
}

std::optional<OrderedRow> OrderedTable::readRow(const std::string &condition, const std::string &order,
                                                const RowPosition &position)
{
    return m_core.reading({}, [&]() -> std::optional<OrderedRow> {
        const std::string tail = (condition.empty() ? "" : " where " + condition) + order;
        auto cached = m_statements.find(tail);
        if (cached == m_statements.end()) {
            const std::string check = condition.empty() ? "1" : condition;
            SQLite::Statement made(m_core.connection(), m_selectRow + ", " + check + " from " +
                                                            quoted(m_table.name()) + tail + " limit 1");
            cached = m_statements.emplace(tail, std::move(made)).first;
        }
        SQLite::Statement &statement = cached->second;
        const ResetGuard guard(statement);
        RowOrder::bindPosition(statement, position);
        if (!statement.executeStep())
            return std::nullopt;
        requireTrue(statement.getColumn(m_table.columnCount() + 1));

        OrderedRow row;
        row.position.key = statement.getColumn(0).getInt64();
        for (int column = 0; column < m_table.columnCount(); ++column) {
            const SqlCell cell = cellAt(statement, column + 1);
            row.values.push_back(toValue(cell, m_table.column(column).type));
            if (row.values.back().isNull() && !std::holds_alternative<std::monostate>(cell))
                row.unreadable.push_back(column);
        }
        for (const int column : m_order.columns())
            row.position.values.push_back(copyOf(cellAt(statement, column + 1)));
        return row;
    });
}

std::optional<qint64> OrderedTable::find(const Criteria &criteria, const RowPosition *position,
                                         Direction direction)
{
    if (!criteria.key) {
        const NearbyResult nearby = findNearby(criteria, position, direction);
        if (nearby.key || nearby.allSeen)
            return nearby.key;
    }
    return findAnywhere(criteria, position, direction);
}

OrderedTable::NearbyResult OrderedTable::findNearby(const Criteria &criteria, const RowPosition *position,
                                                    Direction direction)
{
    const std::string select = "select " + quoted(m_table.keyName()) + ", (" + criteria.sql +
                               ") is true from " + quoted(m_table.name());
    std::vector<std::string> tails;
    if (position) {
        for (const RowOrder::Stretch &stretch : m_order.stretchesBeyond(*position, direction))
            tails.push_back(" where " + m_order.condition(stretch, direction) +
                            m_order.orderBy(direction, stretch.equalColumns));
    } else {
        tails.push_back(m_order.orderBy(direction));
    }
    int budget = nearbyRows;
    for (const std::string &tail : tails) {
        SQLite::Statement statement(m_core.connection(), select + tail);
        if (position)
            RowOrder::bindPosition(statement, *position);
        while (statement.executeStep()) {
            if (statement.getColumn(1).getInt() != 0) {
                const qint64 key = statement.getColumn(0).getInt64();
                if (position)
                    requireBeyond(key, *position, direction);
                return {key, false};
            }
            if (--budget == 0)
                return {};
        }
    }
    return {std::nullopt, true};
}

/// The index said so; the row itself may say otherwise, and searching on from there would lead back here.
void OrderedTable::requireBeyond(qint64 key, const RowPosition &position, Direction direction)
{
    SQLite::Statement statement(m_core.connection(),
                                "select " + m_order.conditionBeyond(position, direction) + " from " +
                                    quoted(m_table.name()) + " not indexed where " +
                                    quoted(m_table.keyName()) + " = " + std::to_string(key));
    RowOrder::bindPosition(statement, position);
    if (statement.executeStep())
        requireTrue(statement.getColumn(0));
}

std::optional<qint64> OrderedTable::findAnywhere(const Criteria &criteria, const RowPosition *position,
                                                 Direction direction)
{
    // The criteria come first: they fail for most rows, and the columns of the order lie at the rows' ends.
    std::string sql = "select " + quoted(m_table.keyName()) + " from " + quoted(m_table.name()) + " where (" +
                      criteria.sql + ")";
    if (position)
        sql += " and " + m_order.conditionBeyond(*position, direction);
    SQLite::Statement statement(m_core.connection(), sql + m_order.sortBy(direction) + " limit 1");
    if (position)
        RowOrder::bindPosition(statement, *position);
    return statement.executeStep() ? std::optional<qint64>(statement.getColumn(0).getInt64()) : std::nullopt;
}

bool OrderedTable::isEmpty()
{
    return m_core.reading({}, [&] {
        return !m_core.connection()
                    .execAndGet("select exists(select 1 from " + quoted(m_table.name()) + ")")
                    .getInt();
    });
}

qint64 OrderedTable::count()
{
    return m_core.reading({}, [&] {
        return qint64(
            m_core.connection().execAndGet("select count(*) from " + quoted(m_table.name())).getInt64());
    });
}

qint64 OrderedTable::countBefore(const RowPosition &position)
{
    return m_core.reading({}, [&] {
        qint64 rows = 0;
        for (const RowOrder::Stretch &stretch : m_order.stretchesBeyond(position, Direction::Backward)) {
            SQLite::Statement statement(m_core.connection(),
                                        "select count(*) from " + quoted(m_table.name()) + " where " +
                                            m_order.condition(stretch, Direction::Backward));
            RowOrder::bindPosition(statement, position);
            statement.executeStep();
            rows += statement.getColumn(0).getInt64();
        }
        return rows;
    });
}

} // namespace obelmark
