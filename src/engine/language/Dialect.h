// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Schema.h"
#include "engine/language/Tokenizer.h"
#include <QString>
#include <optional>
#include <string>
#include <vector>

namespace obelmark {

/// Turns what differs between the engine's dialect and SQLite's: "text" and #date# literals, yes and no,
/// numbers compared with money columns, and ordering by a text column that has a companion. The patterns of
/// "like" are the business of the function behind it (LikePattern). The rest passes unchanged, for SQLite to
/// judge.
///
/// All of these raise SyntaxError, with the text as it was given, for what cannot even be taken apart.

/// What "select * from TABLE [order by COLUMN, ...]" asks for.
struct DynasetQuery
{
    const TableSchema *table = nullptr;
    std::vector<int> orderColumns;
};
/// \throws UnknownTable, UnknownColumn
DynasetQuery parseDynasetQuery(const QString &sql, const Schema &schema);

struct SelectQuery
{
    std::string sql;
    /// What its first table is called in it; empty when it reads none.
    QString firstTable;
};
SelectQuery translateSelect(const QString &sql, const Schema &schema);

struct Criteria
{
    std::string sql; ///< a condition that can stand in parentheses
    /// Set when the condition is "KEY = number".
    std::optional<qint64> key;
};
/// \a schema is for tables that the criteria bring in themselves; may be nullptr.
Criteria translateCriteria(const QString &criteria, const TableSchema &table, const Schema *schema);

} // namespace obelmark
