// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace obelmark {

enum class TokenKind {
    Word,   ///< a keyword or a plain name
    Name,   ///< a name in brackets
    String, ///< a text literal, between either quote
    Date,   ///< a literal between number signs
    Number, ///< without sign
    Symbol, ///< an operator or punctuation
};

struct Token
{
    TokenKind kind;
    QString text; ///< of names and literals what they stand for, without delimiters
    bool blankBefore = false;

    bool isName() const { return kind == TokenKind::Word || kind == TokenKind::Name; }
    bool isWord(QStringView word) const;
    bool isSymbol(QStringView symbol) const { return kind == TokenKind::Symbol && text == symbol; }
};

using Tokens = std::vector<Token>;

/// Takes SQL text of the engine's dialect apart. Comments and parameters have no place in it.
/// \throws SyntaxError for a literal or bracket that is never closed, and for characters that belong nowhere
Tokens tokenize(const QString &sql);

} // namespace obelmark
