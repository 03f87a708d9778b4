#include "reports/RowTexts.h"

#include "runtime/Formats.h"

namespace obelmark {

using namespace Qt::StringLiterals;

RowTexts::RowTexts(const QList<ReportCell> &cells, const RegionalSettings &regional)
    : m_quantity(u"quantity"_s), m_regional(regional)
{
    for (const ReportCell &cell : cells)
        m_cells.push_back({cell.kind, cell.right, QueryField(cell.column)});
}

QString RowTexts::cellText(Cell &cell, const ForwardOnly &row)
{
    const auto currency = [&](Money amount) { return formatCurrency(amount, m_regional); };
    switch (cell.kind) {
    case CellKind::Plain:
        return cell.field.in(row).toText();
    case CellKind::MoneyOrBlank:
        return cell.field.in(row).isNull() ? QString() : currency(cell.field.amountIn(row));
    case CellKind::MoneyOrZero:
        return currency(cell.field.amountIn(row));
    case CellKind::TimesQuantity: {
        const Value quantity = m_quantity.in(row);
        if (quantity.isNull())
            return {};
        return currency(Money::fromWhole(quantity.toInt()).times(cell.field.amountIn(row)));
    }
    case CellKind::Mark:
        return cell.field.in(row).toBool() ? u" * "_s : QString();
    }
    Q_UNREACHABLE();
}

QStringView RowTexts::previewRow(const ForwardOnly &row)
{
    m_text.resize(0);
    for (Cell &cell : m_cells) {
        m_text += cellText(cell, row);
        m_text += u'|';
    }
    m_text.back() = u';';
    return m_text;
}

QStringView RowTexts::textLine(const ForwardOnly &row)
{
    previewRow(row);
    m_text.remove(u';');
    m_text.replace(u'|', u'\t');
    return m_text;
}

QStringView RowTexts::htmlLine(const ForwardOnly &row)
{
    m_text.resize(0);
    m_text += "<tr>"_L1;
    for (Cell &cell : m_cells)
        appendHtmlCell(cell, row);
    m_text += "</tr>"_L1;
    return m_text;
}

void RowTexts::appendHtmlCell(Cell &cell, const ForwardOnly &row)
{
    const QString text = cellText(cell, row);
    if (cell.kind == CellKind::MoneyOrBlank && text.isEmpty()) {
        m_text += "<td>&nbsp;</td>"_L1;
    } else if (cell.kind == CellKind::Mark) {
        m_text += text.isEmpty() ? "<td></td>"_L1 : "<td align=center>*</td>"_L1;
    } else {
        m_text += cell.right ? "<td align=right>"_L1 : "<td>"_L1;
        m_text += text;
        m_text += "</td>"_L1;
    }
}

} // namespace obelmark
