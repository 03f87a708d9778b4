// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QMap>
#include <QString>

namespace obelmark {

/// What has come from an old file into a new one, and what has not.
struct TakeOverReport
{
    struct Table
    {
        QString name;
        bool isInOldFile = false;
        bool hasKey = true;              ///< no version's tables were without
        qint64 declared = 0;             ///< the number of rows that the old file says it has
        qint64 taken = 0;                ///< the number of rows in the new file
        qint64 unreadableRows = 0;       ///< found, but damaged
        QStringList missingColumns = {}; ///< of the new file, left empty
        QMap<QString, qint64> lost = {}; ///< values that make no sense, by their column
        QMap<QString, qint64> leftOver =
            {}; ///< values in columns of the old file that the new one does not have
    };
    QList<Table> tables;
    QMap<QString, qint64> otherTables; ///< of the old file, with the number of their rows; not taken over
    bool readToEnd = false;

    const Table *table(const QString &name) const;
    /// Whether something is missing that whole files have. Columns and tables that only one of the files
    /// knows are no damage.
    bool isDamaged() const;
    /// For the user, a line for each table and for each thing that was not taken over.
    QString text() const;
};

} // namespace obelmark
