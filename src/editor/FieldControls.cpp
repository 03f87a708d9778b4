#include "editor/FieldControls.h"

#include "common/SharedState.h"
#include "dates/DateField.h"
#include "dates/DateFormat.h"
#include "editor/LookupList.h"
#include "runtime/Formats.h"
#include "runtime/Numbers.h"
#include "runtime/TextEncoding.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace obelmark {

TextControl::TextControl(QLineEdit *edit) : m_edit(edit), m_limit(edit->maxLength()) {}

QWidget *TextControl::widget() const
{
    return m_edit;
}

void TextControl::show(const Value &stored)
{
    const QString text = stored.toText();
    // The limit is for typing; a longer stored text must not be cut by being shown.
    m_edit->setMaxLength(std::max(m_limit, int(text.size())));
    m_edit->setText(text);
    m_edit->setCursorPosition(0);
}

Value TextControl::value() const
{
    return m_edit->text();
}

QWidget *NotesControl::widget() const
{
    return m_edit;
}

void NotesControl::show(const Value &stored)
{
    m_stored = stored.toText();
    m_edit->setPlainText(withLf(m_stored));
    m_shown = m_edit->document()->toRawText();
}

Value NotesControl::value() const
{
    // toPlainText() would turn no-break spaces into blanks.
    QString text = m_edit->document()->toRawText();
    if (text == m_shown)
        return m_stored;
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return withCrLf(text);
}

QWidget *MoneyControl::widget() const
{
    return m_edit;
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

QString MoneyControl::text() const
{
    return m_edit->text();
}

bool MoneyControl::isUntouched() const
{
    return m_edit->text() == m_shownText && (m_shownAmount || m_shownText.isEmpty());
}

void MoneyControl::showExactly(Money amount)
{
    m_shownAmount = amount;
    m_shownText = formatCurrency(amount, m_shared.regional);
    m_edit->setText(m_shownText);
}

void MoneyControl::showText(const QString &text)
{
    m_shownAmount.reset();
    m_shownText = text;
    m_edit->setText(text);
}

QWidget *NumberControl::widget() const
{
    return m_edit;
}

void NumberControl::show(const Value &stored)
{
    const qint64 *number = stored.as<qint64>();
    m_edit->setText(number ? plainNumber(*number, m_shared.regional) : QString());
}

void NumberControl::clear()
{
    m_edit->setText(m_textForNew);
}

Value NumberControl::value() const
{
    const QString text = m_edit->text();
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
    return toDate(text, m_shared.regional);
}

Value DateControl::value() const
{
    const auto typed = date();
    return typed ? Value(*typed) : Value();
}

Value IssueDateControl::value() const
{
    const auto typed = date();
    if (!typed)
        return {};
    const RegionalSettings &regional = shared().regional;
    const QString year = m_yearEdit->text();
    if (year.size() != 4 || !isNumeric(year, regional))
        return *typed;
    bool isCentury = false;
    const int century = year.left(2).toInt(&isCentury);
    if (!isCentury || century < 0)
        return *typed;
    const QDate day = typed->date();
    const QString inCentury = FormatDate(shared(), qint16(day.month()), qint16(day.day()),
                                         qint16(century * 100 + day.year() % 100));
    // 29 February has no place in some centuries' years.
    return isDate(inCentury, regional) ? toDate(inCentury, regional) : *typed;
}

QWidget *YesNoControl::widget() const
{
    return m_box;
}

void YesNoControl::show(const Value &stored)
{
    m_box->setChecked(stored.toBool());
}

Value YesNoControl::value() const
{
    return m_box->isChecked();
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

} // namespace obelmark
