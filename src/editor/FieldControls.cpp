#include "editor/FieldControls.h"

#include "common/SharedState.h"
#include "dates/DateField.h"
#include "dates/IssueDate.h"
#include "editor/LookupList.h"
#include "runtime/Formats.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include <QLineEdit>
#include <cmath>
#include <limits>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestQuotation = 20;

QString savedAs(const QString &text)
{
    return u"will be saved as %1."_s.arg(text);
}

QString noValue(const QString &text, const QString &kind, bool isChecked)
{
    const QString quoted = text.size() > longestQuotation ? text.first(longestQuotation) + u'…' : text;
    return u"'%1' is not a %2%3"_s.arg(quoted, kind, isChecked ? u"."_s : u"; it will be saved empty."_s);
}

QString outOfRange(const QString &least, const QString &most)
{
    return u"must lie between %1 and %2."_s.arg(least, most);
}

template<class Integer>
QString outOfRange(const RegionalSettings &regional)
{
    using Limits = std::numeric_limits<Integer>;
    return outOfRange(regional.locale().toString(Limits::min()), regional.locale().toString(Limits::max()));
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

/// Whether a whole number is written out in the text: 1,878 is 1878, but 1.9E3, 1878D1 and 1878- are not.
bool isWrittenOut(const QString &number, const QString &text)
{
    return numbersIn(text).join(QString()) == numbersIn(number).join(QString()) &&
           text.trimmed().startsWith(u'-') == number.startsWith(u'-');
}

} // namespace

QString moneyText(const QString &number, const RegionalSettings &regional)
{
    try {
        return formatCurrency(Money::fromText(number, regional), regional);
    } catch (const NumberedError &) {
        return formatCurrency(toDouble(number, regional), regional);
    }
}

void MoneyControl::show(const Value &stored)
{
    if (const Money *amount = stored.as<Money>())
        showExactly(*amount);
    else
        showText(QString());
}

Value MoneyControl::value() const
{
    if (isUntouched())
        return m_shownAmount ? Value(*m_shownAmount) : Value();
    if (!isNumeric(text(), m_shared.regional))
        return {};
    return Money::fromText(text(), m_shared.regional);
}

QString MoneyControl::remark(bool isChecked) const
{
    const RegionalSettings &regional = m_shared.regional;
    if (text().isEmpty() || isUntouched())
        return {};
    if (!isNumeric(text(), regional))
        return noValue(text(), u"number"_s, isChecked);
    const QString left = moneyText(text(), regional);
    try {
        Money::fromText(left, regional);
    } catch (const NumberedError &) {
        using Limits = std::numeric_limits<qint64>;
        return outOfRange(formatCurrency(Money::fromTenThousandths(Limits::min()), regional),
                          formatCurrency(Money::fromTenThousandths(Limits::max()), regional));
    }
    return toDouble(left, regional) == toDouble(text(), regional) ? QString() : savedAs(left);
}

QString MoneyControl::text() const
{
    return edit()->text();
}

bool MoneyControl::isUntouched() const
{
    return edit()->text() == m_shownText && (m_shownAmount || m_shownText.isEmpty());
}

void MoneyControl::showExactly(Money amount)
{
    m_shownAmount = amount;
    m_shownText = formatCurrency(amount, m_shared.regional);
    edit()->setText(m_shownText);
}

void MoneyControl::showText(const QString &text)
{
    m_shownAmount.reset();
    m_shownText = text;
    edit()->setText(text);
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
    if (m_size == Size::Bits32)
        return toInt32(text, m_shared.regional);
    return isNumeric(text, m_shared.regional) ? Value(toInt16(text, m_shared.regional)) : Value();
}

QString NumberControl::remark(bool isChecked) const
{
    const QString text = edit()->text();
    if (text.isEmpty())
        return {};
    if (!isNumeric(text, m_shared.regional))
        return noValue(text, u"number"_s, isChecked);
    try {
        const QString saved = plainNumber(value().toInt(), m_shared.regional);
        return isWrittenOut(saved, text) ? QString() : savedAs(saved);
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
