// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Dialect.h"
#include "engine/rows/DatabaseCore.h"
#include "engine/rows/RowOrder.h"
#include <SQLiteCpp/Statement.h>
#include <map>
#include <optional>

namespace obelmark {

/// A row as it was read, and where it stands.
struct OrderedRow
{
    RowPosition position;
    std::vector<Value> values; ///< one for each column of the table
    /// The columns that are read as null because another tool has written what they cannot hold.
    std::vector<int> unreadable;
};

/// The look-ups of a dynaset in its table and order. Its statements are made once, and none is left open:
/// each is reset as soon as its row has been read.
class OrderedTable
{
public:
    OrderedTable(DatabaseCore &core, const DynasetQuery &query);

    const TableSchema &table() const { return m_table; }

    std::optional<OrderedRow> first(Direction direction);
    /// The nearest row beyond a position, at which there need be no row any more.
    /// \throws EngineError (DatabaseDamaged) when the index leads to one that is not beyond it
    std::optional<OrderedRow> next(const RowPosition &position, Direction direction);
    std::optional<OrderedRow> row(qint64 key);
    /// The key of the nearest row that meets the criteria: from the end of the order, or beyond a position.
    std::optional<qint64> find(const Criteria &criteria, const RowPosition *position, Direction direction);

    bool isEmpty();
    qint64 count();
    /// The number of rows in front of a position; reads as many entries of the index.
    qint64 countBefore(const RowPosition &position);

private:
    /// The first row in \a order that meets \a condition, if any; \a position bound to their parameters.
    std::optional<OrderedRow> readRow(const std::string &condition, const std::string &order,
                                      const RowPosition &position);

    struct NearbyResult
    {
        std::optional<qint64> key;
        bool allSeen = false; ///< there are no more rows than those searched
    };
    void requireBeyond(qint64 key, const RowPosition &position, Direction direction);
    NearbyResult findNearby(const Criteria &criteria, const RowPosition *position, Direction direction);
    std::optional<qint64> findAnywhere(const Criteria &criteria, const RowPosition *position,
                                       Direction direction);

    DatabaseCore &m_core;
    const TableSchema &m_table;
    RowOrder m_order;
    std::string m_selectRow;                               ///< "select KEY, COLUMNS"
    std::map<std::string, SQLite::Statement> m_statements; ///< by condition and order
};

} // namespace obelmark
