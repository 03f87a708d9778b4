// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/rows/TableWriter.h"
#include "engine/language/SqlValue.h"
#include "engine/language/TextFold.h"
#include "engine/rows/ResetGuard.h"
#include <SQLiteCpp/Column.h>

namespace obelmark {

namespace {

/// Different sets of columns that a program writes; a few in practice.
constexpr size_t mostUpdateStatements = 32;

} // namespace

std::vector<Value> TableWriter::blankRow()
{
    std::vector<Value> values(m_table.columns().size());
    for (size_t i = 0; i < values.size(); ++i) {
        const Column &column = m_table.columns()[i];
        if (column.defaultSql.isEmpty())
            continue;
        m_core.reading(column.defaultSql, [&] {
            SQLite::Statement statement(m_core.connection(), "select " + column.defaultSql.toStdString());
            statement.executeStep();
            values[i] = toValue(cellAt(statement, 0), column.type);
        });
    }
    return values;
}

std::vector<TableWriter::Assignment> TableWriter::assignments(const std::vector<bool> &changed) const
{
    std::vector<Assignment> result;
    for (int column = 0; column < m_table.columnCount(); ++column) {
        if (!changed[size_t(column)] || column == m_table.keyColumn())
            continue;
        result.push_back({column, column});
        if (const int companion = m_table.column(column).companion; companion >= 0)
            result.push_back({companion, column});
    }
    return result;
}

void TableWriter::bindValues(SQLite::Statement &statement, const std::vector<Assignment> &assignments,
                             const std::vector<Value> &values)
{
    int parameter = 0;
    for (const Assignment &assignment : assignments) {
        const Value &value = values[size_t(assignment.source)];
        const QString *text = value.as<QString>();
        const bool isCompanion = assignment.column != assignment.source;
        bindValue(statement, ++parameter, toSqlValue(isCompanion && text ? Value(foldText(*text)) : value));
    }
}

void TableWriter::insert(qint64 key, const std::vector<Value> &values)
{
    // Companions come with the texts they belong to.
    std::vector<bool> columns(values.size(), true);
    for (size_t i = 0; i < columns.size(); ++i)
        columns[i] = !m_table.columns()[i].isCompanion;
    const std::vector<Assignment> written = assignments(columns);
    m_core.writing([&] {
        if (!m_insert) {
            std::string names = quoted(m_table.keyName());
            std::string parameters = "?" + std::to_string(written.size() + 1);
            for (size_t i = 0; i < written.size(); ++i) {
                names += ", " + quoted(m_table.column(written[i].column).name);
                parameters += ", ?" + std::to_string(i + 1);
            }
            m_insert.emplace(m_core.connection(), "insert into " + quoted(m_table.name()) + "(" + names +
                                                      ") values(" + parameters + ")");
        }
        const ResetGuard guard(*m_insert);
        bindValues(*m_insert, written, values);
        m_insert->bind(int(written.size()) + 1, int64_t(key));
        m_insert->exec();
    });
    m_core.countChange();
}

bool TableWriter::update(qint64 key, const std::vector<Value> &values, const std::vector<bool> &changed)
{
    const std::vector<Assignment> written = assignments(changed);
    const bool found = m_core.writing([&] {
        auto cached = m_updates.find(changed);
        if (cached == m_updates.end()) {
            std::string sql;
            for (const Assignment &assignment : written)
                sql += (sql.empty() ? "" : ", ") + quoted(m_table.column(assignment.column).name) + " = ?";
            SQLite::Statement made(m_core.connection(), "update " + quoted(m_table.name()) + " set " + sql +
                                                            " where " + quoted(m_table.keyName()) + " = ?");
            if (m_updates.size() >= mostUpdateStatements)
                m_updates.clear();
            cached = m_updates.emplace(changed, std::move(made)).first;
        }
        SQLite::Statement &statement = cached->second;
        const ResetGuard guard(statement);
        bindValues(statement, written, values);
        statement.bind(int(written.size()) + 1, int64_t(key));
        return statement.exec() > 0;
    });
    m_core.countChange();
    return found;
}

bool TableWriter::remove(qint64 key)
{
    const bool found = m_core.writing([&] {
        if (!m_remove)
            m_remove.emplace(m_core.connection(), "delete from " + quoted(m_table.name()) + " where " +
                                                      quoted(m_table.keyName()) + " = ?");
        const ResetGuard guard(*m_remove);
        m_remove->bind(1, int64_t(key));
        return m_remove->exec() > 0;
    });
    m_core.countChange();
    return found;
}

} // namespace obelmark
