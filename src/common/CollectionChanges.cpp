// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/CollectionChanges.h"

#include <algorithm>

namespace obelmark {

bool Changes::touches(QStringView table) const
{
    return everything || std::ranges::any_of(rows, [&](const RowChange &row) {
               return table.compare(row.table, Qt::CaseInsensitive) == 0;
           });
}

} // namespace obelmark
