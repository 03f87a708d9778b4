// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/ResultColumns.h"
#include <SQLiteCpp/Exception.h>

namespace obelmark {

namespace {

ColumnType typeOf(const SQLite::Statement &statement, int column)
{
    try {
        return columnTypeFromDeclaration(QString::fromUtf8(statement.getColumnDeclaredType(column)));
    } catch (const SQLite::Exception &) {
        return {}; // what is no column of a table raises an error
    }
}

} // namespace

TableSchema resultColumns(const SQLite::Statement &statement, const QString &name)
{
    TableSchema columns(name);
    for (int i = 0; i < statement.getColumnCount(); ++i) {
        Column column;
        column.name = QString::fromUtf8(statement.getColumnName(i));
        column.type = typeOf(statement, i);
        columns.addColumn(column);
    }
    return columns;
}

} // namespace obelmark
