// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtCore>

namespace obelmark {

using namespace Qt::StringLiterals;

/// A program folder of its own for each test, with a fresh copy of the delivered coin.mdb, made the current
/// directory. exec() and query() are for while the program has not opened the file.
class TestCollection
{
public:
    TestCollection();
    ~TestCollection();

    QString folder() const { return m_folder.path() + u'/'; }
    QString databasePath() const { return folder() + QStringLiteral("coin.mdb"); }

    /// Runs SQL on the file as another tool would, triggers and all.
    void exec(const QString &sql) const;
    /// The rows of a query on a database of the folder, their columns joined by "|", null as "NULL".
    QStringList query(const QString &sql, const QString &file = QStringLiteral("coin.mdb")) const;
    /// An empty file in the images folder.
    void addPicture(const QString &name) const;

private:
    QTemporaryDir m_folder;
    QString m_previousFolder;
};

} // namespace obelmark
