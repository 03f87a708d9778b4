// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Schema.h"
#include "engine/language/SqlValue.h"
#include <string>
#include <vector>

namespace obelmark {

enum class Direction { Forward, Backward };

/// Where a row stands in an order: the values of the order's columns, then its key.
struct RowPosition
{
    std::vector<SqlValue> values;
    qint64 key = 0;
};

/// The order of a dynaset in SQL: columns of its table, nulls first, and the key as the tie-break.
///
/// Comparing a position as a whole, (a, b, key) > (?, ?, ?), finds nothing where one of its values is null.
/// So the rows beyond it are looked up stretch by stretch, the nearest first: those equal in all columns with
/// a higher key, those equal in all but the last column with a higher value there, and so on. Each stretch is
/// one range of the index.
class RowOrder
{
public:
    RowOrder(const TableSchema &table, std::vector<int> columns);

    const std::vector<int> &columns() const { return m_columns; }

    /// The rows that agree with a position in its first \a equalColumns columns and differ from it, in one
    /// direction, in the next one (or in the key).
    struct Stretch
    {
        size_t equalColumns;
        bool nulls; ///< in that column: null to non-null forward, non-null to null backward

        bool operator==(const Stretch &) const = default;
    };
    /// What together makes up the rows beyond the position, the nearest stretch first.
    std::vector<Stretch> stretchesBeyond(const RowPosition &position, Direction direction) const;

    /// The condition of a stretch, with the position as parameters.
    std::string condition(const Stretch &stretch, Direction direction) const;
    /// The condition of all rows beyond the position, which no index is to be used for.
    std::string conditionBeyond(const RowPosition &position, Direction direction) const;
    /// "order by ..."; an index serves it.
    std::string orderBy(Direction direction, size_t equalColumns = 0) const;
    /// The same as a sort after everything else.
    std::string sortBy(Direction direction) const;

    /// Binds the position to the parameters of a condition.
    static void bindPosition(SQLite::Statement &statement, const RowPosition &position);

private:
    std::string condition(const Stretch &stretch, Direction direction, const std::string &prefix) const;
    std::string terms(Direction direction, size_t first, const std::string &prefix) const;

    std::vector<int> m_columns;
    std::vector<std::string> m_names; ///< of the columns and, last, of the key
};

} // namespace obelmark
