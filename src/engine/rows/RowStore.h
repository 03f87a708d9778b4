// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/SqlValue.h"
#include <SQLiteCpp/Statement.h>
#include <vector>

namespace obelmark {

/// Rows of a query's result packed one behind the other, at little more than the size of their contents.
class RowStore
{
public:
    qint64 rowCount() const { return qint64(m_rows.size()); }
    void append(const SQLite::Statement &row);
    SqlCell cell(qint64 row, int column) const;

private:
    template<class Number>
    void appendNumber(Number number);
    void appendBytes(std::string_view bytes);

    std::vector<size_t> m_rows; ///< where each begins
    std::vector<char> m_bytes;
};

} // namespace obelmark
