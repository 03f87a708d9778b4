// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/Transaction.h"

#include "engine/rows/DatabaseCore.h"
#include "runtime/NumberedError.h"

namespace obelmark {

// A savepoint outside of any transaction begins one, and releasing it commits.

Transaction::Transaction(Database &database) : m_core(database.d)
{
    m_core->writing([&] { m_core->connection().exec("savepoint step"); });
}

Transaction::~Transaction()
{
    if (!m_open || !m_core->isOpen())
        return;
    try {
        m_core->countChange();
        m_core->writing([&] { m_core->connection().exec("rollback to step; release step"); });
    } catch (const NumberedError &) {
        // An error that made SQLite undo the whole transaction has taken the savepoint with it. Where the
        // file has been taken away, what is not in it must not be seen either.
        m_core->connection().tryExec("rollback to step; release step");
    }
}

void Transaction::commit()
{
    m_core->writing([&] { m_core->connection().exec("release step"); });
    m_open = false;
}

} // namespace obelmark
