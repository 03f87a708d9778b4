// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace obelmark {

/// The orders of the Sort menu.
enum class CoinOrder { Description = 1, CatalogueNumber, Year };

/// Where reports go, as the Reports menu says.
enum class ReportKind { Preview = 1, TextFile, HtmlFile };

} // namespace obelmark
