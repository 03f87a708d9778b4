// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <exception>
#include <functional>

namespace SQLite {
class Database;
class Exception;
} // namespace SQLite

namespace obelmark {

/// Takes a look at what is going on every few milliseconds while SQLite works on a connection, which the look
/// must leave alone. What a look raises ends the work and comes out of it.
class WatchedWork
{
public:
    WatchedWork(SQLite::Database &connection, std::function<void()> look);
    ~WatchedWork();
    Q_DISABLE_COPY_MOVE(WatchedWork)

    template<class Work>
    auto run(Work &&work)
    {
        try {
            return work();
        } catch (const SQLite::Exception &) {
            if (m_raised)
                std::rethrow_exception(m_raised);
            throw;
        }
    }

private:
    static int takeLook(void *self) noexcept;

    SQLite::Database &m_connection;
    std::function<void()> m_look;
    std::exception_ptr m_raised;
};

} // namespace obelmark
