// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Schema.h"
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

QString textAt(const SQLite::Statement &row, int column)
{
    return QString::fromUtf8(row.getColumn(column).getText());
}

} // namespace

void TableSchema::addColumn(const Column &column)
{
    m_index.add(column.name, int(m_columns.size()));
    m_columns.push_back(column);
}

void TableSchema::pairCompanions()
{
    for (Column &column : m_columns) {
        const int companion = column.type.kind == ColumnKind::Text ? find(column.name + "sort"_L1) : -1;
        if (companion >= 0 && this->column(companion).type.kind == ColumnKind::Text) {
            column.companion = companion;
            m_columns[size_t(companion)].isCompanion = true;
        }
    }
}

Schema::Schema(SQLite::Database &connection)
{
    SQLite::Statement columns(connection,
                              "select t.name, c.name, c.type, c.pk, c.dflt_value "
                              "from pragma_table_list t, pragma_table_info(t.name) c "
                              "where t.schema = 'main' and t.type = 'table' order by t.name, c.cid");
    while (columns.executeStep()) {
        const QString tableName = textAt(columns, 0);
        if (m_tables.empty() || m_tables.back()->name() != tableName) {
            m_tableIndex.add(tableName, int(m_tables.size()));
            m_tables.push_back(std::make_unique<TableSchema>(tableName));
        }
        TableSchema &table = *m_tables.back();
        const QString declaration = textAt(columns, 2);
        // Only a single column declared with this very word is the row's number and not a value beside it.
        const int placeInKey = columns.getColumn(3).getInt();
        if (placeInKey == 1 && sameName(declaration, u"integer"))
            table.setKeyColumn(table.columnCount());
        else if (placeInKey > 1)
            table.setKeyColumn(-1);
        Column column;
        column.name = textAt(columns, 1);
        column.type = columnTypeFromDeclaration(declaration);
        column.defaultSql = textAt(columns, 4);
        table.addColumn(column);
    }
    for (const auto &table : m_tables)
        table->pairCompanions();

    SQLite::Statement indexes(connection, "select name from sqlite_schema where type = 'index'");
    while (indexes.executeStep())
        m_indexes.add(textAt(indexes, 0), 0);
}

const TableSchema *Schema::table(QStringView name) const
{
    const int index = m_tableIndex.find(name);
    return index < 0 ? nullptr : m_tables[size_t(index)].get();
}

std::string quoted(QStringView name)
{
    return (u'"' + name.toString().replace(u"\""_s, u"\"\""_s) + u'"').toStdString();
}

} // namespace obelmark
