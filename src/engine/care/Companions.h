// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/FileProgress.h"

namespace SQLite {
class Database;
}

namespace obelmark {

class Schema;

/// Fills the companions that other tools have left null beside a text, in one transaction. With the index
/// TABLE_COLUMN_stale over just those rows this costs next to nothing when there are none.
/// \a mayWait: leave it for another time when another connection is using the file.
void fillCompanions(SQLite::Database &connection, const Schema &schema, bool mayWait,
                    const FileProgress &progress);

/// Makes every companion anew that its text does not fold to.
void refillCompanions(SQLite::Database &connection, const Schema &schema);

} // namespace obelmark
