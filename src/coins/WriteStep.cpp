// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "coins/WriteStep.h"

#include "common/SharedState.h"
#include "engine/rows/Transaction.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"

namespace obelmark {

WriteStep::WriteStep(SharedState &shared, StepKind kind, const QString &what, const QObject *by)
    : m_shared(shared), m_changes{.kind = kind, .what = what, .by = by}
{
    writeWithRetry(m_shared, [&] { m_transaction = std::make_unique<Transaction>(coinDatabase(m_shared)); });
}

WriteStep::~WriteStep() = default;

bool WriteStep::update(Dynaset &rows)
{
    return m_transaction && writeWithRetry(m_shared, [&] {
               RowChange change = rows.pendingChange();
               rows.update();
               m_changes.rows.push_back(std::move(change));
           });
}

bool WriteStep::remove(Dynaset &rows)
{
    return m_transaction && writeWithRetry(m_shared, [&] {
               RowChange change = rows.removal();
               rows.remove();
               m_changes.rows.push_back(std::move(change));
           });
}

bool WriteStep::commit(const std::function<void()> &afterwards)
{
    const bool isWritten = m_transaction && writeWithRetry(m_shared, [&] {
                               m_transaction->commit();
                               for (const LookupTable &table : lookupTables())
                                   m_shared.*table.stale |= m_changes.touches(table.name);
                               afterwards();
                           });
    if (isWritten)
        emit m_shared.changes.changed(m_changes);
    return isWritten;
}

} // namespace obelmark
