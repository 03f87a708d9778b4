// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/NumberSymbols.h"

namespace obelmark {

char32_t takeCodePoint(QStringView text, qsizetype &at)
{
    const QChar first = text[at++];
    if (first.isHighSurrogate() && at < text.size() && text[at].isLowSurrogate())
        return QChar::surrogateToUcs4(first, text[at++]);
    return first.unicode();
}

static bool isInvisible(char32_t c)
{
    return (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) ||
           c == 0x061C;
}

static char32_t plainCharacter(char32_t c)
{
    switch (c) {
    case 0x00A0: // no-break space
    case 0x2007: // figure space
    case 0x2009: // thin space
    case 0x202F: // narrow no-break space
        return U' ';
    case 0x2212: // minus sign
        return U'-';
    case 0x2019: // right single quotation mark
        return U'\'';
    case 0xFFE5: // full-width yen sign
        return 0x00A5;
    default:
        return c;
    }
}

QString plainSpelling(QStringView text, char32_t zeroDigit)
{
    QString plain;
    plain.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const char32_t c = takeCodePoint(text, at);
        if (c < 0x80)
            plain += QChar(char16_t(c));
        else if (c >= zeroDigit && c <= zeroDigit + 9)
            plain += QChar(char16_t(U'0' + (c - zeroDigit)));
        else if (!isInvisible(c))
            plain += QChar::fromUcs4(plainCharacter(c));
    }
    return plain;
}

static QChar firstCharacter(const QString &text, QChar otherwise)
{
    const QString plain = plainSpelling(text, U'0');
    return plain.isEmpty() ? otherwise : plain.front();
}

char32_t zeroDigitOf(const QLocale &locale)
{
    qsizetype at = 0;
    return takeCodePoint(locale.zeroDigit(), at);
}

NumberSymbols::NumberSymbols(const QLocale &numbers, const QString &currency)
    : zeroDigit(zeroDigitOf(numbers)), decimalPoint(firstCharacter(numbers.decimalPoint(), u'.')),
      groupSeparator(firstCharacter(numbers.groupSeparator(), QChar())),
      currencySymbol(plainSpelling(currency, zeroDigit).trimmed())
{
}

} // namespace obelmark
