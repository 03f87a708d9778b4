// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <QList>
#include <QString>
#include <stdexcept>
#include <vector>

namespace obelmark {

/// Whether the file was written by the database engine of the program's older versions. Only its first bytes
/// are looked at; a file that is missing or cannot be read is none.
bool isOldFile(const QString &path);

/// Why nothing at all can be taken from an old file, in a sentence for the user.
class OldFileError : public std::runtime_error
{
public:
    explicit OldFileError(const QString &reason) : std::runtime_error(reason.toStdString()) {}
    QString reason() const { return QString::fromUtf8(what()); }
};

/// A table as an old file describes it.
struct OldTable
{
    QString name;
    qint64 declaredRows = 0;
    qint64 lastCounter = 0; ///< the last value that its counter has given; 0 when it has none
    QStringList columns;    ///< empty for a table that was not asked for
};

struct OldRow
{
    std::vector<Value> values; ///< one a column
    /// The columns whose value is null here and something in the file that makes no sense, or of a kind that
    /// the program has no use for (pictures and the like).
    QList<int> unreadable;
};

/// Is told what stands in an old file, table by table.
class OldFileVisitor
{
public:
    virtual ~OldFileVisitor() = default;
    virtual void beginTable(const OldTable &table) = 0;
    virtual void row(const OldRow &row) = 0;
    /// In the place of a row that the file holds but that cannot be read.
    virtual void unreadableRow() = 0;
};

} // namespace obelmark
