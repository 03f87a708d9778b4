// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/CurrencyPattern.h"

#include "runtime/NumberSymbols.h"

#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

static qsizetype codePoints(QStringView text)
{
    qsizetype count = 0;
    for (qsizetype at = 0; at < text.size(); takeCodePoint(text, at))
        ++count;
    return count;
}

CurrencyPattern::CurrencyPattern(const QLocale &numbers, const QLocale &currency)
    : m_positive(around(currency.toCurrencyString(1.0))), m_negative(around(currency.toCurrencyString(-1.0))),
      m_decimalPoint(numbers.decimalPoint()), m_groupSeparator(numbers.groupSeparator()),
      m_zeroDigit(zeroDigitOf(numbers))
{
    if (m_groupSeparator.isEmpty())
        return;
    const QStringList groups = numbers.toString(111'111'111'111).split(m_groupSeparator);
    if (groups.size() < 3)
        return;
    m_lowestGroup = codePoints(groups.last());
    m_otherGroups = codePoints(groups[groups.size() - 2]);
    m_fewestGrouped = m_lowestGroup + 1;
    for (qlonglong sample = 1111; sample < 11'111'111; sample = sample * 10 + 1) {
        if (numbers.toString(sample).contains(m_groupSeparator))
            break;
        ++m_fewestGrouped;
    }
}

CurrencyPattern::Surroundings CurrencyPattern::around(const QString &sample)
{
    qsizetype first = sample.size();
    qsizetype last = 0;
    for (qsizetype at = 0; at < sample.size();) {
        const qsizetype begin = at;
        if (QChar::digitValue(takeCodePoint(sample, at)) >= 0) {
            first = std::min(first, begin);
            last = at;
        }
    }
    return {sample.first(first), sample.sliced(last)};
}

bool CurrencyPattern::endsGroup(qsizetype digitsLeft) const
{
    return digitsLeft == m_lowestGroup ||
           (digitsLeft > m_lowestGroup && (digitsLeft - m_lowestGroup) % m_otherGroups == 0);
}

void CurrencyPattern::append(QString &text, char digit) const
{
    const char32_t own = m_zeroDigit + char32_t(digit - '0');
    if (QChar::requiresSurrogates(own))
        text += QChar::fromUcs4(own);
    else
        text += QChar(char16_t(own));
}

QString CurrencyPattern::text(bool negative, QByteArrayView whole, int hundredths) const
{
    const auto &[before, after] = negative ? m_negative : m_positive;
    QString text;
    text.reserve(before.size() + after.size() + 2 * whole.size() + 4);
    text += before;
    const bool grouped = m_lowestGroup > 0 && whole.size() >= m_fewestGrouped;
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (grouped && i > 0 && endsGroup(whole.size() - i))
            text += m_groupSeparator;
        append(text, whole[i]);
    }
    text += m_decimalPoint;
    append(text, char('0' + hundredths / 10));
    append(text, char('0' + hundredths % 10));
    text += after;
    return text;
}

} // namespace obelmark
