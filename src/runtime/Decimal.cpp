// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "runtime/Decimal.h"

#include "runtime/NumberedError.h"
#include "runtime/RegionalSettings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace obelmark {

using namespace Qt::StringLiterals;

// No double needs more digits to be told from its neighbours; a digit that stands for all further ones
// follows.
static constexpr qsizetype mostDigits = 800;
// Far beyond every result, and no sum of two of them overflows.
static constexpr qint64 mostExponent = 1'000'000'000'000;

static bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

static bool isBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Reads one number from a text in plainSpelling().
class DecimalReader
{
public:
    DecimalReader(QStringView text, const NumberSymbols &symbols) : m_text(text), m_symbols(symbols) {}

    std::optional<Decimal> read()
    {
        skipBlanks();
        if (take(u'&'))
            return literal();
        readSurroundings(u'(');
        const bool bracketed = m_brackets == 1;
        if (!readDigits())
            return {};
        readExponent();
        readSurroundings(u')');
        if (!atEnd() || m_brackets != (bracketed ? 2 : 0) || m_signs + (bracketed ? 1 : 0) > 1)
            return {};
        m_result.m_negative = m_result.m_negative || bracketed;
        m_result.normalise();
        return m_result;
    }

private:
    bool atEnd() const { return m_at == m_text.size(); }
    QChar next() const { return atEnd() ? QChar() : m_text[m_at]; }

    bool take(QChar c)
    {
        const bool there = !atEnd() && next() == c;
        m_at += there ? 1 : 0;
        return there;
    }

    void skipBlanks()
    {
        while (isBlank(next()))
            ++m_at;
    }

    /// Blanks, signs, the bracket of this side and the currency symbol, in any order, before or behind the
    /// digits.
    void readSurroundings(QChar bracket)
    {
        for (;;) {
            skipBlanks();
            if (takeCurrencySymbol())
                continue;
            if (take(bracket)) {
                ++m_brackets;
            } else if (take(u'-')) {
                ++m_signs;
                m_result.m_negative = true;
            } else if (take(u'+')) {
                ++m_signs;
            } else {
                return;
            }
        }
    }

    bool takeCurrencySymbol()
    {
        const QString &symbol = m_symbols.currencySymbol;
        if (m_symbolSeen || symbol.isEmpty() || !m_text.sliced(m_at).startsWith(symbol))
            return false;
        m_symbolSeen = true;
        m_at += symbol.size();
        return true;
    }

    bool takeGroupSeparator()
    {
        if (m_symbols.groupSeparator.isNull() || next() != m_symbols.groupSeparator)
            return false;
        // A blank groups digits only when it stands between two of them.
        if (next() == u' ' && (m_at + 1 == m_text.size() || !isDigit(m_text[m_at + 1])))
            return false;
        ++m_at;
        return true;
    }

    bool readDigits()
    {
        bool any = false;
        while (isDigit(next()) || (any && takeGroupSeparator())) {
            if (!isDigit(next()))
                continue;
            any = true;
            addDigit();
            m_result.m_point += m_significant ? 1 : 0;
        }
        if (take(m_symbols.decimalPoint)) {
            while (isDigit(next())) {
                any = true;
                addDigit();
                m_result.m_point -= m_significant ? 0 : 1;
            }
        }
        return any;
    }

    void addDigit()
    {
        const char digit = char(next().unicode());
        ++m_at;
        m_significant = m_significant || digit != '0';
        QByteArray &digits = m_result.m_digits;
        if (!m_significant)
            return;
        if (digits.size() < mostDigits)
            digits.append(digit);
        else if (digits.size() == mostDigits && digit != '0')
            digits.append('1');
    }

    void readExponent()
    {
        qsizetype at = m_at;
        const auto there = [&] { return at < m_text.size() ? m_text[at] : QChar(); };
        if (there() != u'e' && there() != u'E')
            return;
        ++at;
        const bool negative = there() == u'-';
        if (negative || there() == u'+')
            ++at;
        if (!isDigit(there())) // the "E" may still be a currency symbol
            return;
        qint64 exponent = 0;
        for (; isDigit(there()); ++at)
            exponent = std::min(exponent * 10 + (there().unicode() - u'0'), mostExponent);
        m_result.m_point += negative ? -exponent : exponent;
        m_at = at;
    }

    /// A hexadecimal or octal number: two's complement in 16 bits when it fits, else in 32.
    std::optional<Decimal> literal()
    {
        const QChar letter = next().toUpper();
        if (letter != u'H' && letter != u'O')
            return {};
        const int base = letter == u'H' ? 16 : 8;
        const qsizetype begin = ++m_at;
        quint64 number = 0;
        for (; next().isLetterOrNumber() && next().unicode() < 0x80; ++m_at) {
            bool isDigit = false;
            const uint value = m_text.sliced(m_at, 1).toUInt(&isDigit, base);
            number = number * quint64(base) + value;
            if (!isDigit || number > 0xFFFF'FFFF)
                return {};
        }
        if (m_at == begin)
            return {};
        skipBlanks();
        if (!atEnd())
            return {};
        return Decimal::fromWhole(number <= 0xFFFF ? qint64(qint16(number)) : qint64(qint32(number)));
    }

    QStringView m_text;
    const NumberSymbols &m_symbols;
    Decimal m_result;
    qsizetype m_at = 0;
    int m_signs = 0;
    int m_brackets = 0;
    bool m_symbolSeen = false;
    bool m_significant = false; ///< a digit other than 0 has been read
};

std::optional<Decimal> Decimal::fromText(QStringView text, const RegionalSettings &regional)
{
    const NumberSymbols &symbols = regional.numberSymbols();
    const std::optional<Decimal> number =
        DecimalReader(plainSpelling(text, symbols.zeroDigit), symbols).read();
    // What is too large for a double is no number. 1e308 still fits: only longer ones have to be tried.
    if (number && number->m_point > 308 && !number->toDouble())
        return {};
    return number;
}

Decimal Decimal::fromDouble(double number)
{
    if (!std::isfinite(number))
        throw runtimeError(Overflow);
    char text[32];
    const auto end =
        std::to_chars(text, text + sizeof text, std::fabs(number), std::chars_format::scientific, 14).ptr;
    // "d.dddddddddddddde+xx"
    Decimal result;
    result.m_negative = std::signbit(number);
    result.m_digits = QByteArray(text, 1) + QByteArray(text + 2, 14);
    const char *exponent = text + 17;
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, result.m_point);
    ++result.m_point;
    result.normalise();
    return result;
}

Decimal Decimal::fromWhole(qint64 number)
{
    Decimal result;
    result.m_negative = number < 0;
    result.m_digits = QByteArray::number(qAbs(number));
    result.m_point = result.m_digits.size();
    result.normalise();
    return result;
}

void Decimal::normalise()
{
    qsizetype size = m_digits.size();
    while (size > 0 && m_digits[size - 1] == '0')
        --size;
    m_digits.truncate(size);
    if (m_digits.isEmpty()) {
        m_point = 0;
        m_negative = false;
    }
}

std::optional<qint64> Decimal::scaled(int decimals, Rounding rounding) const
{
    const qint64 kept = m_point + decimals;
    if (m_digits.isEmpty() || kept < 0)
        return 0;
    if (kept > 19)
        return {};
    quint64 number = 0; // 19 digits fit without a sign
    for (qint64 i = 0; i < kept; ++i)
        number = number * 10 + quint64(i < m_digits.size() ? m_digits[i] - '0' : 0);
    if (kept < m_digits.size()) {
        const char dropped = m_digits[kept];
        const bool half = dropped == '5' && m_digits.size() == kept + 1;
        if (half ? rounding == Rounding::HalfAwayFromZero || number % 2 == 1 : dropped >= '5')
            ++number;
    }
    constexpr quint64 limit = quint64(1) << 63;
    if (number > limit || (number == limit && !m_negative))
        return {};
    return m_negative ? qint64(0 - number) : qint64(number);
}

std::optional<double> Decimal::toDouble() const
{
    if (m_digits.isEmpty())
        return 0.0;
    if (m_point > 400 || m_point < -400)
        return m_point > 0 ? std::nullopt : std::optional(0.0);
    const QByteArray text = (m_negative ? "-." : ".") + m_digits + 'e' + QByteArray::number(m_point);
    double number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    if (error == std::errc::result_out_of_range)
        return m_point > 0 ? std::nullopt : std::optional(0.0);
    return number;
}

QString Decimal::toText(QStringView decimalPoint) const
{
    if (m_digits.isEmpty())
        return u"0"_s;
    constexpr qint64 mostPlaces = 15;
    const bool exponentForm = m_point > mostPlaces || m_point <= -mostPlaces;
    const qint64 point = exponentForm ? 1 : m_point;
    const QByteArray whole = point > 0 ? m_digits.left(point).leftJustified(point, '0') : QByteArray("0");
    const QByteArray fraction =
        QByteArray(std::max<qint64>(-point, 0), '0') + m_digits.mid(std::max<qint64>(point, 0));
    QString text = (m_negative ? "-"_L1 : ""_L1) + QString::fromLatin1(whole);
    if (!fraction.isEmpty())
        text += decimalPoint.toString() + QString::fromLatin1(fraction);
    if (exponentForm)
        text += (m_point > 0 ? "E+"_L1 : "E-"_L1) + QString::number(qAbs(m_point - 1));
    return text;
}

} // namespace obelmark
