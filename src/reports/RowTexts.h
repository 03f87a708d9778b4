#pragma once

#include "reports/CannedReport.h"
#include "reports/QueryField.h"
#include <vector>

namespace obelmark {

class RegionalSettings;

/// The rows of a report as texts. What each function answers is good until the next one is called.
class RowTexts
{
public:
    RowTexts(const QList<ReportCell> &cells, const RegionalSettings &regional);

    /// In the table grammar.
    QStringView previewRow(const ForwardOnly &row);
    /// The same with a tab for each "|" and without any ";".
    QStringView textLine(const ForwardOnly &row);
    /// A row of a web table, its values as they are.
    QStringView htmlLine(const ForwardOnly &row);

private:
    struct Cell
    {
        CellKind kind;
        bool right;
        QueryField field;
    };

    QString cellText(Cell &cell, const ForwardOnly &row);
    void appendHtmlCell(Cell &cell, const ForwardOnly &row);

    std::vector<Cell> m_cells;
    QueryField m_quantity;
    const RegionalSettings &m_regional;
    QString m_text;
};

} // namespace obelmark
