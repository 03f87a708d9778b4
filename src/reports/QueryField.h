// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/Snapshot.h"

namespace obelmark {

/// A field of a query's rows, looked up by its name once. For the rows of one query only.
class QueryField
{
public:
    explicit QueryField(const QString &name) : m_name(name) {}

    /// \throws UnknownColumn
    Value in(const ForwardOnly &row)
    {
        if (m_position < 0)
            m_position = row.position(m_name);
        return row.value(m_position);
    }
    /// The amount of money; 0 when it is null.
    Money amountIn(const ForwardOnly &row)
    {
        const Value value = in(row);
        const Money *amount = value.as<Money>();
        return amount ? *amount : Money();
    }

private:
    QString m_name;
    int m_position = -1;
};

} // namespace obelmark
