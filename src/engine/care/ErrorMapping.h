// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <SQLiteCpp/Exception.h>
#include <utility>

namespace obelmark {

/// What was being done when SQLite reported an error; the same result code means different things.
struct SqlActivity
{
    enum class Kind { Opening, Reading, Writing };

    Kind kind = Kind::Reading;
    QString path;       ///< full path of the database file
    QString expression; ///< the query or criteria as the caller wrote it
};

/// Raises the engine's error for an SQLite result code and message: the one place where they are translated.
[[noreturn]] void raiseSqlError(int resultCode, const char *message, const SqlActivity &activity);

/// Runs \a work; what SQLite raises in it comes out as an EngineError.
template<class Work>
auto withSqlErrors(const SqlActivity &activity, Work &&work)
{
    try {
        return std::forward<Work>(work)();
    } catch (const SQLite::Exception &error) {
        raiseSqlError(error.getErrorCode(), error.what(), activity);
    }
}

} // namespace obelmark
