#pragma once

namespace SQLite {
class Database;
}

namespace obelmark {

/// Gives a connection "like" with the engine's patterns (LikePattern), and foldSqlFunction. They live in the
/// connection only: nothing in a file's schema refers to them.
void registerSqlFunctions(SQLite::Database &connection);

/// foldText() under the name it has in the engine's own statements.
inline constexpr char foldSqlFunction[] = "obelmark_fold";

} // namespace obelmark
