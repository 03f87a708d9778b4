// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/Recordset.h"
#include "engine/rows/RowChange.h"
#include <memory>

namespace obelmark {

class DatabaseCore;

/// An updatable recordset over one table, opened from "select * from TABLE [order by COLUMN, ...]".
///
/// A live cursor, not a copy: it keeps the order key and the primary key of its current row and moves by
/// seeking on the index of its order (nulls first, the primary key last as the tie-break). Opening costs
/// nothing, a move is one or a few index look-ups, and a row added or changed, by this or another recordset
/// of the database, stands at once in its sorted place.
class Dynaset final : public Recordset
{
public:
    ~Dynaset() override;

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

    /// The place of the current row in the order, counted from 1; 0 when no row is current. Known at once
    /// after steps from a row whose place is known; else as many entries of the index are counted as lie in
    /// front.
    qint64 position() const;

    /// Begins a new row: nulls, and the counter already assigned (never given again, even when the row is
    /// abandoned). The row current before stays current after update().
    void addNew();
    /// Begins changing the current row. \throws NoCurrentRecord, RecordDeleted
    void edit();
    /// Writes into the begun row. Text into text, money into money and so on, null anywhere but the counter.
    /// Bytes that another tool has stored in a column of texts stay until a text that is not empty is
    /// written. \throws UpdateWithoutEdit, UnknownColumn, DataTypeConversion, FieldTooSmall
    void setValue(QStringView field, const Value &value);
    /// Writes the begun row in one durable transaction. When that fails the begun row is kept, so that
    /// update() can be tried again. \throws UpdateWithoutEdit, RecordLocked, RecordDeleted, DiskFull and
    /// others
    void update();
    /// What update() would do to the file. \throws UpdateWithoutEdit, RecordDeleted
    RowChange pendingChange() const;
    /// Drops the begun row.
    void cancelUpdate();
    /// Deletes the current row in one durable transaction. It stays current, unreadable (RecordDeleted),
    /// until a move; moveNext() then goes to the row after it and movePrevious() to the row before it.
    void remove();
    /// What remove() would do to the file. \throws NoCurrentRecord, RecordDeleted
    RowChange removal() const;

private:
    friend class Database;
    class Private;
    explicit Dynaset(std::unique_ptr<Private> p);
    std::unique_ptr<Private> d;
};

} // namespace obelmark
