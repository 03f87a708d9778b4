// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Scope.h"
#include <algorithm>

namespace obelmark {

namespace {

/// The words that can follow a table in "from"; any other word there is another name for the table.
bool endsTable(const Token &token)
{
    static constexpr QStringView words[] = {
        u"left",  u"right", u"full",      u"inner",  u"outer", u"cross",   u"natural",
        u"join",  u"on",    u"using",     u"where",  u"group", u"having",  u"order",
        u"limit", u"union", u"intersect", u"except", u"not",   u"indexed",
    };
    return !token.isName() || std::any_of(std::begin(words), std::end(words),
                                          [&](QStringView word) { return token.isWord(word); });
}

} // namespace

void Scope::addTablesOf(const Tokens &tokens, const Schema &schema)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].isWord(u"from") && !tokens[i].isWord(u"join"))
            continue;
        bool another = true;
        while (another) {
            ++i;
            while (i < tokens.size() && tokens[i].isSymbol(u"("))
                ++i;
            if (i == tokens.size() || endsTable(tokens[i]))
                break;
            const TableSchema *table = schema.table(tokens[i].text);
            QString name = tokens[i].text;
            if (i + 1 < tokens.size() && tokens[i + 1].isWord(u"as"))
                ++i;
            if (i + 1 < tokens.size() && !endsTable(tokens[i + 1]))
                name = tokens[++i].text;
            if (table)
                add(name, table);
            another = i + 1 < tokens.size() && tokens[i + 1].isSymbol(u",");
            i += another ? 1 : 0;
        }
    }
}

std::optional<ColumnUse> Scope::resolve(QStringView qualifier, QStringView column) const
{
    std::optional<ColumnUse> found;
    for (const Source &source : m_sources) {
        if (!qualifier.isEmpty() && !sameName(qualifier, source.name))
            continue;
        const int index = source.table->find(column);
        if (index < 0)
            continue;
        if (found)
            return std::nullopt;
        found = {source.name, source.table, index};
    }
    return found;
}

} // namespace obelmark
