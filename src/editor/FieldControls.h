// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/FieldControl.h"
#include "runtime/Money.h"
#include <optional>

namespace obelmark {

class DateField;
class LookupList;
class RegionalSettings;
struct SharedState;

/// Says of an amount that is going to be saved that it is beyond the range of Money.
QString beyondMoney(bool isNegative, const RegionalSettings &regional);

class MoneyControl : public LineControl
{
public:
    MoneyControl(QLineEdit *edit, const SharedState &shared) : LineControl(edit), m_shared(shared) {}
    void show(const Value &stored) override;
    Value value() const override;
    QString remark(bool isChecked) const override;

    QString text() const;
    bool isNumber() const;
    /// Whether the text is what was last shown here, so that the exact amount behind it still holds.
    bool isUntouched() const;
    /// Shows an amount and keeps it to the last decimal.
    void showExactly(Money amount);
    /// Shows an amount; from then on it is what the text says.
    void showRounded(Money amount);
    /// The same for one beyond the range of Money, as far as a floating number goes: it can be shown, and is
    /// refused when the coin is saved.
    void showBeyond(double amount);
    /// Shows the number that has been typed as money.
    void showAsMoney();
    /// What remark() says of a total: it will be another one by the time it is saved.
    void setForesight(std::function<QString()> foresight) { m_foresight = std::move(foresight); }

private:
    /// A text as it has been read, once.
    struct Reading
    {
        QString text;
        bool isNumber = false;
        std::optional<Money> amount; ///< nothing when it is beyond the range
    };
    const Reading &reading() const;
    void showReading(const Reading &shown);

    const SharedState &m_shared;
    std::function<QString()> m_foresight;
    QString m_shownText;
    std::optional<Money> m_shownAmount;
    mutable Reading m_reading;
};

/// A whole number: the year (16 bits) or the quantity (32 bits), which must not be empty.
class NumberControl : public LineControl
{
public:
    enum class Size { Bits16, Bits32 };
    NumberControl(QLineEdit *edit, Size size, const QString &textForNew, const SharedState &shared)
        : LineControl(edit), m_size(size), m_textForNew(textForNew), m_shared(shared)
    {
    }
    void show(const Value &stored) override;
    void clear() override;
    Value value() const override;
    QString remark(bool isChecked) const override;

private:
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
    QString remark(bool isChecked) const override;
    void onChange(QObject *context, const std::function<void()> &changed) const override;

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

class LookupControl : public FieldControl
{
public:
    explicit LookupControl(LookupList *list) : m_list(list) {}
    QWidget *widget() const override;
    void show(const Value &stored) override;
    Value value() const override;
    void onChange(QObject *context, const std::function<void()> &changed) const override;

private:
    LookupList *m_list;
};

} // namespace obelmark
