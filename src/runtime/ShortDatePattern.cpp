// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/ShortDatePattern.h"

#include "runtime/NumberSymbols.h"

#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

static bool isAsciiLetter(QChar c)
{
    return c.isLetter() && c.unicode() < 0x80;
}

QList<DatePatternPiece> datePatternPieces(const QString &pattern)
{
    QList<DatePatternPiece> pieces;
    bool quoted = false;
    for (const QChar c : pattern) {
        if (c == u'\'') {
            quoted = !quoted;
            continue;
        }
        const QChar letter = isAsciiLetter(c) && !quoted ? c : QChar();
        if (pieces.isEmpty() || pieces.last().letter != letter)
            pieces.append({letter, {}});
        pieces.last().text += c;
    }
    return pieces;
}

/// The literal text of a pattern, or \a otherwise where it holds more than the date conversion reads.
static QString readableLiteral(const QString &text, const QString &otherwise)
{
    const QString plain = plainSpelling(text, U'0');
    const bool readable =
        std::all_of(plain.begin(), plain.end(), [](QChar c) { return u"/-. "_s.contains(c); });
    return readable ? plain : otherwise;
}

static bool isPart(const DatePatternPiece &piece)
{
    // "ddd" and "dddd" are weekdays.
    return piece.letter == u'M' || piece.letter == u'y' || (piece.letter == u'd' && piece.text.size() < 3);
}

ShortDatePattern::ShortDatePattern(const QString &localePattern)
{
    for (const DatePatternPiece &piece : datePatternPieces(localePattern)) {
        if (piece.letter.isNull() && m_order.size() == 1 && m_separator.isEmpty()) {
            m_separator = readableLiteral(piece.text, u"-"_s);
        } else if (piece.letter.isNull() && m_order.size() == 3 && m_end.isEmpty()) {
            m_end = readableLiteral(piece.text, {});
        } else if (isPart(piece) && m_order.size() < 3 && !m_order.contains(piece.letter.toLower())) {
            m_digits.at(size_t(m_order.size())) = piece.letter == u'y' ? 4 : piece.text.size() == 2 ? 2 : 1;
            m_order += piece.letter.toLower();
        }
    }
    if (m_order.size() < 3 || m_separator.isEmpty()) {
        m_digits = {4, 2, 2};
        m_order = u"ymd"_s;
        m_separator = u"-"_s;
        m_end.clear();
    }
    for (qsizetype i = 0; i < 3; ++i) {
        const QChar letter = m_order[i] == u'm' ? u'M' : m_order[i];
        m_pattern += QString(m_digits.at(size_t(i)), letter) + (i < 2 ? m_separator : m_end);
    }
}

QString ShortDatePattern::text(QDate date) const
{
    QString text;
    if (!date.isValid())
        return text;
    int year = 0;
    int month = 0;
    int day = 0;
    date.getDate(&year, &month, &day);
    text.reserve(m_pattern.size() + 2);
    for (qsizetype i = 0; i < 3; ++i) {
        const int number = m_order[i] == u'y' ? year : m_order[i] == u'm' ? month : day;
        int power = m_digits.at(size_t(i)) == 4 ? 1000 : m_digits.at(size_t(i)) == 2 || number > 9 ? 10 : 1;
        for (; power > 0; power /= 10)
            text += QChar(char16_t(u'0' + number / power % 10));
        text += i < 2 ? m_separator : m_end;
    }
    return text;
}

} // namespace obelmark
