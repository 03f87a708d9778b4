// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/care/SalvageFile.h"
#include <QString>

namespace SQLite {
class Database;
}

namespace obelmark {

/// A row of a database's table of tables, indexes and so on.
struct SchemaObject
{
    QString type;
    QString name;
    QString table;
    std::uint32_t rootPage = 0; ///< 0: unknown
    QString sql;
    bool wasFound = true; ///< false: not in the damaged file, supplied
};

/// What a damaged database is made of.
struct SalvagedSchema
{
    std::vector<SchemaObject> objects;
    /// Whether all of it could be read.
    bool whole = true;
};

/// Reads the schema of \a damaged, also from pages that nothing leads to any more. What is missing of the
/// tables, indexes and triggers that the script \a known makes is supplied, and what is there of it but
/// makes no sense replaced; the beginnings of their pages are taken from where a new file or a compacted one
/// has them. Chooses the encoding of the texts.
SalvagedSchema readSchema(SalvageFile &damaged, const QByteArray &known);

/// Runs a "create" statement of a damaged file. One that makes no sense must not cost the rows, and one that
/// would read or write anything else is none. Answers whether it was run.
bool tryCreate(SQLite::Database &database, const QString &sql);

QString textOf(const SalvagedValue &value);
std::int64_t integerOf(const SalvagedValue &value);

} // namespace obelmark
