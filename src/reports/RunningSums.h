// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/CannedReport.h"
#include "reports/QueryField.h"

namespace obelmark {

class RegionalSettings;

/// What a report adds up over its rows, in fixed point.
class RunningSums
{
public:
    enum class Amounts {
        Currency,
        Plain, ///< no symbol, groups or fixed decimals: 1234.5
    };

    RunningSums(const ReportSums &sums, const RegionalSettings &regional);

    /// \throws Overflow
    void add(const ForwardOnly &row);
    /// The text with the sums in place of {quantity}, {total}, {paid}, {value} and {difference}.
    /// \throws Overflow
    QString filledIn(QString text, Amounts amounts = Amounts::Currency) const;

private:
    const ReportSums &m_sums;
    QueryField m_totalField;
    QueryField m_quantityField;
    QueryField m_paidField;
    QueryField m_valueField;
    const RegionalSettings &m_regional;
    qint32 m_quantity = 0;
    Money m_total;
    Money m_paid;
    Money m_value;
};

} // namespace obelmark
