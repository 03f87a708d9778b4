// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Schema.h"
#include "engine/language/Tokenizer.h"
#include <optional>

namespace obelmark {

/// A column that a query names, and what its table is called there.
struct ColumnUse
{
    QString source;
    const TableSchema *table = nullptr;
    int column = -1;

    const Column &operator*() const { return table->column(column); }
};

/// The tables that a query reads, under the names that it gives them.
class Scope
{
public:
    void add(const QString &name, const TableSchema *table) { m_sources.push_back({name, table}); }
    /// Adds the tables named behind "from" and "join".
    void addTablesOf(const Tokens &tokens, const Schema &schema);

    bool isEmpty() const { return m_sources.empty(); }
    const QString &firstName() const { return m_sources.front().name; }
    /// The column that a name, with or without a table's name before it, stands for; nothing when there is
    /// none or more than one.
    std::optional<ColumnUse> resolve(QStringView qualifier, QStringView column) const;

private:
    struct Source
    {
        QString name;
        const TableSchema *table;
    };
    std::vector<Source> m_sources;
};

} // namespace obelmark
