// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/Tokenizer.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include <algorithm>

namespace obelmark {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool isWordPart(QChar c)
{
    return isWordStart(c) || c.isDigit() || c.isMark() || c == u'$';
}

constexpr QStringView symbols[] = {
    u"<=", u">=", u"<>", u"!=", u"==", u"||", u"=", u"<", u">", u"+", u"-",
    u"*",  u"/",  u"%",  u"|",  u"&",  u"~",  u"(", u")", u",", u".", u";",
};

class Tokenizer
{
public:
    explicit Tokenizer(const QString &sql) : m_sql(sql), m_rest(sql) {}

    Tokens run()
    {
        Tokens tokens;
        for (bool blank = skipBlanks(); !m_rest.isEmpty(); blank = skipBlanks()) {
            tokens.push_back(next());
            tokens.back().blankBefore = blank;
        }
        return tokens;
    }

private:
    bool skipBlanks()
    {
        return !takeWhile([](QChar c) { return c.isSpace(); }).isEmpty();
    }

    Token next()
    {
        const QChar c = m_rest.front();
        if (c == u'\'' || c == u'"')
            return {TokenKind::String, takeDelimited(c, true)};
        if (c == u'#')
            return {TokenKind::Date, takeDelimited(c, false)};
        if (c == u'[')
            return {TokenKind::Name, takeDelimited(u']', false)};
        if (c == u'`')
            return {TokenKind::Name, takeDelimited(c, true)};
        if (isWordStart(c))
            return {TokenKind::Word, takeWhile(isWordPart).toString()};
        if (isDigit(c) || (c == u'.' && m_rest.size() > 1 && isDigit(m_rest[1])))
            return {TokenKind::Number, takeNumber()};
        for (const QStringView symbol : symbols) {
            if (m_rest.startsWith(symbol)) {
                m_rest = m_rest.sliced(symbol.size());
                return {TokenKind::Symbol, symbol.toString()};
            }
        }
        throw EngineError(SyntaxError, m_sql);
    }

    template<class Test>
    QStringView takeWhile(Test test)
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), test);
        const QStringView taken = m_rest.first(end - m_rest.begin());
        m_rest = m_rest.sliced(taken.size());
        return taken;
    }

    /// What stands between the delimiter at hand and \a close; doubled, \a close stands for itself.
    QString takeDelimited(QChar close, bool doubles)
    {
        QString content;
        m_rest = m_rest.sliced(1);
        for (;;) {
            const qsizetype end = m_rest.indexOf(close);
            if (end < 0)
                throw EngineError(SyntaxError, m_sql);
            content += m_rest.first(end);
            m_rest = m_rest.sliced(end + 1);
            if (!doubles || !m_rest.startsWith(close))
                return content;
            content += close;
            m_rest = m_rest.sliced(1);
        }
    }

    QString takeNumber()
    {
        QString number = takeWhile(isDigit).toString();
        if (m_rest.startsWith(u'.')) {
            m_rest = m_rest.sliced(1);
            number += u'.';
            number += takeWhile(isDigit);
        }
        const auto exponentDigits = [this](qsizetype at) {
            return m_rest.size() > at && isDigit(m_rest[at]);
        };
        if (m_rest.startsWith(u'e', Qt::CaseInsensitive)) {
            const bool hasSign = m_rest.size() > 1 && (m_rest[1] == u'-' || m_rest[1] == u'+');
            if (exponentDigits(hasSign ? 2 : 1)) {
                number += m_rest.first(hasSign ? 2 : 1);
                m_rest = m_rest.sliced(hasSign ? 2 : 1);
                number += takeWhile(isDigit);
            }
        }
        return number;
    }

    const QString &m_sql;
    QStringView m_rest;
};

} // namespace

bool Token::isWord(QStringView word) const
{
    return kind == TokenKind::Word && sameName(text, word);
}

Tokens tokenize(const QString &sql)
{
    return Tokenizer(sql).run();
}

} // namespace obelmark
