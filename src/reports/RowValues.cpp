// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/RowValues.h"

#include "runtime/Formats.h"

namespace obelmark {

using namespace Qt::StringLiterals;

RowValues::RowValues(const QList<ReportCell> &cells, const RegionalSettings &regional)
    : m_quantity(u"quantity"_s), m_regional(regional)
{
    for (const ReportCell &cell : cells)
        m_cells.push_back({cell.kind, cell.right ? WebCell::Right : WebCell::Left, QueryField(cell.column)});
}

ReportValue RowValues::valueOf(Cell &cell, const ForwardOnly &row)
{
    const auto currency = [&](Money amount) { return formatCurrency(amount, m_regional); };
    switch (cell.kind) {
    case CellKind::Plain:
        return {cell.field.in(row).toText(), cell.web};
    case CellKind::MoneyOrBlank:
        if (cell.field.in(row).isNull())
            return {{}, WebCell::Blank};
        return {currency(cell.field.amountIn(row)), cell.web};
    case CellKind::MoneyOrZero:
        return {currency(cell.field.amountIn(row)), cell.web};
    case CellKind::TimesQuantity: {
        const Value quantity = m_quantity.in(row);
        if (quantity.isNull())
            return {{}, cell.web};
        return {currency(Money::fromWhole(quantity.toInt()).times(cell.field.amountIn(row))), cell.web};
    }
    case CellKind::Mark:
        if (cell.field.in(row).toBool())
            return {u" * "_s, WebCell::Mark};
        return {};
    }
    Q_UNREACHABLE();
}

const ReportRow &RowValues::of(const ForwardOnly &row)
{
    m_row.clear();
    for (Cell &cell : m_cells)
        m_row.push_back(valueOf(cell, row));
    return m_row;
}

} // namespace obelmark
