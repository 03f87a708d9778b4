// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/CannedReport.h"
#include "reports/QueryField.h"
#include "reports/ReportTarget.h"
#include <vector>

namespace obelmark {

class RegionalSettings;

/// The rows of a report's query as those of the report.
class RowValues
{
public:
    RowValues(const QList<ReportCell> &cells, const RegionalSettings &regional);

    /// Good until the next one is asked for.
    const ReportRow &of(const ForwardOnly &row);

private:
    struct Cell
    {
        CellKind kind;
        WebCell web;
        QueryField field;
    };

    ReportValue valueOf(Cell &cell, const ForwardOnly &row);

    std::vector<Cell> m_cells;
    QueryField m_quantity;
    const RegionalSettings &m_regional;
    ReportRow m_row;
};

} // namespace obelmark
