// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/FieldControl.h"

#include "runtime/TextEncoding.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

/// An input limit counts UTF-16 units and may leave half of a character behind, which no file can hold.
QString withoutHalfCharacters(const QString &text)
{
    QString whole;
    whole.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair)
            whole += text[i++];
        if (isPair || !text[i].isSurrogate())
            whole += text[i];
    }
    return whole;
}

/// What the clipboard may bring into a field of one line that no key types: line ends and tabs become blanks,
/// the null character, at which other tools end the text, goes.
QString onOneLine(QString text)
{
    text.remove(QChar(QChar::Null)).replace("\r\n"_L1, " "_L1);
    for (QChar &letter : text) {
        if (letter.category() == QChar::Other_Control || letter == QChar::LineSeparator ||
            letter == QChar::ParagraphSeparator)
            letter = u' ';
    }
    return text;
}

} // namespace

QWidget *LineControl::widget() const
{
    return m_edit;
}

void LineControl::onChange(QObject *context, const std::function<void()> &changed) const
{
    QObject::connect(m_edit, &QLineEdit::textChanged, context, changed);
}

TextControl::TextControl(QLineEdit *edit) : LineControl(edit), m_limit(edit->maxLength()) {}

void TextControl::show(const Value &stored)
{
    const QString text = stored.toText();
    // The limit is for typing; a longer stored text must not be cut by being shown.
    edit()->setMaxLength(std::max(m_limit, int(text.size())));
    edit()->setText(text);
    edit()->setCursorPosition(0);
    m_shown = edit()->text();
}

Value TextControl::value() const
{
    const QString text = edit()->text();
    return withoutHalfCharacters(text == m_shown ? text : onOneLine(text));
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
    text.remove(QChar(QChar::Null));
    return withCrLf(text);
}

void NotesControl::onChange(QObject *context, const std::function<void()> &changed) const
{
    QObject::connect(m_edit, &QPlainTextEdit::textChanged, context, changed);
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

void YesNoControl::onChange(QObject *context, const std::function<void()> &changed) const
{
    QObject::connect(m_box, &QCheckBox::toggled, context, changed);
}

} // namespace obelmark
