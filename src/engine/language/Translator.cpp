// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Translator.h"
#include "engine/language/EngineError.h"
#include "engine/language/MoneyLiteral.h"
#include "runtime/Dates.h"
#include "runtime/RegionalSettings.h"
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

template<size_t n>
bool isOneOf(const Token &token, const QStringView (&words)[n])
{
    return std::any_of(words, words + n, [&](QStringView word) {
        return token.kind == TokenKind::Symbol ? token.text == word : token.isWord(word);
    });
}

constexpr QStringView comparisons[] = {u"=", u"==", u"<>", u"!=", u"<", u">", u"<=", u">="};
constexpr QStringView arithmetic[] = {u"+", u"-", u"*", u"/", u"%", u"||"};
/// The words behind which a value stands.
constexpr QStringView wordsBeforeOperand[] = {
    u"and",  u"or",   u"not",  u"where", u"having", u"on",   u"select",  u"distinct",
    u"when", u"then", u"else", u"case",  u"is",     u"like", u"between",
};
constexpr QStringView trueWords[] = {u"true", u"yes", u"on"};
constexpr QStringView falseWords[] = {u"false", u"no", u"off"};

std::string literal(QString text)
{
    return (u'\'' + text.replace(u"'"_s, u"''"_s) + u'\'').toStdString();
}

/// Date literals are written month first, whatever the region.
const RegionalSettings &dateLiteralSettings()
{
    static const RegionalSettings settings{QLocale(QLocale::English, QLocale::UnitedStates)};
    return settings;
}

} // namespace

Translator::Translator(const QString &sql, const Tokens &tokens, const Scope &scope)
    : m_sql(sql), m_tokens(tokens), m_scope(scope), m_pieces(tokens.size())
{
}

std::string Translator::run()
{
    translateLiterals();
    scaleMoneyNumbers();
    orderByCompanions();

    std::string sql;
    for (size_t i = 0; i < m_tokens.size(); ++i) {
        const std::string &piece = m_pieces[i];
        // Two operators must not become the beginning of a comment.
        const bool wouldJoin = !sql.empty() && !piece.empty() && (sql.back() == '-' || sql.back() == '/') &&
                               (piece.front() == '-' || piece.front() == '*');
        if (m_tokens[i].blankBefore || wouldJoin)
            sql += ' ';
        sql += piece;
    }
    return sql;
}

bool Translator::startsOperand(size_t i) const
{
    if (i == 0)
        return true;
    const Token &before = m_tokens[i - 1];
    if (before.kind == TokenKind::Symbol)
        return before.text != u")" && before.text != u".";
    return isOneOf(before, wordsBeforeOperand);
}

bool Translator::isArithmeticAt(size_t i) const
{
    return i < m_tokens.size() && at(i)->kind == TokenKind::Symbol && isOneOf(*at(i), arithmetic);
}

std::optional<Translator::Reference> Translator::referenceAt(size_t begin) const
{
    if (begin >= m_tokens.size() || !m_tokens[begin].isName())
        return std::nullopt;
    const bool qualified =
        isSymbolAt(begin + 1, u".") && begin + 2 < m_tokens.size() && at(begin + 2)->isName();
    const size_t end = qualified ? begin + 3 : begin + 1;
    if (isSymbolAt(end, u"(")) // a function
        return std::nullopt;
    const QStringView qualifier = qualified ? QStringView(m_tokens[begin].text) : QStringView();
    return Reference{begin, end, m_scope.resolve(qualifier, m_tokens[end - 1].text)};
}

std::optional<Translator::Reference> Translator::referenceEndingAt(size_t end) const
{
    if (end == 0)
        return std::nullopt;
    const bool qualified = end >= 3 && isSymbolAt(end - 2, u".");
    return referenceAt(qualified ? end - 3 : end - 1);
}

void Translator::translateLiterals()
{
    for (size_t i = 0; i < m_tokens.size(); ++i) {
        const Token &token = m_tokens[i];
        std::string &piece = m_pieces[i];
        switch (token.kind) {
        case TokenKind::String:
            piece = literal(token.text);
            break;
        case TokenKind::Date:
            if (!isDate(token.text, dateLiteralSettings()))
                throw EngineError(SyntaxError, m_sql);
            piece = literal(isoText(toDate(token.text, dateLiteralSettings())));
            break;
        case TokenKind::Name:
            piece = quoted(token.text);
            break;
        case TokenKind::Word: {
            // Behind a table "on" begins the condition of a join; a column may bear one of these names.
            const bool isTrue = isOneOf(token, trueWords);
            const bool isYesOrNo = (isTrue || isOneOf(token, falseWords)) && startsOperand(i) &&
                                   !isSymbolAt(i + 1, u".") && !m_scope.resolve({}, token.text);
            piece = isYesOrNo ? (isTrue ? "1" : "0") : token.text.toStdString();
            break;
        }
        case TokenKind::Number:
        case TokenKind::Symbol:
            piece = token.text.toStdString();
            break;
        }
    }
}

void Translator::scaleMoneyNumbers()
{
    for (size_t i = 1; i + 1 < m_tokens.size(); ++i) {
        const Token &token = m_tokens[i];
        if (token.kind == TokenKind::Symbol && isOneOf(token, comparisons)) {
            if (isMoneyBefore(i))
                scale(numberAt(i + 1));
            if (isMoneyAt(i + 1))
                scale(numberBefore(i));
            continue;
        }
        const size_t leftEnd = isWordAt(i - 1, u"not") ? i - 1 : i;
        if (token.isWord(u"between") && isMoneyBefore(leftEnd)) {
            const std::optional<size_t> least = numberAt(i + 1);
            scale(least);
            size_t join = least.value_or(i) + 1;
            while (join < m_tokens.size() && !isWordAt(join, u"and"))
                ++join;
            scale(numberAt(join + 1));
        } else if (token.isWord(u"in") && isMoneyBefore(leftEnd) && isSymbolAt(i + 1, u"(")) {
            scaleList(i + 1);
        }
    }
}

bool Translator::isMoneyBefore(size_t end) const
{
    size_t parentheses = 0;
    for (; end > 0 && isSymbolAt(end - 1, u")"); --end)
        ++parentheses;
    const std::optional<Reference> reference = referenceEndingAt(end);
    if (!reference || !reference->column || (**reference->column).type.kind != ColumnKind::Money)
        return false;
    // Parentheses around the column alone, and not those of a function.
    size_t begin = reference->begin;
    for (; parentheses > 0 && begin > 0 && isSymbolAt(begin - 1, u"("); --begin)
        --parentheses;
    return parentheses == 0 && (begin == reference->begin || startsOperand(begin));
}

bool Translator::isMoneyAt(size_t begin) const
{
    while (isSymbolAt(begin, u"("))
        ++begin;
    const std::optional<Reference> reference = referenceAt(begin);
    return reference && reference->column && (**reference->column).type.kind == ColumnKind::Money;
}

std::optional<size_t> Translator::numberAt(size_t begin) const
{
    while (isSymbolAt(begin, u"(") || isSymbolAt(begin, u"-") || isSymbolAt(begin, u"+"))
        ++begin;
    if (begin >= m_tokens.size() || at(begin)->kind != TokenKind::Number || isArithmeticAt(begin + 1))
        return std::nullopt;
    return begin;
}

std::optional<size_t> Translator::numberBefore(size_t end) const
{
    while (end > 0 && isSymbolAt(end - 1, u")"))
        --end;
    if (end == 0 || at(end - 1)->kind != TokenKind::Number)
        return std::nullopt;
    size_t begin = end - 1;
    while (begin > 0 && (isSymbolAt(begin - 1, u"-") || isSymbolAt(begin - 1, u"+")) &&
           startsOperand(begin - 1))
        --begin;
    return begin > 0 && isArithmeticAt(begin - 1) ? std::nullopt : std::optional(end - 1);
}

void Translator::scale(std::optional<size_t> number)
{
    if (number)
        m_pieces[*number] = inTenThousandths(m_tokens[*number].text).toStdString();
}

void Translator::scaleList(size_t open)
{
    for (size_t i = open; i < m_tokens.size() && !isSymbolAt(i, u")"); ++i) {
        if (i == open || isSymbolAt(i, u","))
            scale(numberAt(i + 1));
    }
}

void Translator::orderByCompanions()
{
    static constexpr QStringView compoundWords[] = {u"union", u"intersect", u"except"};
    // There the terms are columns of the result.
    if (std::any_of(m_tokens.begin(), m_tokens.end(),
                    [](const Token &t) { return isOneOf(t, compoundWords); }))
        return;
    for (size_t i = 0; i + 1 < m_tokens.size(); ++i) {
        if (!isWordAt(i, u"order") || !isWordAt(i + 1, u"by"))
            continue;
        for (size_t term = i + 2; term < m_tokens.size();) {
            const std::optional<Reference> reference = referenceAt(term);
            size_t end = reference ? reference->end : term + 1;
            const bool descending = isWordAt(end, u"desc");
            end += descending || isWordAt(end, u"asc") ? 1 : 0;
            const bool last = end >= m_tokens.size() || !isSymbolAt(end, u",");
            const bool whole =
                !last || end >= m_tokens.size() || isSymbolAt(end, u")") || isWordAt(end, u"limit");
            if (reference && whole)
                orderByCompanion(*reference);
            if (last)
                break;
            term = end + 1;
        }
    }
}

void Translator::orderByCompanion(const Reference &term)
{
    std::optional<ColumnUse> use = term.column;
    // A name given in the select list goes before the columns of the tables.
    if (const std::optional<size_t> as = term.end - term.begin == 1 ? aliasOf(term.begin) : std::nullopt)
        use = columnAlone(*as);
    if (!use || (**use).companion < 0)
        return;
    for (size_t i = term.begin; i < term.end; ++i)
        m_pieces[i].clear();
    m_pieces[term.begin] = quoted(use->source) + "." + quoted(use->table->column((**use).companion).name);
}

std::optional<size_t> Translator::aliasOf(size_t name) const
{
    for (size_t i = 1; i + 1 < m_tokens.size() && !isWordAt(i, u"from"); ++i) {
        if (isWordAt(i, u"as") && sameName(m_tokens[i + 1].text, m_tokens[name].text))
            return i;
    }
    return std::nullopt;
}

std::optional<ColumnUse> Translator::columnAlone(size_t end) const
{
    const std::optional<Reference> reference = referenceEndingAt(end);
    if (!reference || reference->end != end || reference->begin == 0)
        return std::nullopt;
    const size_t before = reference->begin - 1;
    const bool alone =
        isSymbolAt(before, u",") || isWordAt(before, u"select") || isWordAt(before, u"distinct");
    return alone ? reference->column : std::nullopt;
}

} // namespace obelmark
