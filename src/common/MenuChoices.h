#pragma once

namespace obelmark {

/// The orders of the Sort menu.
enum class CoinOrder { Description = 1, CatalogueNumber, Year };

/// Where reports go, as the Reports menu says.
enum class ReportKind { Preview = 1, TextFile, HtmlFile };

} // namespace obelmark
