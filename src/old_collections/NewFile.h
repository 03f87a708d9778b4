// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "old_collections/OldFile.h"
#include "old_collections/TakeOverReport.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace obelmark {

/// A new database, made by a schema and filled with what an old file tells. It counts for nothing before
/// finish(); the caller removes or renames it.
class NewFile : public OldFileVisitor
{
public:
    /// Called before each row with the table and how many of how many rows are done.
    using Pulse = std::function<void(const QString &table, qint64 done, qint64 total)>;

    /// \throws NumberedError when the file cannot be written; so do the others
    NewFile(const QString &path, const QByteArray &schema, const Pulse &pulse);
    ~NewFile() override;
    Q_DISABLE_COPY(NewFile)

    /// The tables of the schema, in its order.
    QStringList tables() const;

    void beginTable(const OldTable &table) override;
    void row(const OldRow &row) override;
    void unreadableRow() override;

    /// Sets the counters, closes the file, checks it and flushes it to the disk. \a readToEnd: the whole old
    /// file has been told.
    TakeOverReport finish(bool readToEnd);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace obelmark
