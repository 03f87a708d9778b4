// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/language/Scope.h"
#include "engine/language/Tokenizer.h"
#include <optional>
#include <string>
#include <vector>

namespace obelmark {

/// One piece of SQL text on its way from the engine's dialect to SQLite's. Works on the tokens in several
/// passes, each for one difference, and puts the pieces together at the end.
class Translator
{
public:
    /// \a sql is the text as it was given, for error messages.
    Translator(const QString &sql, const Tokens &tokens, const Scope &scope);

    /// \throws SyntaxError for a date literal that is no date
    std::string run();

private:
    /// A column named by the tokens from \a begin up to \a end.
    struct Reference
    {
        size_t begin;
        size_t end;
        std::optional<ColumnUse> column;
    };

    const Token *at(size_t i) const { return i < m_tokens.size() ? &m_tokens[i] : nullptr; }
    bool isSymbolAt(size_t i, QStringView symbol) const
    {
        return i < m_tokens.size() && at(i)->isSymbol(symbol);
    }
    bool isWordAt(size_t i, QStringView word) const { return i < m_tokens.size() && at(i)->isWord(word); }
    bool startsOperand(size_t i) const;
    bool isArithmeticAt(size_t i) const;

    std::optional<Reference> referenceAt(size_t begin) const;
    std::optional<Reference> referenceEndingAt(size_t end) const;

    void translateLiterals();

    void scaleMoneyNumbers();
    bool isMoneyBefore(size_t end) const;
    bool isMoneyAt(size_t begin) const;
    std::optional<size_t> numberAt(size_t begin) const;
    std::optional<size_t> numberBefore(size_t end) const;
    void scale(std::optional<size_t> number);
    void scaleList(size_t open);

    void orderByCompanions();
    void orderByCompanion(const Reference &term);
    /// Where the "as" stands that gives a result column this name.
    std::optional<size_t> aliasOf(size_t name) const;
    /// The column that makes up a term of the select list up to \a end; nothing when that is more than a
    /// column.
    std::optional<ColumnUse> columnAlone(size_t end) const;

    QString m_sql;
    const Tokens &m_tokens;
    const Scope &m_scope;
    std::vector<std::string> m_pieces; ///< what each token becomes
};

} // namespace obelmark
