// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/CollectionChanges.h"
#include <functional>
#include <memory>

namespace obelmark {

class Dynaset;
class Transaction;
struct SharedState;

/// One action of the user's that writes coins or entries, in one row or in several: all of it is in the file
/// afterwards or nothing. Nobody else writes them.
///
/// Each write is tried again while its row is locked, and its errors go to the shared error handler, as
/// writeWithRetry() says. It knows of each row what was there before and what is there after.
class WriteStep
{
public:
    /// \a what is the action as a menu would say it, \a by the window that does it. Nothing may be asked of
    /// the user from here to commit(), but about a locked row.
    WriteStep(SharedState &shared, StepKind kind, const QString &what, const QObject *by);
    /// Without commit() nothing has been written.
    ~WriteStep();
    WriteStep(const WriteStep &) = delete;
    WriteStep &operator=(const WriteStep &) = delete;

    bool isBegun() const { return m_transaction != nullptr; }
    /// Writes the row begun in \a rows. Answers whether that was carried out.
    bool update(Dynaset &rows);
    /// Deletes the current row of \a rows. Answers whether that was carried out.
    bool remove(Dynaset &rows);
    /// Brings it into the file, then does \a afterwards, then tells every window. Answers whether it is in
    /// the file.
    bool commit(const std::function<void()> &afterwards = [] {});

private:
    SharedState &m_shared;
    Changes m_changes;
    std::unique_ptr<Transaction> m_transaction;
};

} // namespace obelmark
