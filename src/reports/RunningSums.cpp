// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/RunningSums.h"

#include "runtime/Formats.h"
#include "runtime/NumberedError.h"
#include "runtime/Numbers.h"

namespace obelmark {

using namespace Qt::StringLiterals;

RunningSums::RunningSums(const ReportSums &sums, const RegionalSettings &regional)
    : m_sums(sums), m_totalField(sums.total), m_quantityField(u"quantity"_s), m_paidField(u"pricepaid"_s),
      m_valueField(sums.value), m_regional(regional)
{
}

void RunningSums::add(const ForwardOnly &row)
{
    if (!m_sums.total.isEmpty())
        m_total = m_total + m_totalField.amountIn(row);
    if (!m_sums.quantity)
        return;
    const Value quantity = m_quantityField.in(row);
    if (quantity.isNull())
        return;
    if (__builtin_add_overflow(m_quantity, quantity.toInt(), &m_quantity))
        throw runtimeError(Overflow);
    if (m_sums.value.isEmpty())
        return;
    const Money count = Money::fromWhole(quantity.toInt());
    m_paid = m_paid + count.times(m_paidField.amountIn(row));
    m_value = m_value + count.times(m_valueField.amountIn(row));
}

QString RunningSums::filledIn(QString text, Amounts amounts) const
{
    const auto written = [&](Money amount) {
        return amounts == Amounts::Plain ? plainNumber(amount, m_regional)
                                         : formatCurrency(amount, m_regional);
    };
    text.replace("{quantity}"_L1, QString::number(m_quantity));
    text.replace("{total}"_L1, written(m_total));
    text.replace("{paid}"_L1, written(m_paid));
    text.replace("{value}"_L1, written(m_value));
    text.replace("{difference}"_L1, written(m_value - m_paid));
    return text;
}

} // namespace obelmark
