// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/FieldControls.h"

#include "coins/IssueDate.h"
#include "common/SharedState.h"
#include "dates/windows/DateField.h"
#include "editor/LookupList.h"
#include "runtime/Formats.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include <QLineEdit>
#include <algorithm>
#include <cmath>
#include <limits>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestQuotation = 12;

QString savedAs(const QString &text)
{
    return u"will be saved as %1."_s.arg(text);
}

QString noValue(const QString &text, const QString &kind, bool isChecked)
{
    const QString quoted = text.size() > longestQuotation ? text.first(longestQuotation) + u'…' : text;
    return u"'%1' is not a %2%3"_s.arg(quoted, kind, isChecked ? u"."_s : u"; it will be saved empty."_s);
}

template<class Integer>
QString outOfRange(const RegionalSettings &regional)
{
    using Limits = std::numeric_limits<Integer>;
    return u"must lie between %1 and %2."_s.arg(regional.locale().toString(Limits::min()),
                                                regional.locale().toString(Limits::max()));
}

/// The numbers in a text, in any digits and without leading zeros.
QStringList numbersIn(const QString &text)
{
    QStringList numbers{QString()};
    for (const QChar letter : text) {
        if (letter.isDigit())
            numbers.last() += QString::number(letter.digitValue());
        else if (!numbers.last().isEmpty())
            numbers += QString();
    }
    numbers.removeAll(QString());
    for (QString &number : numbers) {
        while (number.size() > 1 && number.startsWith(u'0'))
            number.remove(0, 1);
    }
    return numbers;
}

QString significantDigits(const QString &text)
{
    QString digits;
    for (const QChar letter : text) {
        const int digit = letter.digitValue();
        if (digit > 0 || (digit == 0 && !digits.isEmpty()))
            digits += QChar(u'0' + digit);
    }
    while (digits.endsWith(u'0'))
        digits.chop(1);
    return digits;
}

bool endsWithMinus(const QString &text)
{
    const QString plain = text.trimmed();
    return plain.endsWith(u'-') || plain.endsWith(QChar(0x2212));
}

/// Whether the signs between groups of digits stand where one expects them: 1,878 and not 18,78.
bool isGrouped(const QString &typed, const RegionalSettings &regional)
{
    const QString &sign = regional.groupSeparator();
    const QString whole = typed.section(regional.decimalPoint(), 0, 0);
    if (sign.isEmpty() || !typed.contains(sign))
        return true;
    const QString last = whole.section(sign, -1);
    const auto digits = std::ranges::count_if(last, [](QChar letter) { return letter.isDigit(); });
    return whole.contains(sign) && digits == 3 && typed.count(sign) == whole.count(sign);
}

/// What there is to say of a number that is going to be saved as another text says: nothing when the number
/// is written out, 1,878 or $1878. In 2.505, 1.9E3, 18,78 and 1878- there is more than one sees at once.
QString numberRemark(const QString &typed, const QString &saved, const RegionalSettings &regional)
{
    const bool isWrittenOut = significantDigits(typed) == significantDigits(saved) &&
                              isGrouped(typed, regional) && (!endsWithMinus(typed) || endsWithMinus(saved)) &&
                              (!typed.contains(u'(') || saved.contains(u'('));
    return isWrittenOut ? QString() : savedAs(saved);
}

} // namespace

QString beyondMoney(bool isNegative, const RegionalSettings &regional)
{
    using Limits = std::numeric_limits<qint64>;
    const qint64 limit = isNegative ? Limits::min() : Limits::max();
    return (isNegative ? u"must not be below %1."_s : u"must not exceed %1."_s)
        .arg(formatCurrency(Money::fromTenThousandths(limit), regional));
}

void MoneyControl::show(const Value &stored)
{
    if (const Money *amount = stored.as<Money>())
        showExactly(*amount);
    else
        showReading({});
}

const MoneyControl::Reading &MoneyControl::reading() const
{
    if (m_reading.text == text())
        return m_reading;
    m_reading = {text(), isNumeric(text(), m_shared.regional), {}};
    try {
        if (m_reading.isNumber)
            m_reading.amount = Money::fromText(text(), m_shared.regional);
    } catch (const NumberedError &) {
        // beyond the range
    }
    return m_reading;
}

Value MoneyControl::value() const
{
    if (isUntouched())
        return m_shownAmount ? Value(*m_shownAmount) : Value();
    if (!isNumber())
        return {};
    if (!reading().amount)
        throw runtimeError(Overflow);
    return *reading().amount;
}

QString MoneyControl::remark(bool isChecked) const
{
    const RegionalSettings &regional = m_shared.regional;
    if (m_foresight)
        return m_foresight();
    if (text().isEmpty() || isUntouched())
        return {};
    if (!isNumber())
        return noValue(text(), u"number"_s, isChecked);
    if (const auto &amount = reading().amount)
        return numberRemark(text(), formatCurrency(*amount, regional), regional);
    return beyondMoney(toDouble(text(), regional) < 0, regional);
}

QString MoneyControl::text() const
{
    return edit()->text();
}

bool MoneyControl::isNumber() const
{
    return reading().isNumber;
}

bool MoneyControl::isUntouched() const
{
    return text() == m_shownText && (m_shownAmount || m_shownText.isEmpty());
}

void MoneyControl::showReading(const Reading &shown)
{
    m_shownAmount.reset();
    m_reading = shown;
    m_shownText = shown.text;
    edit()->setText(shown.text);
}

void MoneyControl::showExactly(Money amount)
{
    showRounded(amount);
    m_shownAmount = amount;
}

void MoneyControl::showRounded(Money amount)
{
    showReading({formatCurrency(amount, m_shared.regional), true, asShown(amount)});
}

void MoneyControl::showBeyond(double amount)
{
    showReading({formatCurrency(amount, m_shared.regional), true, {}});
}

void MoneyControl::showAsMoney()
{
    if (const auto amount = reading().amount)
        showRounded(*amount);
    else
        showBeyond(toDouble(text(), m_shared.regional));
}

void NumberControl::show(const Value &stored)
{
    const qint64 *number = stored.as<qint64>();
    edit()->setText(number ? plainNumber(*number, m_shared.regional) : QString());
}

void NumberControl::clear()
{
    edit()->setText(m_textForNew);
}

Value NumberControl::value() const
{
    const QString text = edit()->text();
    if (!isNumeric(text, m_shared.regional))
        return {};
    return m_size == Size::Bits32 ? Value(toInt32(text, m_shared.regional))
                                  : Value(toInt16(text, m_shared.regional));
}

QString NumberControl::remark(bool isChecked) const
{
    const QString text = edit()->text();
    if (text.isEmpty())
        return m_size == Size::Bits32 ? u"must not be empty."_s : QString();
    if (!isNumeric(text, m_shared.regional))
        return noValue(text, u"number"_s, isChecked);
    try {
        return numberRemark(text, plainNumber(value().toInt(), m_shared.regional), m_shared.regional);
    } catch (const NumberedError &) {
        return m_size == Size::Bits32 ? outOfRange<qint32>(m_shared.regional)
                                      : outOfRange<qint16>(m_shared.regional);
    }
}

QWidget *DateControl::widget() const
{
    return m_field;
}

void DateControl::show(const Value &stored)
{
    const Date *date = stored.as<Date>();
    m_shownDate = date ? std::optional(*date) : std::nullopt;
    m_shownText = date ? formatShortDate(*date, m_shared.regional) : QString();
    m_field->setText(m_shownText);
}

std::optional<Date> DateControl::date() const
{
    const QString text = m_field->text();
    if (text == m_shownText)
        return m_shownDate;
    if (!isDate(text, m_shared.regional))
        return {};
    // A day: the field shows no time, and what is not seen is not to be stored.
    return Date{std::trunc(toDate(text, m_shared.regional).serial)};
}

Value DateControl::value() const
{
    const auto typed = date();
    return typed ? Value(*typed) : Value();
}

QString DateControl::remark(bool isChecked) const
{
    const QString text = m_field->text();
    if (text.isEmpty())
        return {};
    const Value day = value();
    if (day.isNull())
        return noValue(text, u"date"_s, isChecked);
    // 7/4/76 leaves the century to be guessed.
    const QString saved = formatShortDate(*day.as<Date>(), m_shared.regional);
    return numbersIn(saved) == numbersIn(text) ? QString() : savedAs(saved);
}

void DateControl::onChange(QObject *context, const std::function<void()> &changed) const
{
    QObject::connect(m_field, &QComboBox::editTextChanged, context, changed);
}

Value IssueDateControl::value() const
{
    const auto typed = date();
    return typed ? Value(inCenturyOf(m_yearEdit->text(), *typed, shared())) : Value();
}

QWidget *LookupControl::widget() const
{
    return m_list;
}

void LookupControl::show(const Value &stored)
{
    const qint64 *key = stored.as<qint64>();
    m_list->selectKey(key ? std::optional(*key) : std::nullopt);
}

Value LookupControl::value() const
{
    const auto key = m_list->key();
    return key ? Value(*key) : Value();
}

void LookupControl::onChange(QObject *context, const std::function<void()> &changed) const
{
    QObject::connect(m_list, &QComboBox::currentIndexChanged, context, changed);
    QObject::connect(m_list, &QComboBox::activated, context, changed);
    QObject::connect(m_list, &LookupList::keyDown, context, changed);
}

} // namespace obelmark
