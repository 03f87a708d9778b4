// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/CannedReport.h"
#include <functional>

namespace obelmark {

class ReportPreview;
struct SharedState;

/// The reports of the Reports menu. Each goes where SharedState::OutputTarget says: to the preview, into a
/// text file or into a web table. A file that cannot be written is told to the user.
/// All throw NumberedError when the collection cannot be read or a sum becomes too large.

void RptCoinList(SharedState &shared, ReportPreview &preview); ///< the owned coins by description
/// The owned coins grouped by the table of SharedState::ReportGroupMode. \a showSelection is to show
/// frmRptSel, which tells by FindCancelled and SelectedGroupID what the user wants.
void RptCoinsBy(SharedState &shared, ReportPreview &preview, const std::function<void()> &showSelection);
void RptValue(SharedState &shared, ReportPreview &preview);    ///< what the owned coins cost and are worth
void RptSales(SharedState &shared, ReportPreview &preview);    ///< what the sold coins cost and brought
void RptForSale(SharedState &shared, ReportPreview &preview);  ///< the coins that are offered
void RptWantList(SharedState &shared, ReportPreview &preview); ///< the coins that are wanted
void RptSellers(SharedState &shared, ReportPreview &preview);  ///< the sellers

} // namespace obelmark
