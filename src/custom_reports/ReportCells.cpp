// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportCells.h"

#include "runtime/Formats.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"
#include "runtime/RegionalSettings.h"
#include <optional>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr double tenThousand = 10'000;

/// All four decimals, without zeros at the end.
QString plainMoney(Money amount, const RegionalSettings &regional)
{
    return Value(amount).toText().replace(u"."_s, regional.decimalPoint());
}

QString plainText(const Value &value, const RegionalSettings &regional)
{
    if (const auto *text = value.as<QString>())
        return *text;
    if (const auto *amount = value.as<Money>())
        return plainMoney(*amount, regional);
    if (const auto *number = value.as<double>())
        return plainNumber(*number, regional);
    if (const auto *date = value.as<Date>())
        return formatShortDate(*date, regional);
    return value.toText();
}

std::optional<Money> moneyOf(const Value &value)
{
    try {
        if (const auto *amount = value.as<Money>())
            return *amount;
        if (const auto *number = value.as<qint64>())
            return Money::fromWhole(*number);
    } catch (const NumberedError &) {
        // More than money holds.
    }
    return {};
}

QString currencyText(const Value &value, const RegionalSettings &regional)
{
    if (const auto amount = moneyOf(value))
        return formatCurrency(*amount, regional);
    if (const auto *number = value.as<qint64>())
        return formatCurrency(double(*number), regional);
    if (const auto *number = value.as<double>())
        return formatCurrency(*number, regional);
    return plainText(value, regional);
}

} // namespace

QString cellText(const Value &value, FieldKind kind, bool isCurrency, const RegionalSettings &regional)
{
    const auto *date = value.as<Date>();
    switch (kind) {
    case FieldKind::YesNo:
        return !value.is<QString>() && value.toBool() ? u"Yes"_s : u"No"_s;
    case FieldKind::Number:
        return isCurrency ? currencyText(value, regional) : plainText(value, regional);
    case FieldKind::Time:
        return date ? formatMediumTime(*date, regional) : plainText(value, regional);
    case FieldKind::Text:
    case FieldKind::Date:
        break;
    }
    return plainText(value, regional);
}

void ColumnTotal::add(const Value &value)
{
    if (const auto *amount = value.as<Money>()) {
        try {
            m_money = m_money + *amount;
        } catch (const NumberedError &) {
            m_number += double(amount->tenThousandths()) / tenThousand;
        }
    } else if (const auto *whole = value.as<qint64>()) {
        m_number += double(*whole);
    } else if (const auto *number = value.as<double>()) {
        m_number += *number;
    }
}

QString ColumnTotal::text(bool isCurrency, const RegionalSettings &regional) const
{
    if (m_number == 0)
        return isCurrency ? formatCurrency(m_money, regional) : plainMoney(m_money, regional);
    const double total = m_number + double(m_money.tenThousandths()) / tenThousand;
    return isCurrency ? formatCurrency(total, regional) : plainNumber(total, regional);
}

} // namespace obelmark
