// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Value.h"
#include <functional>

class QCheckBox;
class QLineEdit;
class QObject;
class QPlainTextEdit;
class QWidget;

namespace obelmark {

/// A control of an editor window as the holder of one field of a row: shows the stored value, gives back the
/// value to be stored.
///
/// What the user has not touched is given back as it was stored, not as it was shown: a price of 2.5055 shows
/// as 2.51 and stays 2.5055.
class FieldControl
{
public:
    virtual ~FieldControl() = default;

    virtual QWidget *widget() const = 0;
    virtual void show(const Value &stored) = 0;
    /// As for a new row.
    virtual void clear() { show(Value()); }
    /// \throws Overflow, TypeMismatch when what the user typed cannot be stored
    virtual Value value() const = 0;
    /// What saving would do to what the user typed other than keep it, as the end of a sentence about the
    /// field, such as "will be saved as 2."; empty when it is kept. \a isChecked tells that the field cannot
    /// be left with what is no value.
    virtual QString remark([[maybe_unused]] bool isChecked) const { return {}; }
    /// Calls \a changed at every change of what the control shows, those by show() and clear() too, for as
    /// long as \a context lives.
    virtual void onChange(QObject *context, const std::function<void()> &changed) const = 0;
};

/// A control of one line.
class LineControl : public FieldControl
{
public:
    explicit LineControl(QLineEdit *edit) : m_edit(edit) {}
    QWidget *widget() const override;
    void onChange(QObject *context, const std::function<void()> &changed) const override;

protected:
    QLineEdit *edit() const { return m_edit; }

private:
    QLineEdit *m_edit;
};

class TextControl : public LineControl
{
public:
    explicit TextControl(QLineEdit *edit);
    void show(const Value &stored) override;
    Value value() const override;

private:
    int m_limit;
    QString m_shown;
};

/// A text of several lines, stored with CR LF.
class NotesControl : public FieldControl
{
public:
    explicit NotesControl(QPlainTextEdit *edit) : m_edit(edit) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;
    void onChange(QObject *context, const std::function<void()> &changed) const override;

private:
    QPlainTextEdit *m_edit;
    QString m_stored;
    QString m_shown;
};

class YesNoControl : public FieldControl
{
public:
    explicit YesNoControl(QCheckBox *box) : m_box(box) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;
    void onChange(QObject *context, const std::function<void()> &changed) const override;

private:
    QCheckBox *m_box;
};

} // namespace obelmark
