// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <vector>

namespace obelmark {

/// What a write does to one row of a table.
struct RowChange
{
    enum class Kind { Added, Changed, Deleted };
    struct Field
    {
        QString column;
        Value before; ///< null in a row that is added
        Value after;  ///< null in one that is deleted
    };

    Kind kind;
    QString table;
    qint64 key;
    /// Those that differ, without the key and the companions of texts.
    std::vector<Field> fields;
};

} // namespace obelmark
