// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Dates.h"
#include "runtime/NumberedError.h"
#include "runtime/RegionalSettings.h"

#include <QVarLengthArray>
#include <array>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

struct Number
{
    int value = 0;
    int digits = 0;

    int asYear() const { return value >= 100 ? value : value + (value < 30 ? 2000 : 1900); }
    bool cannotBeDay() const { return digits > 2 || value == 0 || value > 31; }
};

/// The number whose digits begin at \a at, which moves behind them. Nothing for more than four digits.
std::optional<Number> takeNumber(QStringView text, qsizetype &at)
{
    Number number;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        if (++number.digits > 4)
            return {};
        number.value = number.value * 10 + (text[at].unicode() - u'0');
    }
    return number;
}

QDate dayOf(Number year, Number month, Number day)
{
    if (month.digits > 2 || day.digits > 2 || !QDate::isValid(year.asYear(), month.value, day.value))
        return {};
    return QDate(year.asYear(), month.value, day.value);
}

/// Reads one date with or without a time from a text in plainSpelling().
class DateReader
{
public:
    DateReader(QStringView text, const RegionalSettings &regional)
        : m_text(text.trimmed()), m_order(regional.datePartOrder()), m_words(regional.dateWords()),
          m_pointSeparates(regional.shortDate().separator().contains(u'.'))
    {
    }

    std::optional<Date> read()
    {
        const qsizetype timeBegin = findTime();
        if (timeBegin < 0)
            return readParts(m_text) ? dateOf(chooseDay(), QTime(0, 0)) : std::nullopt;
        const QStringView dayText = m_text.first(timeBegin);
        const QTime time = readTime(m_text.sliced(timeBegin));
        if (!time.isValid())
            return {};
        if (dayText.isEmpty())
            return Date{time.msecsSinceStartOfDay() / 86'400'000.0};
        if (!dayText.back().isSpace() || !readParts(dayText.trimmed()))
            return {};
        return dateOf(chooseDay(), time);
    }

private:
    static std::optional<Date> dateOf(QDate day, QTime time)
    {
        return day.isValid() ? std::optional(Date::from(day, time)) : std::nullopt;
    }

    /// Where the hour begins: the digits before the first colon, or those before AM or PM at the end. -1 for
    /// none.
    qsizetype findTime() const
    {
        qsizetype end = m_text.indexOf(u':');
        if (end < 0) {
            end = m_text.size();
            while (end > 0 && !isDigit(m_text[end - 1]))
                --end;
            const QStringView half = m_text.sliced(end).trimmed();
            if (end == 0 || half.size() < 2 || !m_words.isAfternoon(half))
                return -1;
        }
        while (end > 0 && isDigit(m_text[end - 1]))
            --end;
        return end;
    }

    QTime readTime(QStringView text) const
    {
        std::array<int, 3> parts{};
        qsizetype at = 0;
        for (int &part : parts) {
            const auto number = takeNumber(text, at);
            if (!number || number->digits < 1 || number->digits > 2)
                return {};
            part = number->value;
            if (&part == &parts.back() || at == text.size() || text[at] != u':')
                break;
            ++at;
        }
        int hour = parts[0];
        const QStringView half = text.sliced(at).trimmed();
        if (!half.isEmpty()) {
            const auto afternoon = m_words.isAfternoon(half);
            if (!afternoon || hour > 12)
                return {};
            hour = hour % 12 + (*afternoon ? 12 : 0);
        }
        return QTime(hour, parts[1], parts[2]);
    }

    /// Collects the numbers and the month name of a date. False when it holds anything else.
    bool readParts(QStringView text)
    {
        qsizetype at = 0;
        QChar separator; // that the part before has been given; null for none or blanks
        while (at < text.size()) {
            const QChar c = text[at];
            if (isDigit(c)) {
                const auto number = takeNumber(text, at);
                if (!number || m_numbers.size() == 3)
                    return false;
                m_numbers.append(*number);
                separator = QChar();
            } else if (c.isSpace()) {
                ++at;
            } else if (u"/-.,"_s.contains(c)) {
                const bool first = m_numbers.isEmpty() && !m_month;
                if (first || !separator.isNull())
                    return false;
                separator = c;
                m_points = m_points || c == u'.';
                m_commas = m_commas || c == u',';
                ++at;
            } else {
                if (!takeWord(text, at))
                    return false;
                separator = QChar();
            }
        }
        return separator.isNull() || (separator == u'.' && (m_pointSeparates || m_month));
    }

    bool takeWord(QStringView text, qsizetype &at)
    {
        const qsizetype begin = at;
        while (at < text.size() && !isDigit(text[at]) && !text[at].isSpace() && !u"/-,"_s.contains(text[at]))
            ++at;
        const QStringView word = text.sliced(begin, at - begin);
        if (const auto month = m_words.month(word)) {
            if (m_month)
                return false;
            m_month = *month;
            return true;
        }
        return m_words.isFiller(word);
    }

    QDate chooseDay() const
    {
        if (m_month)
            return chooseAroundName();
        if (m_commas)
            return {};
        if (m_numbers.size() == 3)
            return chooseOfThree();
        if (m_numbers.size() == 2 && (!m_points || m_pointSeparates))
            return chooseOfTwo(m_numbers[0], m_numbers[1]);
        return {};
    }

    bool dayBeforeMonth() const { return m_order.indexOf(u'd') < m_order.indexOf(u'm'); }

    QDate chooseOfThree() const
    {
        const auto inOrder = [this](QStringView order) {
            return dayOf(m_numbers[order.indexOf(u'y')], m_numbers[order.indexOf(u'm')],
                         m_numbers[order.indexOf(u'd')]);
        };
        if (const QDate day = inOrder(m_order); day.isValid())
            return day;
        for (const auto order : {dayBeforeMonth() ? u"dmy" : u"mdy", u"mdy", u"dmy", u"ymd", u"ydm"}) {
            // 30/2/05 is a slip of the pen, not the 5th of February 2030.
            if (*order == u'y' && !m_numbers[0].cannotBeDay())
                continue;
            if (const QDate day = inOrder(order); day.isValid())
                return day;
        }
        return {};
    }

    static QDate chooseOfTwo(Number month, Number day, bool monthIsKnown)
    {
        if (const QDate date = dayOf(thisYear(), month, day); date.isValid())
            return date;
        if (!monthIsKnown) {
            if (const QDate date = dayOf(thisYear(), day, month); date.isValid())
                return date;
        }
        if (const QDate date = dayOf(day, month, {1, 1}); date.isValid() || monthIsKnown)
            return date;
        return dayOf(month, day, {1, 1});
    }

    QDate chooseOfTwo(Number first, Number second) const
    {
        return dayBeforeMonth() ? chooseOfTwo(second, first, false) : chooseOfTwo(first, second, false);
    }

    QDate chooseAroundName() const
    {
        const Number month{m_month, 1};
        if (m_numbers.size() == 1)
            return chooseOfTwo(month, m_numbers[0], true);
        if (m_numbers.size() != 2)
            return {};
        const Number first = m_numbers[0];
        const Number second = m_numbers[1];
        const bool yearFirst = m_order.indexOf(u'y') < m_order.indexOf(u'd') || first.cannotBeDay();
        if (yearFirst) {
            if (const QDate day = dayOf(first, month, second); day.isValid())
                return day;
        }
        return dayOf(second, month, first);
    }

    static Number thisYear() { return {QDate::currentDate().year(), 4}; }

    QStringView m_text;
    const QString &m_order;
    const DateWords &m_words;
    bool m_pointSeparates;
    QVarLengthArray<Number, 3> m_numbers;
    int m_month = 0; ///< from its name; 0 for none
    bool m_points = false;
    bool m_commas = false;
};

std::optional<Date> dateFrom(QStringView text, const RegionalSettings &regional)
{
    return DateReader(plainSpelling(text, regional.numberSymbols().zeroDigit), regional).read();
}

} // namespace

bool isDate(QStringView text, const RegionalSettings &regional)
{
    return dateFrom(text, regional).has_value();
}

Date toDate(QStringView text, const RegionalSettings &regional)
{
    const std::optional<Date> date = dateFrom(text, regional);
    if (!date)
        throw runtimeError(TypeMismatch);
    return *date;
}

} // namespace obelmark
