#include "editor/FieldControls.h"

#include "common/SharedState.h"
#include "dates/DateField.h"
#include "dates/IssueDate.h"
#include "editor/LookupList.h"
#include "runtime/Formats.h"
#include "runtime/Numbers.h"
#include <QLineEdit>
#include <cmath>

namespace obelmark {

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
