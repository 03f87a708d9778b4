// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "runtime/Dates.h"
#include "runtime/Money.h"
#include <QString>
#include <variant>

namespace obelmark {

/// What a field of a record holds: null, yes/no, a whole number, a floating number, money, a date or text.
class Value
{
public:
    Value() = default; ///< null
    Value(bool yes) : m_held(yes) {}
    Value(qint64 number) : m_held(number) {}
    Value(qint32 number) : m_held(qint64(number)) {}
    Value(qint16 number) : m_held(qint64(number)) {}
    Value(double number) : m_held(number) {}
    Value(Money amount) : m_held(amount) {}
    Value(Date date) : m_held(date) {}
    Value(const QString &text) : m_held(text) {}
    Value(const char *) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(m_held); }
    template<class T>
    bool is() const
    {
        return std::holds_alternative<T>(m_held);
    }
    /// The held value when it is of that kind, else nullptr.
    template<class T>
    const T *as() const
    {
        return std::get_if<T>(&m_held);
    }

    /// Null reads as false, a number as "is not 0". \throws TypeMismatch for a text
    bool toBool() const;
    /// The text of a text value, nothing for null, the plain form of the rest: yes and no as "1" and "0",
    /// numbers with a point (a floating number in as many digits as tell it from every other), ISO dates.
    QString toText() const;
    /// Yes and no read as 1 and 0, a text by its decimal digits.
    /// \throws InvalidUseOfNull for null, TypeMismatch for what is no whole number
    qint64 toInt() const;

    bool operator==(const Value &) const = default;

private:
    std::variant<std::monostate, bool, qint64, double, Money, Date, QString> m_held;
};

} // namespace obelmark
