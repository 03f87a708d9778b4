// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/Recordset.h"
#include <memory>

namespace obelmark {

/// A read-only copy of a query's rows, movable both ways and unaffected by later writes.
class Snapshot final : public Recordset
{
public:
    ~Snapshot() override;

    bool bof() const override;
    bool eof() const override;
    bool isEmpty() const override;
    qint64 recordCount() const override;
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    void movePrevious() override;
    void findFirst(const QString &criteria) override;
    void findNext(const QString &criteria) override;
    void findPrevious(const QString &criteria) override;
    void findLast(const QString &criteria) override;
    bool noMatch() const override;
    Value value(QStringView field) const override;
    void close() override;

private:
    friend class Database;
    class Private;
    explicit Snapshot(std::unique_ptr<Private> p);
    std::unique_ptr<Private> d;
};

/// A query's rows read once from the first to the last, one row in memory at a time. For use while nothing
/// writes to the database.
class ForwardOnly final
{
public:
    ~ForwardOnly();
    ForwardOnly(const ForwardOnly &) = delete;
    ForwardOnly &operator=(const ForwardOnly &) = delete;

    bool eof() const;
    /// \throws NoCurrentRecord at the end
    void moveNext();
    /// \throws NoCurrentRecord, UnknownColumn
    Value value(QStringView field) const;
    /// The position of a field in the query, by which it is read faster. \throws UnknownColumn
    int position(QStringView field) const;
    /// \throws NoCurrentRecord
    Value value(int position) const;
    void close();

private:
    friend class Database;
    class Private;
    explicit ForwardOnly(std::unique_ptr<Private> p);
    std::unique_ptr<Private> d;
};

} // namespace obelmark
