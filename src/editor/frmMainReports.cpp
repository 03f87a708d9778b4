// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/SharedState.h"
#include "editor/ProgramWindows.h"
#include "editor/frmMain.h"
#include "reports/CannedReports.h"
#include "reports/ReportGroups.h"
#include "reports/windows/frmRptSel.h"
#include "ui_frmMain.h"

namespace obelmark {

void frmMain::connectReports()
{
    const std::pair<QAction *, void (*)(SharedState &, ReportPreview &)> reports[] = {
        {m_ui->mnuRptValue, RptValue}, {m_ui->mnuRptWant, RptWantList},   {m_ui->mnuRptForSale, RptForSale},
        {m_ui->mnuRptSold, RptSales},  {m_ui->mnuRptSellers, RptSellers},
    };
    for (const auto &[item, report] : reports)
        connect(item, &QAction::triggered, this,
                [this, make = report] { run([&] { make(m_shared, m_windows.output); }); });
}

void frmMain::mnuRpt_Click(int index)
{
    if (index == 1) {
        RptCoinList(m_shared, m_windows.output);
        return;
    }
    m_shared.ReportGroupMode = reportGroups()[size_t(index - 2)].table;
    RptCoinsBy(m_shared, m_windows.output, [this] { frmRptSel(m_shared, this).exec(); });
}

} // namespace obelmark
