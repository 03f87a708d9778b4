// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <QString>
#include <QStringView>

namespace obelmark {

/// A movable view of the rows that a query selects, in the query's order. Opened with rows, the first is
/// current; without, bof() and eof() are both true.
///
/// Every function raises ObjectClosed (3420) once the recordset or its database has been closed.
class Recordset
{
public:
    Recordset() = default;
    virtual ~Recordset() = default;
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    /// Before the first row / behind the last row, with no current row.
    virtual bool bof() const = 0;
    virtual bool eof() const = 0;
    /// Whether there are no rows; costs one look-up at any size.
    virtual bool isEmpty() const = 0;
    /// The exact number of rows; may have to count them.
    virtual qint64 recordCount() const = 0;

    /// Moves discard a row begun by addNew() or edit(). Moving on from eof() or back from bof(), and any move
    /// in an empty set: NoCurrentRecord (3021). From eof() movePrevious() goes to the last row.
    virtual void moveFirst() = 0;
    virtual void moveLast() = 0;
    virtual void moveNext() = 0;
    virtual void movePrevious() = 0;

    /// Makes the first match current: First from the start, Last from the end, Next and Previous from the
    /// current row, which is no candidate itself. Without a match the current row stays. Criteria are in the
    /// engine's dialect, without "where".
    virtual void findFirst(const QString &criteria) = 0;
    virtual void findNext(const QString &criteria) = 0;
    virtual void findPrevious(const QString &criteria) = 0;
    virtual void findLast(const QString &criteria) = 0;
    /// Whether the last find had no match. Moves leave it alone.
    virtual bool noMatch() const = 0;

    /// The field of the current row (or of the row begun by addNew() or edit()), by name without regard to
    /// letter case. \throws NoCurrentRecord, RecordDeleted, UnknownColumn
    virtual Value value(QStringView field) const = 0;

    /// Releases what the recordset holds; a second close is ObjectClosed.
    virtual void close() = 0;
};

} // namespace obelmark
