#pragma once

#include "runtime/Money.h"
#include "runtime/Value.h"
#include <QWidget>
#include <optional>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace obelmark {

class DateField;
class LookupList;
struct SharedState;

/// A control of the editor as the holder of one field of a coin: shows the stored value, gives back the value
/// to be stored.
///
/// What the user has not touched is given back as it was stored, not as it was shown: a price of 2.5055 shows
/// as 2.51 and stays 2.5055.
class FieldControl
{
public:
    virtual ~FieldControl() = default;

    virtual QWidget *widget() const = 0;
    virtual void show(const Value &stored) = 0;
    /// As for a new coin.
    virtual void clear() { show(Value()); }
    /// \throws Overflow, TypeMismatch when what the user typed cannot be stored
    virtual Value value() const = 0;
};

class TextControl : public FieldControl
{
public:
    explicit TextControl(QLineEdit *edit);
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

private:
    QLineEdit *m_edit;
    int m_limit;
};

/// A text of several lines, stored with CR LF.
class NotesControl : public FieldControl
{
public:
    explicit NotesControl(QPlainTextEdit *edit) : m_edit(edit) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

private:
    QPlainTextEdit *m_edit;
    QString m_stored;
    QString m_shown;
};

class MoneyControl : public FieldControl
{
public:
    MoneyControl(QLineEdit *edit, const SharedState &shared) : m_edit(edit), m_shared(shared) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

    QString text() const;
    /// Whether the text is what was last shown here, so that the exact amount behind it still holds.
    bool isUntouched() const;
    /// Shows an amount and keeps it to the last decimal.
    void showExactly(Money amount);
    /// Shows a text of the user's as money; from then on the amount is what the text says.
    void showText(const QString &text);

private:
    QLineEdit *m_edit;
    const SharedState &m_shared;
    QString m_shownText;
    std::optional<Money> m_shownAmount;
};

/// A whole number: the year (16 bits) or the quantity (32 bits).
class NumberControl : public FieldControl
{
public:
    enum class Size { Bits16, Bits32 };
    NumberControl(QLineEdit *edit, Size size, const QString &textForNew, const SharedState &shared)
        : m_edit(edit), m_size(size), m_textForNew(textForNew), m_shared(shared)
    {
    }
    QWidget *widget() const override;
    void show(const Value &stored) override;
    void clear() override;
    Value value() const override;

private:
    QLineEdit *m_edit;
    Size m_size;
    QString m_textForNew;
    const SharedState &m_shared;
};

class DateControl : public FieldControl
{
public:
    DateControl(DateField *field, const SharedState &shared) : m_field(field), m_shared(shared) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

protected:
    std::optional<Date> date() const;
    const SharedState &shared() const { return m_shared; }

private:
    DateField *m_field;
    const SharedState &m_shared;
    QString m_shownText;
    std::optional<Date> m_shownDate;
};

/// The issue date takes its century from the coin's year: 5/3/52 with the year 1852 is 3 May 1852.
class IssueDateControl : public DateControl
{
public:
    IssueDateControl(DateField *field, const QLineEdit *yearEdit, const SharedState &shared)
        : DateControl(field, shared), m_yearEdit(yearEdit)
    {
    }
    Value value() const override;

private:
    const QLineEdit *m_yearEdit;
};

class YesNoControl : public FieldControl
{
public:
    explicit YesNoControl(QCheckBox *box) : m_box(box) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

private:
    QCheckBox *m_box;
};

class LookupControl : public FieldControl
{
public:
    explicit LookupControl(LookupList *list) : m_list(list) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;

private:
    LookupList *m_list;
};

} // namespace obelmark
