// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace SQLite {
class Database;
}

namespace obelmark {

/// Makes a connection understand SQL as the engine writes it: "like" with the engine's patterns
/// (LikePattern), foldSqlFunction, and names in double quotes that are never texts. The functions live in the
/// connection only: nothing in a file's schema refers to them.
void setUpSql(SQLite::Database &connection);

/// foldText() under the name it has in the engine's own statements.
inline constexpr char foldSqlFunction[] = "obelmark_fold";

} // namespace obelmark
