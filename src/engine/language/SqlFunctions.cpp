// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/SqlFunctions.h"
#include "engine/language/LikePattern.h"
#include "engine/language/TextFold.h"
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

namespace obelmark {

namespace {

std::string_view textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return text ? std::string_view(text, size_t(sqlite3_value_bytes(value))) : std::string_view();
}

bool anyNull(int count, sqlite3_value **values)
{
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return true;
    }
    return false;
}

/// SQLite evaluates "value like pattern" as like(pattern, value). A pattern that is the same for every row is
/// made ready once.
void like(sqlite3_context *context, int count, sqlite3_value **values)
{
    if (anyNull(count, values))
        return;
    auto *pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 0));
    if (!pattern) {
        auto made = std::make_unique<LikePattern>(textOf(values[0]));
        const bool matches = made->matches(textOf(values[1]));
        sqlite3_set_auxdata(context, 0, made.release(),
                            [](void *p) { delete static_cast<LikePattern *>(p); });
        sqlite3_result_int(context, matches);
        return;
    }
    sqlite3_result_int(context, pattern->matches(textOf(values[1])));
}

void fold(sqlite3_context *context, int count, sqlite3_value **values)
{
    if (anyNull(count, values))
        return;
    const std::string_view text = textOf(values[0]);
    const QByteArray folded = foldText(QString::fromUtf8(text.data(), qsizetype(text.size()))).toUtf8();
    sqlite3_result_text(context, folded.constData(), int(folded.size()), SQLITE_TRANSIENT);
}

} // namespace

void setUpSql(SQLite::Database &connection)
{
    sqlite3_db_config(connection.getHandle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection.getHandle(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    connection.createFunction("like", 2, true, nullptr, like, nullptr, nullptr, nullptr);
    connection.createFunction(foldSqlFunction, 1, true, nullptr, fold, nullptr, nullptr, nullptr);
}

} // namespace obelmark
