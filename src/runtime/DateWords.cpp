// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/DateWords.h"

#include "runtime/NumberSymbols.h"
#include "runtime/ShortDatePattern.h"

#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

/// The form in which words are compared: no letter case, none of the points and blanks of abbreviations.
static QString folded(QStringView text)
{
    QString word = plainSpelling(text, U'0').toCaseFolded();
    word.remove(u'.').remove(u' ');
    return word;
}

static QStringList lettersOf(QStringView text)
{
    QString letters;
    for (const QChar c : text)
        letters += c.isLetter() || c.isMark() ? c : u' ';
    return letters.split(u' ', Qt::SkipEmptyParts);
}

DateWords::DateWords(const QLocale &locale)
{
    for (int month = 1; month <= 12; ++month)
        m_monthNames.at(size_t(month - 1)) = locale.standaloneMonthName(month, QLocale::LongFormat);
    for (int day = 1; day <= 7; ++day)
        m_shortDayNames.at(size_t(day - 1)) = locale.dayName(day, QLocale::ShortFormat);

    learn(locale);
    learn(QLocale(QLocale::English));
    m_dayHalves.insert(u"a"_s, false);
    m_dayHalves.insert(u"p"_s, true);

    for (const auto format : {QLocale::ShortFormat, QLocale::LongFormat}) {
        for (const DatePatternPiece &piece : datePatternPieces(locale.dateFormat(format))) {
            if (piece.letter.isNull()) {
                for (const QString &word : lettersOf(piece.text))
                    m_fillers.insert(folded(word));
            }
        }
    }
}

void DateWords::learn(const QLocale &language)
{
    Names wholeNames;
    for (int month = 1; month <= 12; ++month) {
        for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
            for (const QString &name :
                 {language.monthName(month, format), language.standaloneMonthName(month, format)}) {
                const QString word = folded(name);
                if (std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); })) {
                    // The month is its number and a word, as in "5月".
                    for (const QString &filler : lettersOf(name))
                        m_fillers.insert(folded(filler));
                } else if (!word.isEmpty()) {
                    if (!m_months.contains(word))
                        m_months.insert(word, month);
                    if (format == QLocale::LongFormat)
                        wholeNames.append({word, month});
                }
            }
        }
    }
    m_wholeNames.append(wholeNames);
    for (const auto &[text, afternoon] :
         {std::pair(language.amText(), false), std::pair(language.pmText(), true)}) {
        if (const QString half = folded(text); !half.isEmpty() && !m_dayHalves.contains(half))
            m_dayHalves.insert(half, afternoon);
    }
}

std::optional<int> DateWords::month(QStringView text) const
{
    const QString word = folded(text);
    if (const auto found = m_months.find(word); found != m_months.end())
        return *found;
    if (word.size() < 3)
        return {};
    for (const Names &names : m_wholeNames) {
        int month = 0;
        bool unique = true;
        for (const auto &[name, itsMonth] : names) {
            if (name.startsWith(word)) {
                unique = unique && (month == 0 || month == itsMonth);
                month = itsMonth;
            }
        }
        if (month > 0)
            return unique ? std::optional(month) : std::nullopt;
    }
    return {};
}

bool DateWords::isFiller(QStringView word) const
{
    return m_fillers.contains(folded(word));
}

std::optional<bool> DateWords::isAfternoon(QStringView text) const
{
    const auto found = m_dayHalves.find(folded(text));
    return found == m_dayHalves.end() ? std::nullopt : std::optional(*found);
}

} // namespace obelmark
