// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/rows/Database.h"
#include <QtCore>
#include <functional>

namespace obelmark {

using namespace Qt::StringLiterals;

/// The SQL that the delivered file is made with.
QByteArray coinSchema();

/// A coin database of its own for each test, without coins, in memory-backed storage where there is some.
class CoinFile
{
public:
    CoinFile();

    QString folder() const { return m_folder.path(); }
    QString path() const { return m_folder.filePath(QStringLiteral("coin.mdb")); }
    /// Runs SQL on the closed file with the SQLite shell: as another tool would, triggers and all. The answer
    /// is what the shell prints.
    QString shell(const QString &sql) const;
    std::unique_ptr<Database> open(const FaultHook &faultHook = {}) const;

private:
    QTemporaryDir m_folder;
};

/// The number of the error that \a work raises, 0 when it raises none.
int errorOf(const std::function<void()> &work);
/// Its description.
QString errorTextOf(const std::function<void()> &work);

/// Adds a row with these fields, alternately name and value, and answers its key.
qint64 addRow(Dynaset &rows, std::initializer_list<std::pair<QStringView, Value>> fields);

/// One field of all rows in order, joined by blanks, null as "-".
template<class Rows>
QString column(Rows &rows, QStringView field)
{
    QStringList texts;
    for (; !rows.eof(); rows.moveNext()) {
        const Value value = rows.value(field);
        texts << (value.isNull() ? QStringLiteral("-") : value.toText());
    }
    return texts.join(u' ');
}

} // namespace obelmark
