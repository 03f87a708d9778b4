// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

namespace obelmark {

class Database;
class DatabaseCore;

/// Makes the writes between its construction and commit() one: all of them are in the file afterwards, or,
/// when it is destroyed without commit(), none. One inside another is a savepoint; only the outermost commit
/// reaches the disk.
class Transaction
{
public:
    /// \throws RecordLocked, ObjectClosed
    explicit Transaction(Database &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// \throws DiskFull and other errors of writing; everything is undone then
    void commit();

private:
    std::shared_ptr<DatabaseCore> m_core;
    bool m_open = true;
};

} // namespace obelmark
