// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/RowOrder.h"
#include <algorithm>

namespace obelmark {

namespace {

/// In front of a column: the same value, but nothing that an index is used for.
const std::string noIndex = "+";

std::string parameter(size_t column)
{
    return "?" + std::to_string(column + 1);
}

} // namespace

RowOrder::RowOrder(const TableSchema &table, std::vector<int> columns) : m_columns(std::move(columns))
{
    for (const int column : m_columns)
        m_names.push_back(quoted(table.column(column).name));
    m_names.push_back(quoted(table.keyName()));
}

std::vector<RowOrder::Stretch> RowOrder::stretchesBeyond(const RowPosition &position,
                                                         Direction direction) const
{
    std::vector<Stretch> stretches{{m_columns.size(), false}};
    for (size_t column = m_columns.size(); column-- > 0;) {
        const bool isNull = std::holds_alternative<std::monostate>(position.values[column]);
        if (direction == Direction::Forward) {
            stretches.push_back({column, isNull});
        } else if (!isNull) {
            stretches.push_back({column, false});
            stretches.push_back({column, true});
        }
    }
    return stretches;
}

std::string RowOrder::condition(const Stretch &stretch, Direction direction) const
{
    return condition(stretch, direction, {});
}

std::string RowOrder::condition(const Stretch &stretch, Direction direction, const std::string &prefix) const
{
    std::string sql;
    for (size_t i = 0; i < stretch.equalColumns; ++i)
        sql += prefix + m_names[i] + " is " + parameter(i) + " and ";
    sql += prefix + m_names[stretch.equalColumns];
    if (stretch.nulls)
        return sql + (direction == Direction::Forward ? " is not null" : " is null");
    return sql + (direction == Direction::Forward ? " > " : " < ") + parameter(stretch.equalColumns);
}

std::string RowOrder::conditionBeyond(const RowPosition &position, Direction direction) const
{
    std::string sql;
    for (const Stretch &stretch : stretchesBeyond(position, direction))
        sql += (sql.empty() ? "(" : " or ") + condition(stretch, direction, noIndex);
    return sql + ")";
}

std::string RowOrder::orderBy(Direction direction, size_t equalColumns) const
{
    return terms(direction, equalColumns, {});
}

std::string RowOrder::sortBy(Direction direction) const
{
    return terms(direction, 0, noIndex);
}

std::string RowOrder::terms(Direction direction, size_t first, const std::string &prefix) const
{
    std::string sql;
    for (size_t i = first; i < m_names.size(); ++i) {
        sql += (i == first ? " order by " : ", ") + prefix + m_names[i];
        sql += direction == Direction::Backward ? " desc" : "";
    }
    return sql;
}

void RowOrder::bindPosition(SQLite::Statement &statement, const RowPosition &position)
{
    const size_t wanted = size_t(statement.getBindParameterCount());
    for (size_t i = 0; i < std::min(wanted, position.values.size()); ++i)
        bindValue(statement, int(i) + 1, position.values[i]);
    if (wanted > position.values.size())
        statement.bind(int(wanted), int64_t(position.key));
}

} // namespace obelmark
