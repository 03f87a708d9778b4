// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/care/WatchedWork.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

namespace obelmark {

/// Instructions of SQLite's between two looks: a few milliseconds.
static constexpr int instructionsBetweenLooks = 20'000;

WatchedWork::WatchedWork(SQLite::Database &connection, std::function<void()> look)
    : m_connection(connection), m_look(std::move(look))
{
    sqlite3_progress_handler(m_connection.getHandle(), instructionsBetweenLooks, takeLook, this);
}

WatchedWork::~WatchedWork()
{
    sqlite3_progress_handler(m_connection.getHandle(), 0, nullptr, nullptr);
}

int WatchedWork::takeLook(void *self) noexcept
{
    auto &work = *static_cast<WatchedWork *>(self);
    try {
        work.m_look();
        return 0;
    } catch (...) {
        work.m_raised = std::current_exception();
        return 1;
    }
}

} // namespace obelmark
