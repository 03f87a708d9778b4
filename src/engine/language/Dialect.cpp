// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Dialect.h"
#include "engine/language/EngineError.h"
#include "engine/language/Scope.h"
#include "engine/language/Translator.h"

namespace obelmark {

namespace {

/// Takes the query apart and drops a semicolon at its end; parentheses must pair.
Tokens takeApart(const QString &sql)
{
    Tokens tokens = tokenize(sql);
    if (!tokens.empty() && tokens.back().isSymbol(u";"))
        tokens.pop_back();
    int depth = 0;
    for (const Token &token : tokens) {
        depth += token.isSymbol(u"(") ? 1 : token.isSymbol(u")") ? -1 : 0;
        if (depth < 0 || token.isSymbol(u";"))
            throw EngineError(SyntaxError, sql);
    }
    if (depth != 0 || tokens.empty())
        throw EngineError(SyntaxError, sql);
    return tokens;
}

/// Reads a query whose shape is fixed, token by token.
class FixedQuery
{
public:
    FixedQuery(const QString &sql, const Tokens &tokens) : m_sql(sql), m_tokens(tokens) {}

    bool atEnd() const { return m_at == m_tokens.size(); }
    bool take(QStringView wordOrSymbol)
    {
        const bool matches = !atEnd() && (current().isWord(wordOrSymbol) || current().isSymbol(wordOrSymbol));
        m_at += matches ? 1 : 0;
        return matches;
    }
    void expect(QStringView wordOrSymbol)
    {
        if (!take(wordOrSymbol))
            throw EngineError(SyntaxError, m_sql);
    }
    const QString &expectName()
    {
        if (atEnd() || !current().isName())
            throw EngineError(SyntaxError, m_sql);
        return m_tokens[m_at++].text;
    }

private:
    const Token &current() const { return m_tokens[m_at]; }

    const QString &m_sql;
    const Tokens &m_tokens;
    size_t m_at = 0;
};

std::optional<qint64> keyOf(const Tokens &tokens, const TableSchema &table)
{
    const size_t n = tokens.size();
    if (table.keyColumn() < 0 || (n != 3 && n != 5) || !tokens[n - 2].isSymbol(u"=") ||
        tokens[n - 1].kind != TokenKind::Number || !tokens[n - 3].isName() ||
        table.find(tokens[n - 3].text) != table.keyColumn())
        return std::nullopt;
    if (n == 5 && (!sameName(tokens[0].text, table.name()) || !tokens[1].isSymbol(u".")))
        return std::nullopt;
    bool isWhole = false;
    const qint64 key = tokens[n - 1].text.toLongLong(&isWhole);
    return isWhole ? std::optional(key) : std::nullopt;
}

} // namespace

DynasetQuery parseDynasetQuery(const QString &sql, const Schema &schema)
{
    const Tokens tokens = takeApart(sql);
    FixedQuery query(sql, tokens);
    DynasetQuery result;
    query.expect(u"select");
    query.expect(u"*");
    query.expect(u"from");
    const QString &tableName = query.expectName();
    result.table = schema.table(tableName);
    if (!result.table)
        throw EngineError(UnknownTable, tableName);
    if (query.take(u"order")) {
        query.expect(u"by");
        do {
            QString column = query.expectName();
            if (sameName(column, result.table->name()) && query.take(u"."))
                column = query.expectName();
            query.take(u"asc");
            const int index = result.table->find(column);
            if (index < 0)
                throw EngineError(UnknownColumn, column);
            const int companion = result.table->column(index).companion;
            result.orderColumns.push_back(companion >= 0 ? companion : index);
        } while (query.take(u","));
    }
    if (!query.atEnd())
        throw EngineError(SyntaxError, sql);
    return result;
}

SelectQuery translateSelect(const QString &sql, const Schema &schema)
{
    const Tokens tokens = takeApart(sql);
    if (!tokens.front().isWord(u"select"))
        throw EngineError(SyntaxError, sql);
    Scope scope;
    scope.addTablesOf(tokens, schema);
    return {Translator(sql, tokens, scope).run(), scope.isEmpty() ? QString() : scope.firstName()};
}

Criteria translateCriteria(const QString &criteria, const TableSchema &table, const Schema *schema)
{
    const Tokens tokens = takeApart(criteria);
    Scope scope;
    scope.add(table.name(), &table);
    if (schema)
        scope.addTablesOf(tokens, *schema);
    return {Translator(criteria, tokens, scope).run(), keyOf(tokens, table)};
}

} // namespace obelmark
