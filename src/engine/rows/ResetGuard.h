// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <SQLiteCpp/Statement.h>

namespace obelmark {

/// Resets a statement at the end of a scope: one left in the middle of its rows holds the file.
class ResetGuard
{
public:
    explicit ResetGuard(SQLite::Statement &statement) : m_statement(statement) {}
    ~ResetGuard() { m_statement.tryReset(); }
    ResetGuard(const ResetGuard &) = delete;
    ResetGuard &operator=(const ResetGuard &) = delete;

private:
    SQLite::Statement &m_statement;
};

} // namespace obelmark
